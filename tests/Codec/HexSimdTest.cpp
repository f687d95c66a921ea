// The vector hex steps (SSE2 or NEON, whichever this build has) against the scalar
// reference, on every byte value in every lane.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "Codec/HexDecode.hpp"
#include "Codec/HexEncode.hpp"

namespace vastrel::codec {
namespace {

#if VASTREL_HEX_SIMD

// 32 hex digits of both cases, so every letter and digit appears in some lane.
constexpr std::string_view kValidText = "0123456789abcdefABCDEF0f9A8b7C6d";

TEST(HexSimdTest, DecodeMatchesScalarForEveryCharacterInEveryLane) {
    for (int lane = 0; lane < 32; ++lane) {
        for (int c = 0; c < 256; ++c) {
            std::array<unsigned char, 32> text{};
            std::copy(kValidText.begin(), kValidText.end(), text.begin());
            text[lane] = static_cast<unsigned char>(c);
            std::array<std::uint8_t, 16> simd{};
            std::array<std::uint8_t, 16> scalar{};
            const bool simdValid = decodeSixteenHexPairs(text.data(), simd.data());
            const bool scalarValid = decodeHexDigitPairsScalar(text.data(), 16, scalar.data());
            ASSERT_EQ(simdValid, scalarValid) << kHexSimdName << " lane " << lane << " char " << c;
            if (scalarValid) {
                ASSERT_EQ(simd, scalar) << kHexSimdName << " lane " << lane;
            }
        }
    }
}

template <bool Upper>
void expectEncodeMatchesScalar() {
    for (int lane = 0; lane < 16; ++lane) {
        for (int b = 0; b < 256; ++b) {
            std::array<std::uint8_t, 16> bytes{};
            for (int i = 0; i < 16; ++i)
                bytes[i] = static_cast<std::uint8_t>(i * 17 + 3);
            bytes[lane] = static_cast<std::uint8_t>(b);
            std::array<char, 32> simd{};
            std::array<char, 32> scalar{};
            writeSixteenHex<Upper>(bytes.data(), simd.data());
            writeHexScalar<Upper>(bytes.data(), 16, scalar.data());
            ASSERT_EQ(simd, scalar) << kHexSimdName << " lane " << lane << " byte " << b;
        }
    }
}

TEST(HexSimdTest, EncodeMatchesScalarForEveryByteInEveryLane) {
    expectEncodeMatchesScalar<true>();
    expectEncodeMatchesScalar<false>();
}

// Blocks read from and written to every misalignment within a buffer.
TEST(HexSimdTest, UnalignedBlocksRoundTrip) {
    alignas(16) std::array<std::uint8_t, 16 + 15> bytes{};
    alignas(16) std::array<char, 32 + 15> text{};
    alignas(16) std::array<std::uint8_t, 16 + 15> back{};
    for (std::size_t offset = 0; offset < 16; ++offset) {
        for (std::size_t i = 0; i < 16; ++i)
            bytes[offset + i] = static_cast<std::uint8_t>(0xF0 - 7 * i - offset);
        writeSixteenHex<true>(bytes.data() + offset, text.data() + offset);
        ASSERT_TRUE(decodeSixteenHexPairs(
            reinterpret_cast<const unsigned char*>(text.data()) + offset, back.data() + offset));
        ASSERT_TRUE(
            std::equal(bytes.begin() + offset, bytes.begin() + offset + 16, back.begin() + offset));
    }
}

#else

TEST(HexSimdTest, ScalarOnlyBuild) { GTEST_SKIP() << "no vector hex path in this build"; }

#endif

}  // namespace
}  // namespace vastrel::codec
