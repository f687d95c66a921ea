#pragma once

// What every fuzzer shares: a check that stops the run when an invariant breaks, the log
// kept off stderr, and the two ways a fuzzer turns its input into hex text.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Platform/Bytes.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel::fuzz {

[[noreturn]] inline void invariantFailed(const char* file, int line, const char* condition) {
    std::fprintf(stderr, "%s:%d: invariant does not hold: %s\n", file, line, condition);
    std::abort();
}

// Stops the run when condition is false; libFuzzer then saves the input as a crash.
#define FUZZ_CHECK(condition)           \
    ((condition) ? static_cast<void>(0) \
                 : ::vastrel::fuzz::invariantFailed(__FILE__, __LINE__, #condition))

// Keeps the log lines of the current input, instead of the default handler's stderr lines
// (the decoder writes one per nesting level, which would bury libFuzzer's own output).
class LogLines {
  public:
    LogLines() {
        log::setHandler([this](std::string_view line) { lines_.emplace_back(line); });
    }
    ~LogLines() { log::setHandler(nullptr); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

  private:
    std::vector<std::string> lines_;
};

inline std::string_view asText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

inline std::string upperCased(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

inline std::string lowerCased(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return out;
}

// The hex text a fuzzer of a hex entry point passes on. The first input byte chooses how
// the rest is read: with bit 0 clear the rest are bytes, written as hex (lower-case digits
// when bit 1 is set), so that the parser behind the hex layer sees well-formed hex; with
// bit 0 set the rest is the text itself, for the hex layer's own odd cases.
struct HexText {
    std::string text;
    bool wellFormed = false;  // written from bytes: even length, hex digits only
};

inline HexText hexTextFromInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return {"", true};
    const std::uint8_t mode = data[0];
    if ((mode & 1) != 0) return {std::string(asText(data + 1, size - 1)), false};
    std::string hex = TLVUtility::dataToHexString({data + 1, size - 1});
    if ((mode & 2) != 0) hex = lowerCased(hex);
    return {std::move(hex), true};
}

}  // namespace vastrel::fuzz
