#pragma once

// Hex text to bytes. The common pair of two hex digits goes through one table (or SSE2 for
// blocks of 16 pairs), and only a pair that fails it takes the slow path that reproduces the
// C library's reading of odd pairs.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "CodecRules.hpp"

namespace vastrel::codec {

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
            const int value = hexByte(hex[2 * i], hex[2 * i + 1]);
            out[i] = value >= 0 ? static_cast<Out>(value) : static_cast<Out>(slowPair(i));
        }
    }
}

}  // namespace vastrel::codec
