// TLVUtility::hexToAscii on any text. It never throws; odd-length text gives "", and
// otherwise each character is its pair as sscanf "%x" reads the NUL-terminated pair into
// a value preset to 0, truncated to 8 bits.
#include <cstdio>

#include "FuzzSupport.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

char sscanfPair(char a, char b) {
    const char pair[3] = {a, b, '\0'};
    unsigned value = 0;
    static_cast<void>(std::sscanf(pair, "%x", &value));
    return static_cast<char>(static_cast<std::uint8_t>(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const std::string ascii = TLVUtility::hexToAscii(text);
    if (text.size() % 2 != 0) {
        FUZZ_CHECK(ascii.empty());
        return 0;
    }
    FUZZ_CHECK(ascii.size() == text.size() / 2);
    for (std::size_t i = 0; i < ascii.size(); ++i) {
        FUZZ_CHECK(ascii[i] == sscanfPair(text[2 * i], text[2 * i + 1]));
    }
    return 0;
}
