#include "LibraryLog.hpp"

#include <algorithm>
#include <ostream>
#include <utility>

#include "vastrel/Platform/Log.hpp"

namespace vastrel::tool {
namespace {

// Every line of a message gets the prefix (the decoder's summaries span many lines), so
// the library's output stays easy to tell apart and to filter.
void printPrefixed(std::ostream& err, std::string_view message) {
    std::size_t start = 0;
    while (start <= message.size()) {
        const auto end = std::min(message.find('\n', start), message.size());
        err << "vastrel: log: " << message.substr(start, end - start) << '\n';
        start = end + 1;
    }
}

}  // namespace

LibraryLog::LibraryLog(bool verbose, std::ostream& err) : verbose_(verbose), err_(err) {
    log::setHandler([this](std::string_view line) {
        lines_.emplace_back(line);
        if (verbose_) printPrefixed(err_, line);
    });
}

LibraryLog::~LibraryLog() { log::setHandler(nullptr); }

std::vector<std::string> LibraryLog::take() { return std::exchange(lines_, {}); }

}  // namespace vastrel::tool
