#pragma once

// Bytes to hex text: a table of digit pairs, and SIMD for blocks of 16 bytes. No formatting
// call per byte.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

#include "HexSimd.hpp"

namespace vastrel::codec {

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

// Writes the two hex digits of each of the count bytes at in to out.
template <bool Upper>
inline void writeHexScalar(const std::uint8_t* in, std::size_t count, char* out) {
    const char* pairs = kHexPairs<Upper>.data();
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(out + 2 * i, pairs + 2 * in[i], 2);
}

#if defined(__SSE2__)

// Each nibble plus '0', plus the gap up to 'A' (or 'a') for nibbles above 9, then high and
// low digits interleaved.
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

#elif defined(__ARM_NEON)

template <bool Upper>
inline void writeSixteenHex(const std::uint8_t* in, char* out) {
    const uint8x16_t bytes = vld1q_u8(in);
    const auto digits = [](uint8x16_t nibbles) {
        const uint8x16_t letters = vcgtq_u8(nibbles, vdupq_n_u8(9));
        return vaddq_u8(vaddq_u8(nibbles, vdupq_n_u8('0')),
                        vandq_u8(letters, vdupq_n_u8(Upper ? 'A' - '0' - 10 : 'a' - '0' - 10)));
    };
    uint8x16x2_t pairs;
    pairs.val[0] = digits(vshrq_n_u8(bytes, 4));
    pairs.val[1] = digits(vandq_u8(bytes, vdupq_n_u8(0x0F)));
    vst2q_u8(reinterpret_cast<std::uint8_t*>(out), pairs);
}

#endif

// Writes two hex digits per byte of data at out (2 * data.size() chars).
template <bool Upper = true>
inline void writeHex(std::span<const std::uint8_t> data, char* out) {
    const std::uint8_t* in = data.data();
    std::size_t count = data.size();
#if VASTREL_HEX_SIMD
    for (; count >= 16; in += 16, out += 32, count -= 16)
        writeSixteenHex<Upper>(in, out);
#endif
    writeHexScalar<Upper>(in, count, out);
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
