#pragma once

// Table-driven hex helpers shared by the codec. No allocation or formatting call per byte:
// the common pair of two hex digits goes through one table, and only a pair that fails
// it takes the slow path that reproduces the C library's reading of odd pairs.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

#if defined(__SSE2__)
// Decodes 16 pairs (32 hex characters) at in into 16 bytes at out; false when any
// character is not a hex digit (out then holds junk). Digits are found and converted with
// range compares, and pairs are joined by shifting 16-bit lanes.
inline bool decodeSixteenHexPairs(const unsigned char* in, std::uint8_t* out) {
    const auto convert = [](__m128i text, __m128i& valid) {
        // c in [lo, lo + width) as a signed compare after moving lo to -128.
        const auto inRange = [](__m128i c, char lo, char width) {
            return _mm_cmplt_epi8(_mm_add_epi8(c, _mm_set1_epi8(static_cast<char>(0x80 - lo))),
                                  _mm_set1_epi8(static_cast<char>(-128 + width)));
        };
        const __m128i folded = _mm_or_si128(text, _mm_set1_epi8(0x20));
        const __m128i isDigit = inRange(text, '0', 10);
        const __m128i isLetter = inRange(folded, 'a', 6);
        valid = _mm_and_si128(valid, _mm_or_si128(isDigit, isLetter));
        const __m128i nibbles =
            _mm_or_si128(_mm_and_si128(isDigit, _mm_sub_epi8(text, _mm_set1_epi8('0'))),
                         _mm_and_si128(isLetter, _mm_sub_epi8(folded, _mm_set1_epi8('a' - 10))));
        // Each 16-bit lane holds high nibble | low nibble << 8.
        return _mm_or_si128(_mm_slli_epi16(_mm_and_si128(nibbles, _mm_set1_epi16(0x00FF)), 4),
                            _mm_srli_epi16(nibbles, 8));
    };
    __m128i valid = _mm_set1_epi8(-1);
    const __m128i first = convert(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in)), valid);
    const __m128i second =
        convert(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in + 16)), valid);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_packus_epi16(first, second));
    return _mm_movemask_epi8(valid) == 0xFFFF;
}
#endif

// Decodes the first pairs of the text at in into out when every pair is two hex digits and
// returns true; otherwise returns false and out holds junk.
inline bool decodeHexDigitPairs(const unsigned char* in, std::size_t pairs, std::uint8_t* out) {
    std::size_t i = 0;
#if defined(__SSE2__)
    for (; i + 16 <= pairs; i += 16) {
        if (!decodeSixteenHexPairs(in + 2 * i, out + i)) return false;
    }
#endif
    unsigned seen = 0;
    for (; i < pairs; ++i) {
        const unsigned value = kNibble[in[2 * i]] << 4 | kNibble[in[2 * i + 1]];
        seen |= value;
        out[i] = static_cast<std::uint8_t>(value);
    }
    return (seen & kBadPairMask) == 0;
}

// Decodes hex.size() / 2 pairs of hex into out. A pair of two hex digits is decoded by
// table; any other pair goes to slowPair(pairIndex), whose result (or exception) stands
// for that pair. Blocks of pairs are decoded by table and re-run one pair at a time only
// when the block held a bad digit.
template <class Out, class SlowPair>
void decodeHexPairs(std::string_view hex, Out* out, SlowPair&& slowPair) {
    const auto* in = reinterpret_cast<const unsigned char*>(hex.data());
    const std::size_t pairs = hex.size() / 2;
    constexpr std::size_t kBlock = 64;
    std::uint8_t block[kBlock];
    for (std::size_t first = 0; first < pairs; first += kBlock) {
        const std::size_t count = pairs - first < kBlock ? pairs - first : kBlock;
        std::uint8_t* decoded = block;
        if constexpr (sizeof(Out) == 1) decoded = reinterpret_cast<std::uint8_t*>(out + first);
        if (decodeHexDigitPairs(in + 2 * first, count, decoded)) {
            if constexpr (sizeof(Out) != 1) std::copy(decoded, decoded + count, out + first);
            continue;
        }
        for (std::size_t i = first; i < first + count; ++i) {
            const unsigned value = kNibble[in[2 * i]] << 4 | kNibble[in[2 * i + 1]];
            out[i] = (value & kBadPairMask) == 0 ? static_cast<Out>(value)
                                                 : static_cast<Out>(slowPair(i));
        }
    }
}

#if defined(__SSE2__)
// Writes the 32 hex digits of the 16 bytes at in to out: each nibble plus '0', plus the gap
// up to 'A' (or 'a') for nibbles above 9, then high and low digits interleaved.
template <bool Upper>
inline void writeSixteenHex(const std::uint8_t* in, char* out) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
    const __m128i lowNibbles = _mm_set1_epi8(0x0F);
    const auto digits = [](__m128i nibbles) {
        const __m128i letters = _mm_cmpgt_epi8(nibbles, _mm_set1_epi8(9));
        return _mm_add_epi8(
            _mm_add_epi8(nibbles, _mm_set1_epi8('0')),
            _mm_and_si128(letters, _mm_set1_epi8(Upper ? 'A' - '0' - 10 : 'a' - '0' - 10)));
    };
    const __m128i high = digits(_mm_and_si128(_mm_srli_epi16(bytes, 4), lowNibbles));
    const __m128i low = digits(_mm_and_si128(bytes, lowNibbles));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(high, low));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 16), _mm_unpackhi_epi8(high, low));
}
#endif

// Writes two hex digits per byte of data at out (2 * data.size() chars).
template <bool Upper = true>
inline void writeHex(std::span<const std::uint8_t> data, char* out) {
    const std::uint8_t* in = data.data();
    const std::uint8_t* const end = in + data.size();
#if defined(__SSE2__)
    for (; end - in >= 16; in += 16, out += 32)
        writeSixteenHex<Upper>(in, out);
#endif
    const char* pairs = kHexPairs<Upper>.data();
    for (; in != end; ++in, out += 2)
        std::memcpy(out, pairs + 2 * *in, 2);
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
