#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel::testing {

// Hex written by hand (blanks allowed) as bytes.
inline std::vector<std::uint8_t> bytesOf(std::string_view hex) {
    std::vector<std::uint8_t> bytes;
    int high = -1;
    for (const char c : hex) {
        if (c == ' ') continue;
        const int digit = c <= '9' ? c - '0' : (c & ~0x20) - 'A' + 10;
        if (high < 0) {
            high = digit;
        } else {
            bytes.push_back(static_cast<std::uint8_t>(high << 4 | digit));
            high = -1;
        }
    }
    return bytes;
}

}  // namespace vastrel::testing
