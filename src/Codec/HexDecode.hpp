#pragma once

// Hex text to bytes. The common pair of two hex digits goes through one table (or SIMD for
// blocks of 16 pairs), and only a pair that fails it takes the slow path that reproduces the
// C library's reading of odd pairs.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "CodecRules.hpp"
#include "HexSimd.hpp"

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

// Decodes pairs pairs of hex digits at in into out; false when any character is not a hex
// digit (out then holds junk).
inline bool decodeHexDigitPairsScalar(const unsigned char* in, std::size_t pairs,
                                      std::uint8_t* out) {
    unsigned seen = 0;
    for (std::size_t i = 0; i < pairs; ++i) {
        const unsigned value = kNibble[in[2 * i]] << 4 | kNibble[in[2 * i + 1]];
        seen |= value;
        out[i] = static_cast<std::uint8_t>(value);
    }
    return (seen & kBadPairMask) == 0;
}

#if defined(__SSE2__)

// Digits are found with range compares (signed, after moving the range's start to -128)
// and pairs are joined by shifting 16-bit lanes.
inline bool decodeSixteenHexPairs(const unsigned char* in, std::uint8_t* out) {
    const auto convert = [](__m128i text, __m128i& valid) {
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

#elif defined(__ARM_NEON)

// vld2 splits the text into high and low digits; unsigned range compares find the digits.
// The loads and stores are byte-wise, so no alignment is assumed.
inline bool decodeSixteenHexPairs(const unsigned char* in, std::uint8_t* out) {
    const auto convert = [](uint8x16_t text, uint8x16_t& valid) {
        const uint8x16_t digit = vsubq_u8(text, vdupq_n_u8('0'));
        const uint8x16_t isDigit = vcltq_u8(digit, vdupq_n_u8(10));
        const uint8x16_t letter = vsubq_u8(vorrq_u8(text, vdupq_n_u8(0x20)), vdupq_n_u8('a'));
        const uint8x16_t isLetter = vcltq_u8(letter, vdupq_n_u8(6));
        valid = vandq_u8(valid, vorrq_u8(isDigit, isLetter));
        return vorrq_u8(vandq_u8(isDigit, digit),
                        vandq_u8(isLetter, vaddq_u8(letter, vdupq_n_u8(10))));
    };
    const uint8x16x2_t text = vld2q_u8(in);
    uint8x16_t valid = vdupq_n_u8(0xFF);
    const uint8x16_t high = convert(text.val[0], valid);
    const uint8x16_t low = convert(text.val[1], valid);
    vst1q_u8(out, vorrq_u8(vshlq_n_u8(high, 4), low));
    const uint8x8_t folded = vand_u8(vget_low_u8(valid), vget_high_u8(valid));
    return vget_lane_u64(vreinterpret_u64_u8(folded), 0) == ~std::uint64_t{0};
}

#endif

// Decodes the first pairs of the text at in into out when every pair is two hex digits and
// returns true; otherwise returns false and out holds junk.
inline bool decodeHexDigitPairs(const unsigned char* in, std::size_t pairs, std::uint8_t* out) {
    std::size_t i = 0;
#if VASTREL_HEX_SIMD
    for (; i + 16 <= pairs; i += 16) {
        if (!decodeSixteenHexPairs(in + 2 * i, out + i)) return false;
    }
#endif
    return decodeHexDigitPairsScalar(in + 2 * i, pairs - i, out + i);
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

// Room for decoded bytes: on the stack when they are as few as typical chip data, on the
// heap otherwise, uninitialised either way since the decoder writes every byte.
class ScratchBytes {
  public:
    explicit ScratchBytes(std::size_t size) : size_(size) {
        if (size > local_.size()) heap_ = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    }
    ScratchBytes(const ScratchBytes&) = delete;
    ScratchBytes& operator=(const ScratchBytes&) = delete;

    std::span<std::uint8_t> span() { return {heap_ ? heap_.get() : local_.data(), size_}; }

  private:
    std::array<std::uint8_t, 512> local_;
    std::unique_ptr<std::uint8_t[]> heap_;
    std::size_t size_;
};

}  // namespace vastrel::codec
