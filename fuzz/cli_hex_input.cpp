// The command-line tool's hex input: tool::cleanHex (tools/vastrel/HexInput.cpp), then the
// library calls `vastrel decode` and `vastrel split` make with what it returns. cleanHex
// throws only InputError, and otherwise returns the text's hex digits upper-cased, with
// leading blanks, one 0x after them and every blank removed: never empty, whole bytes.
// That text never trips the hex layer: decoding never throws, and splitting throws only
// RangeError (a value past the end).
#include <string>

#include "FuzzSupport.hpp"
#include "HexInput.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Platform/RangeError.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// What cleanHex should answer, or nothing when it should throw.
std::optional<std::string> expectedDigits(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && isBlank(text[start]))
        ++start;
    if (text.substr(start, 2) == "0x" || text.substr(start, 2) == "0X") start += 2;
    std::string digits;
    for (const char c : text.substr(start)) {
        if (isBlank(c)) continue;
        if (!isHexDigit(c)) return std::nullopt;
        digits += c;
    }
    if (digits.empty() || digits.size() % 2 != 0) return std::nullopt;
    return upperCased(digits);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const std::optional<std::string> expected = expectedDigits(text);
    std::string hex;
    try {
        hex = tool::cleanHex(text);
    } catch (const tool::InputError& error) {
        FUZZ_CHECK(!expected.has_value());
        FUZZ_CHECK(std::string_view(error.what()).size() > 0);
        return 0;
    }
    FUZZ_CHECK(expected.has_value() && hex == *expected);

    const LogLines log;
    const auto elements = TLVDecoder::decodeWithTLVString(hex);
    FUZZ_CHECK(elements.has_value());
    try {
        static_cast<void>(TLVParser::splitTLVData(hex));
    } catch (const RangeError&) {
        // The tool reports this as input that ends inside an element.
    }
    return 0;
}
