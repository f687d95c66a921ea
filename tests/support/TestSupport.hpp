#pragma once

// What the tests share: capturing the library's log, rendering decoded trees and bytes so
// that mismatches read well, and reading files of the source tree.

#include <cstdint>
#include <fstream>
#include <optional>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel::testing {

// Collects every log line while alive, then restores the default handler.
class LogCapture {
  public:
    LogCapture() {
        log::setHandler([this](std::string_view line) { lines_.emplace_back(line); });
    }
    ~LogCapture() { log::setHandler(nullptr); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<std::string>& lines() const { return lines_; }
    void clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

// Bytes as hex, so mismatches print readably.
inline std::string hex(std::span<const std::uint8_t> bytes) {
    return TLVUtility::dataToHexString(bytes);
}

// One element as "tag:length:value", with its children in braces when it has any
// ("70:10:5A08...{5A:8:...}"), so decoded trees compare as short texts. With names, each
// element starts with its tag name and a '|'.
inline std::string render(const TLVObject& object, bool withNames = false) {
    std::string out = withNames ? object.tagName().value_or("<absent>") + "|" : "";
    out += object.tag().value_or("<absent>") + ":" + object.length().value_or("<absent>") + ":" +
           object.value().value_or("<absent>");
    if (const auto& children = object.innerTlvs()) {
        out += "{";
        for (std::size_t i = 0; i < children->size(); ++i) {
            if (i > 0) out += ' ';
            out += render((*children)[i], withNames);
        }
        out += "}";
    }
    return out;
}

inline std::vector<std::string> render(const std::optional<std::vector<TLVObject>>& objects,
                                       bool withNames = false) {
    std::vector<std::string> out;
    if (!objects) return {"<absent>"};
    for (const TLVObject& object : *objects)
        out.push_back(render(object, withNames));
    return out;
}

// The text of the file at path.
inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The text of a file of the source tree, by its path from the top ("examples/x.json").
inline std::string readSourceFile(const std::string& path) {
    return readFile(std::string(VASTREL_SOURCE_DIR) + "/" + path);
}

}  // namespace vastrel::testing
