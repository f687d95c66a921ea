#pragma once

// The small rules that the codec, the tag tables, the masking of card data and the tool all
// apply to text and tags: reading a hex digit, ASCII letter case, white space as the C
// library and the platform's scanner see it, the BER length field, the constructed bit and
// the issuer script template tags. Each is written here once.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "HexEncode.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel::codec {

// kNibble[c] is the value of hex digit c, or kBadNibble. Combining two entries as
// (high << 4) | low leaves a bit of kBadPairMask set exactly when a digit was bad.
inline constexpr std::uint16_t kBadNibble = 0x100;
inline constexpr std::uint16_t kBadPairMask = kBadNibble | (kBadNibble << 4);

inline constexpr std::array<std::uint16_t, 256> kNibble = [] {
    std::array<std::uint16_t, 256> table{};
    for (int c = 0; c < 256; ++c) {
        if (c >= '0' && c <= '9') {
            table[c] = static_cast<std::uint16_t>(c - '0');
        } else if (c >= 'A' && c <= 'F') {
            table[c] = static_cast<std::uint16_t>(c - 'A' + 10);
        } else if (c >= 'a' && c <= 'f') {
            table[c] = static_cast<std::uint16_t>(c - 'a' + 10);
        } else {
            table[c] = kBadNibble;
        }
    }
    return table;
}();

inline constexpr bool isHexDigit(unsigned char c) { return kNibble[c] != kBadNibble; }
inline constexpr int nibble(unsigned char c) { return kNibble[c]; }

// The byte written by the two hex digits high and low, either case; -1 when one is not a
// digit. With upperOnly, lower-case letters count as not digits.
inline constexpr int hexByte(char high, char low, bool upperOnly = false) {
    const auto h = static_cast<unsigned char>(high);
    const auto l = static_cast<unsigned char>(low);
    if (upperOnly && ((h >= 'a' && h <= 'f') || (l >= 'a' && l <= 'f'))) return -1;
    const unsigned value = kNibble[h] << 4 | kNibble[l];
    return (value & kBadPairMask) != 0 ? -1 : static_cast<int>(value);
}

// isspace in the "C" locale, which is what strtol and sscanf skip.
inline constexpr bool isCSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Whitespace and newline characters as the platform's scanner skips them: the ASCII ones
// and, in UTF-8, U+0085, U+00A0, U+1680, U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F
// and U+3000. Returns the character's byte count at the front of text, or 0.
std::size_t scannerSpaceLength(std::string_view text);

inline constexpr char asciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// True when a and b are the same text but for the case of ASCII letters.
inline constexpr bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiUpper(x) == asciiUpper(y); });
}

// True when the tag written as hex has the constructed bit set in its first byte; false
// when the text does not start with two hex digits.
inline constexpr bool isConstructedTag(std::string_view tagHex) {
    if (tagHex.size() < 2) return false;
    const int first = hexByte(tagHex[0], tagHex[1]);
    return first >= 0 && Tag::isConstructed(first);
}

// The BER length field of a length up to 65535: n below 128 as one byte; 81 n up to 255;
// 82 hi lo above.
struct LengthField {
    std::array<std::uint8_t, 3> bytes{};
    std::size_t size = 0;

    constexpr std::span<const std::uint8_t> view() const { return {bytes.data(), size}; }
};

inline constexpr LengthField lengthField(std::uint16_t n) {
    if (n < 128) return {{static_cast<std::uint8_t>(n)}, 1};
    if (n <= 255) return {{0x81, static_cast<std::uint8_t>(n)}, 2};
    return {{0x82, static_cast<std::uint8_t>(n >> 8), static_cast<std::uint8_t>(n)}, 3};
}

// Appends the length field of n as hex. Above 65535 this is 82 followed by n in as many
// digits as it takes, which is not BER; element building has always written it so.
inline void appendLengthFieldHex(std::string& out, std::uint64_t n) {
    if (n > 0xFFFF) {
        out += "82";
        appendHexNumber(out, n, 4);
        return;
    }
    appendHex(out, lengthField(static_cast<std::uint16_t>(n)).view());
}

// The issuer script templates.
inline constexpr std::uint8_t kIssuerScriptTemplate1 = 0x71;
inline constexpr std::uint8_t kIssuerScriptTemplate2 = 0x72;

// True when the tag read from the front of tlv (hex) is the one-byte tag scriptTag, and also
// when no whole tag can be read from it (empty text, a multi-byte tag cut short): callers
// have always treated those as a match. Throws AssertionFailure for text that is not hex.
bool startsWithScriptTemplate(std::string_view tlv, std::uint8_t scriptTag);

}  // namespace vastrel::codec
