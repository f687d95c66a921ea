#pragma once

// Table-driven hex helpers shared by the codec. No allocation or formatting call per byte:
// the common pair of two hex digits goes through one table, and only a pair that fails
// it takes the slow path that reproduces the C library's reading of odd pairs.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>

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

// The two digits of every byte, back to back: bytes b*2 and b*2+1 are the digits of b.
template <bool Upper>
inline constexpr std::array<char, 512> kHexPairs = [] {
    constexpr std::string_view digits = Upper ? "0123456789ABCDEF" : "0123456789abcdef";
    std::array<char, 512> table{};
    for (int b = 0; b < 256; ++b) {
        table[2 * b] = digits[b >> 4];
        table[2 * b + 1] = digits[b & 0xF];
    }
    return table;
}();

inline constexpr bool isHexDigit(unsigned char c) { return kNibble[c] != kBadNibble; }
inline constexpr int nibble(unsigned char c) { return kNibble[c]; }

// isspace in the "C" locale, which is what strtol and sscanf skip.
inline constexpr bool isCSpace(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The pair a,b read as strtol(base 16) reads the NUL-terminated text "ab": optional
// blank, optional sign, digits. Absent unless strtol would consume both characters, so
// " A" gives 0A and "-1" gives FF, while "0x", "A " and "\0A" are absent.
inline constexpr std::optional<std::uint8_t> strtolPairValue(unsigned char a, unsigned char b) {
    if (!isHexDigit(b)) return std::nullopt;
    if (isHexDigit(a)) return static_cast<std::uint8_t>(nibble(a) << 4 | nibble(b));
    if (isCSpace(a) || a == '+') return static_cast<std::uint8_t>(nibble(b));
    if (a == '-') return static_cast<std::uint8_t>(-nibble(b));
    return std::nullopt;
}

// The pair a,b read as sscanf("%x") reads the NUL-terminated text "ab" into a value
// preset to 0, truncated to 8 bits: leading digits count even when junk follows ("4G" is
// 4), a pair without digits leaves 0, and a sign negates ("-4" is FC).
inline constexpr std::uint8_t scanfPairValue(unsigned char a, unsigned char b) {
    if (isHexDigit(a)) {
        return static_cast<std::uint8_t>(isHexDigit(b) ? (nibble(a) << 4 | nibble(b)) : nibble(a));
    }
    // Whatever precedes the one possible digit b is a blank or a sign, or the pair has no
    // digits at all ("0x" reads as 0 either way).
    if (!isHexDigit(b)) return 0;
    if (isCSpace(a) || a == '+') return static_cast<std::uint8_t>(nibble(b));
    if (a == '-') return static_cast<std::uint8_t>(-nibble(b));
    return 0;
}

// Decodes hex.size() / 2 pairs of hex into out. A pair of two hex digits is decoded by
// table; any other pair goes to slowPair(pairIndex), whose result (or exception) stands
// for that pair. Blocks of pairs are decoded without a branch per pair and re-run one pair
// at a time only when the block held a bad digit.
template <class Out, class SlowPair>
void decodeHexPairs(std::string_view hex, Out* out, SlowPair&& slowPair) {
    const auto* in = reinterpret_cast<const unsigned char*>(hex.data());
    const std::size_t pairs = hex.size() / 2;
    const auto decodeOneByOne = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            const unsigned value = kNibble[in[2 * i]] << 4 | kNibble[in[2 * i + 1]];
            out[i] = (value & kBadPairMask) == 0 ? static_cast<Out>(value)
                                                 : static_cast<Out>(slowPair(i));
        }
    };
    constexpr std::size_t kBlock = 16;
    std::size_t i = 0;
    for (; i + kBlock <= pairs; i += kBlock) {
        unsigned seen = 0;
        for (std::size_t j = i; j < i + kBlock; ++j) {
            const unsigned value = kNibble[in[2 * j]] << 4 | kNibble[in[2 * j + 1]];
            seen |= value;
            out[j] = static_cast<Out>(static_cast<std::uint8_t>(value));
        }
        if ((seen & kBadPairMask) != 0) decodeOneByOne(i, i + kBlock);
    }
    decodeOneByOne(i, pairs);
}

// Writes two hex digits per byte of data at out (2 * data.size() chars).
template <bool Upper = true>
inline void writeHex(std::span<const std::uint8_t> data, char* out) {
    const char* pairs = kHexPairs<Upper>.data();
    for (const std::uint8_t b : data) {
        std::memcpy(out, pairs + 2 * b, 2);
        out += 2;
    }
}

// Appends two uppercase hex digits per byte of data.
inline void appendHex(std::string& out, std::span<const std::uint8_t> data) {
    const std::size_t old = out.size();
    out.resize(old + 2 * data.size());
    writeHex(data, out.data() + old);
}

// The uppercase hex of data, in one allocation.
inline std::string hexUpper(std::span<const std::uint8_t> data) {
    std::string out;
    appendHex(out, data);
    return out;
}

// Appends value in uppercase hex with at least minDigits digits, as "%0*lX" does.
inline void appendHexNumber(std::string& out, std::uint64_t value, int minDigits) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    char digits[16];
    int count = 0;
    do {
        digits[15 - count] = kDigits[value & 0xF];
        ++count;
        value >>= 4;
    } while (value != 0);
    for (int pad = count; pad < minDigits; ++pad)
        out.push_back('0');
    out.append(digits + 16 - count, static_cast<std::size_t>(count));
}

}  // namespace vastrel::codec
