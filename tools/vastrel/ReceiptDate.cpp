#include "ReceiptDate.hpp"

#include <cerrno>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <sstream>

#include "ToolError.hpp"

namespace vastrel::tool {

TransactionReceipt::Date parseUtcDateTime(std::string_view text) {
    std::tm fields{};
    std::istringstream in{std::string(text)};
    in >> std::get_time(&fields, "%Y-%m-%dT%H:%M:%SZ");
    const bool wholeText = !in.fail() && in.peek() == std::char_traits<char>::eof();
    std::tm normalised = fields;
    // -1 is also 1969-12-31T23:59:59Z: only errno tells a failure from that second.
    errno = 0;
    const std::time_t seconds = timegm(&normalised);
    const bool unrepresentable = seconds == -1 && errno != 0;
    // The clock counts nanoseconds in 64 bits: about the years 1678 to 2262.
    constexpr auto kReachable =
        std::chrono::duration_cast<std::chrono::seconds>(TransactionReceipt::Date::duration::max())
            .count();
    // timegm moves 31 April to 1 May; a date that moved was not a real one.
    if (!wholeText || unrepresentable || seconds < -kReachable || seconds > kReachable ||
        normalised.tm_mday != fields.tm_mday || normalised.tm_mon != fields.tm_mon) {
        throw InputError("transactionDateTime '" + std::string(text) +
                         "' is not a UTC time such as 2025-03-15T13:45:02Z");
    }
    return std::chrono::system_clock::from_time_t(seconds);
}

std::string formatUtcDateTime(TransactionReceipt::Date date, const char* format) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(date);
    std::tm fields{};
    gmtime_r(&seconds, &fields);
    std::ostringstream out;
    out << std::put_time(&fields, format);
    return out.str();
}

}  // namespace vastrel::tool
