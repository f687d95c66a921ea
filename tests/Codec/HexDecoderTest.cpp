// The strict hex reader, and the hex codec's block steps (SSE2 or NEON, whichever this build
// has) through the public calls that run them: every character in every lane of a block,
// every byte value in every lane, at every misalignment.
#include "vastrel/Codec/HexDecoder.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel {
namespace {

using Kind = HexErrorKind;

TEST(HexDecoderTest, RefusesAllButPairsOfDigitsAndSaysWhere) {
    struct Case {
        std::string hex;
        std::optional<HexError> error;
        std::string bytes;
    };
    const Case cases[] = {
        {"", std::nullopt, ""},
        {"00fFa9", std::nullopt, "00FFA9"},
        {"ABC", HexError{Kind::OddLength, 3}, ""},
        {"4761739001010010F", HexError{Kind::OddLength, 17}, ""},
        {" A", HexError{Kind::NotHexDigit, 0}, ""},
        {"-1", HexError{Kind::NotHexDigit, 0}, ""},
        {"+F", HexError{Kind::NotHexDigit, 0}, ""},
        {"0x12", HexError{Kind::NotHexDigit, 1}, ""},
        {"12 34", HexError{Kind::NotHexDigit, 2}, ""},
        {"ABCG", HexError{Kind::NotHexDigit, 3}, ""},
        {"ABG", HexError{Kind::NotHexDigit, 2}, ""},  // the bad digit first, then the length
        {std::string("12\0"
                     "4",
                     4),
         HexError{Kind::NotHexDigit, 2}, ""},
        // In the vector block (32 digits) and in the tail after it.
        {std::string(32, 'a') + "00", std::nullopt, std::string(32, 'A') + "00"},
        {std::string(31, 'a') + "g", HexError{Kind::NotHexDigit, 31}, ""},
        {std::string(32, 'a') + "0g", HexError{Kind::NotHexDigit, 33}, ""},
    };
    for (const auto& c : cases) {
        Bytes bytes{1, 2};
        EXPECT_EQ(HexDecoder::decode(c.hex, bytes), c.error) << c.hex;
        EXPECT_EQ(HexDecoder::check(c.hex), c.error) << c.hex;
        EXPECT_EQ(TLVUtility::dataToHexString(bytes), c.bytes) << c.hex;
    }
    EXPECT_EQ(describe(Kind::NotHexDigit), "not a hex digit");
    EXPECT_EQ(describe(Kind::OddLength), "odd number of hex digits");
}

TEST(HexDecoderTest, CleansPastedTextAndPlacesFaultsInIt) {
    struct Case {
        std::string_view text;
        std::string_view separators;
        std::string digits;
        std::optional<HexError> error;
    };
    const Case cases[] = {
        {" 0x9f 02\t06\r\n00 0a ", "", "9F0206000A", std::nullopt},
        {"0X12", "", "12", std::nullopt},
        {"9F:02", ":", "9F02", std::nullopt},
        {"9F:02", "", "9F", HexError{Kind::NotHexDigit, 2}},
        {"0x0x12", "", "0", HexError{Kind::NotHexDigit, 3}},  // one prefix only
        {"12 0x34", "", "120", HexError{Kind::NotHexDigit, 4}},
        {"9F0", "", "9F0", HexError{Kind::OddLength, 3}},
        {"", "", "", std::nullopt},
    };
    for (const auto& c : cases) {
        const HexDecoder::Cleaned cleaned = HexDecoder::clean(c.text, c.separators);
        EXPECT_EQ(cleaned.error, c.error) << c.text;
        EXPECT_EQ(cleaned.digits, c.digits) << c.text;
    }
}

TEST(HexDecoderTest, ShortOutputTakesTheFirstBytes) {
    std::array<std::uint8_t, 2> out{};
    EXPECT_EQ(HexDecoder::decode("A1B2C3", out), std::nullopt);
    EXPECT_EQ(out, (std::array<std::uint8_t, 2>{0xA1, 0xB2}));
    EXPECT_EQ(HexDecoder::decode("A1B2CG", out), (HexError{Kind::NotHexDigit, 5}));
}

int referenceNibble(int c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// 32 hex digits of both cases, so every letter and digit appears in some lane.
constexpr std::string_view kValidText = "0123456789abcdefABCDEF0f9A8b7C6d";

TEST(HexDecoderTest, EveryCharacterInEveryLaneOfABlock) {
    for (std::size_t lane = 0; lane < kValidText.size(); ++lane) {
        for (int c = 0; c < 256; ++c) {
            std::string text(kValidText);
            text[lane] = static_cast<char>(c);
            Bytes bytes;
            const auto error = HexDecoder::decode(text, bytes);
            if (referenceNibble(c) < 0) {
                ASSERT_EQ(error, (HexError{Kind::NotHexDigit, lane}))
                    << "lane " << lane << " " << c;
                continue;
            }
            ASSERT_EQ(error, std::nullopt) << "lane " << lane << " char " << c;
            for (std::size_t i = 0; i < bytes.size(); ++i) {
                ASSERT_EQ(bytes[i],
                          referenceNibble(text[2 * i]) << 4 | referenceNibble(text[2 * i + 1]))
                    << "lane " << lane << " char " << c;
            }
        }
    }
}

std::string referenceHex(const Bytes& bytes, const char* format) {
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        char pair[3];
        std::snprintf(pair, sizeof pair, format, byte);
        hex += pair;
    }
    return hex;
}

// Upper case through dataToHexString, lower case through stringToHex (which stops at a NUL).
TEST(HexDecoderTest, EveryByteInEveryLaneEncodesAndReadsBack) {
    for (std::size_t lane = 0; lane < 16; ++lane) {
        for (int b = 1; b < 256; ++b) {
            Bytes bytes(16);
            for (std::size_t i = 0; i < bytes.size(); ++i)
                bytes[i] = static_cast<std::uint8_t>(i * 17 + 3);
            bytes[lane] = static_cast<std::uint8_t>(b);
            const std::string hex = TLVUtility::dataToHexString(bytes);
            ASSERT_EQ(hex, referenceHex(bytes, "%02X")) << "lane " << lane;
            ASSERT_EQ(TLVUtility::stringToHex(std::string(bytes.begin(), bytes.end())),
                      referenceHex(bytes, "%02x"))
                << "lane " << lane;
            Bytes back;
            ASSERT_EQ(HexDecoder::decode(hex, back), std::nullopt);
            ASSERT_EQ(back, bytes);
        }
    }
}

// Blocks read from and written to every misalignment within a buffer.
TEST(HexDecoderTest, UnalignedBlocksRoundTrip) {
    for (std::size_t offset = 0; offset < 16; ++offset) {
        Bytes bytes(offset + 40);
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(0xF0 - 7 * i - offset);
        const std::span<const std::uint8_t> part = std::span(bytes).subspan(offset);
        const std::string hex = std::string(offset, '0') + TLVUtility::dataToHexString(part);
        Bytes back(part.size());
        ASSERT_EQ(HexDecoder::decode(std::string_view(hex).substr(offset), back), std::nullopt);
        ASSERT_TRUE(std::equal(part.begin(), part.end(), back.begin())) << offset;
    }
}

}  // namespace
}  // namespace vastrel
