// TLVDecoder::hexToInt on any text. It never throws, and reads as a scanner does: blanks
// skipped, an optional 0x, hex digits up to the first other character, 0 without digits,
// 0xFFFFFFFF past 32 bits. Checked against strtoull on the digits when no byte above 0x7F
// comes before them (Unicode blanks are skipped too, which this check leaves out).
#include <cerrno>
#include <cstdlib>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

bool isCSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text = asText(data, size);
    const std::uint32_t value = TLVDecoder::hexToInt(text);

    while (!text.empty() && isCSpace(text.front()))
        text.remove_prefix(1);
    if (!text.empty() && static_cast<unsigned char>(text.front()) >= 0x80) return 0;
    if (text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);  // "0x" without digits reads 0 whether it is skipped or not
    }
    std::size_t digits = 0;
    while (digits < text.size() && isHexDigit(text[digits]))
        ++digits;
    const std::string digitText(text.substr(0, digits));
    errno = 0;
    const unsigned long long wide =
        digitText.empty() ? 0 : std::strtoull(digitText.c_str(), nullptr, 16);
    const std::uint32_t expected =
        errno == ERANGE || wide > 0xFFFFFFFFULL ? 0xFFFFFFFFU : static_cast<std::uint32_t>(wide);
    FUZZ_CHECK(value == expected);
    return 0;
}
