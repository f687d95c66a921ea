// The field decoders: the books' worked examples, every TVR bit by position, and values of
// every length.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/HexBytes.hpp"
#include "support/Vectors.hpp"
#include "vastrel/Explain/FieldDecoders.hpp"

namespace vastrel {
namespace {

using testing::bytesOf;

PaymentScheme schemeNamed(const std::string& name) {
    if (name == "Visa") return PaymentScheme::Visa;
    if (name == "Mastercard") return PaymentScheme::Mastercard;
    return PaymentScheme::Any;
}

TEST(FieldDecodersTest, EveryVectorDecodesAsWritten) {
    const auto vectors = testing::readVectors("tests/Explain/decoder-vectors.txt");
    ASSERT_GT(vectors.size(), 100u);
    for (const auto& vector : vectors) {
        SCOPED_TRACE(vector.where() + ": " + vector.get("reason"));
        DecodeContext context;
        context.scheme = schemeNamed(vector.get("scheme", ""));
        if (vector.has("currency")) {
            context.currency = static_cast<std::uint16_t>(std::stoi(vector.get("currency")));
        }
        if (vector.has("exponent")) context.currencyExponent = std::stoi(vector.get("exponent"));
        context.showSensitive = vector.get("show", "") == "yes";
        const auto tag = static_cast<std::uint32_t>(std::stoul(vector.get("tag"), nullptr, 16));
        const auto value = bytesOf(vector.get("value"));
        EXPECT_EQ(FieldDecoders::decode(tag, value, context), vector.all("meaning"));
        EXPECT_EQ(FieldDecoders::has(tag, context.scheme), vector.has("meaning"));
    }
}

// Terminal verification results as EMV 4.4 assigns them, one bit at a time.
TEST(FieldDecodersTest, EachTvrBitByPosition) {
    const char* const kBits[5][8] = {
        {"Offline data authentication was not performed", "SDA failed", "ICC data missing",
         "Card appears on terminal exception file", "DDA failed", "CDA failed", "SDA selected",
         "XDA selected"},
        {"ICC and terminal have different application versions", "Expired application",
         "Application not yet effective", "Requested service not allowed for card product",
         "New card", "byte 2 bit 3: RFU bit set", "Biometric performed and successful",
         "Biometric template format not supported"},
        {"Cardholder verification was not successful", "Unrecognised CVM", "PIN Try Limit exceeded",
         "PIN entry required and PIN pad not present or not working",
         "PIN entry required, PIN pad present, but PIN was not entered", "Online PIN entered",
         "Online biometric captured", "Biometric subtype entry limit exceeded"},
        {"Transaction exceeds floor limit", "Lower consecutive offline limit exceeded",
         "Upper consecutive offline limit exceeded",
         "Transaction selected randomly for online processing",
         "Merchant forced transaction online", "byte 4 bit 3: RFU bit set",
         "byte 4 bit 2: RFU bit set", "byte 4 bit 1: RFU bit set"},
        {"Default TDOL used", "Issuer authentication failed",
         "Script processing failed before final GENERATE AC",
         "Script processing failed after final GENERATE AC",
         "Relay resistance threshold exceeded (contactless kernels)",
         "Relay resistance time limits exceeded (contactless kernels)",
         // Bits 2 and 1 are one field: 10 and 01 alone.
         "Relay resistance protocol performed (contactless kernels)",
         "Relay resistance protocol not performed (contactless kernels)"},
    };
    for (std::size_t byte = 0; byte < 5; ++byte) {
        for (int bit = 8; bit >= 1; --bit) {
            std::vector<std::uint8_t> tvr(5, 0);
            tvr[byte] = static_cast<std::uint8_t>(1u << (bit - 1));
            SCOPED_TRACE("byte " + std::to_string(byte + 1) + " bit " + std::to_string(bit));
            EXPECT_EQ(FieldDecoders::decode(0x95, tvr), Findings{kBits[byte][8 - bit]});
        }
    }
}

// Every bit map gives one finding per set bit, and different bits different findings. The
// TVR layouts read their last two bits as one field: all bits set give one finding less.
TEST(FieldDecodersTest, BitMapsNameEachBitOnce) {
    struct BitMap {
        std::uint32_t tag;
        std::size_t size;
        std::size_t fields = 0;
    };
    const BitMap kBitMaps[] = {
        {0x95, 5, 1}, {0x9B, 2},   {0x82, 2},   {0x9F07, 2},    {0x9F33, 3},
        {0x9F40, 5},  {0x9F66, 4}, {0x9F6C, 2}, {0x9F0E, 5, 1}, {0xDF8122, 5, 1},
    };
    for (const auto& [tag, size, fields] : kBitMaps) {
        SCOPED_TRACE(tag);
        std::set<std::string> seen;
        for (std::size_t bit = 0; bit < 8 * size; ++bit) {
            std::vector<std::uint8_t> value(size, 0);
            value[bit / 8] = static_cast<std::uint8_t>(0x80 >> (bit % 8));
            const Findings findings = FieldDecoders::decode(tag, value);
            ASSERT_EQ(findings.size(), 1u) << bit;
            EXPECT_TRUE(seen.insert(findings[0]).second) << findings[0];
        }
        const std::vector<std::uint8_t> allSet(size, 0xFF);
        EXPECT_EQ(FieldDecoders::decode(tag, allSet).size(), 8 * size - fields);
    }
}

TEST(FieldDecodersTest, AnyLengthGivesFindingsWithoutFailing) {
    const std::uint32_t kTags[] = {0x4F,   0x50,   0x57,   0x5A,   0x5F24, 0x5F28, 0x5F2A, 0x5F2D,
                                   0x5F30, 0x81,   0x82,   0x8E,   0x95,   0x9A,   0x9C,   0x9F02,
                                   0x9F10, 0x9F21, 0x9F27, 0x9F34, 0x9F35, 0x9F39, 0x9F66};
    for (const auto tag : kTags) {
        for (std::size_t size = 0; size <= 40; ++size) {
            for (const std::uint8_t fill : {0x00, 0x99, 0xFF}) {
                const std::vector<std::uint8_t> value(size, fill);
                for (const auto scheme : {PaymentScheme::Any, PaymentScheme::Mastercard}) {
                    DecodeContext context;
                    context.scheme = scheme;
                    context.currency = 840;
                    if (!FieldDecoders::has(tag, scheme)) continue;  // 9F66 in Kernel 2
                    EXPECT_FALSE(FieldDecoders::decode(tag, value, context).empty())
                        << tag << " " << size;
                }
            }
        }
    }
}

TEST(FieldDecodersTest, TagsWithoutDecoderGiveNothing) {
    const std::vector<std::uint8_t> value = {0x12, 0x34};
    for (const std::uint32_t tag : {0x9F36u, 0x9F26u, 0x70u, 0xDF01u, 0u}) {
        EXPECT_FALSE(FieldDecoders::has(tag)) << tag;
        EXPECT_TRUE(FieldDecoders::decode(tag, value).empty()) << tag;
    }
    EXPECT_FALSE(FieldDecoders::has(0x9F6C, PaymentScheme::Maestro));
    EXPECT_TRUE(FieldDecoders::has(0x9F6C, PaymentScheme::Visa));
}

}  // namespace
}  // namespace vastrel
