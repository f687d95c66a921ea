// TLVUtility::dataWithHexString on any text. Only AssertionFailure escapes, with the
// message for the first thing wrong; what converts holds one byte per pair, each read as
// strtol (base 16) reads the pair, and converts back to the upper-cased text when the text
// was all hex digits.
#include <cstdlib>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

// The pair as strtol reads the NUL-terminated text "ab"; -1 when it does not read both.
int strtolPair(char a, char b) {
    const char pair[3] = {a, b, '\0'};
    char* end = nullptr;
    const long value = std::strtol(pair, &end, 16);
    return end == pair + 2 ? static_cast<int>(static_cast<std::uint8_t>(value)) : -1;
}

// True when what() holds expected; what() is a C string, so it ends at expected's first NUL.
bool holds(const char* what, const std::string& expected) {
    const std::string_view shown(expected.c_str());
    return std::string_view(what).find(shown) != std::string_view::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    std::size_t firstBadPair = text.size() / 2;
    for (std::size_t i = 0; i < text.size() / 2; ++i) {
        if (strtolPair(text[2 * i], text[2 * i + 1]) < 0) {
            firstBadPair = i;
            break;
        }
    }

    Bytes bytes;
    try {
        bytes = TLVUtility::dataWithHexString(text);
    } catch (const AssertionFailure& failure) {
        if (text.size() % 2 != 0) {
            FUZZ_CHECK(holds(failure.what(), "Hex strings should have an even number of digits (" +
                                                 std::string(text) + ")"));
        } else {
            FUZZ_CHECK(firstBadPair < text.size() / 2);
            FUZZ_CHECK(holds(failure.what(),
                             "String should be all hex digits: " + std::string(text) +
                                 " (bad digit around " + std::to_string(2 * firstBadPair) + ")"));
        }
        return 0;
    }

    FUZZ_CHECK(text.size() % 2 == 0);
    FUZZ_CHECK(firstBadPair == text.size() / 2);
    FUZZ_CHECK(bytes.size() == text.size() / 2);
    bool allDigits = true;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        FUZZ_CHECK(bytes[i] == strtolPair(text[2 * i], text[2 * i + 1]));
        allDigits = allDigits && isHexDigit(text[2 * i]) && isHexDigit(text[2 * i + 1]);
    }
    const std::string hex = TLVUtility::dataToHexString(bytes);
    if (allDigits) FUZZ_CHECK(hex == upperCased(text));
    FUZZ_CHECK(TLVUtility::dataWithHexString(hex) == bytes);
    return 0;
}
