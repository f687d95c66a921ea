#include "vastrel/Codec/BerLength.hpp"

#include <gtest/gtest.h>

#include "CodecTestSupport.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::hex;

TEST(BerLengthTest, ByteRules) {
    for (const std::int32_t b : {0, 127, 129, 132})
        EXPECT_TRUE(BerLength::isValid(b)) << b;
    for (const std::int32_t b : {128, 133, 255, -1})
        EXPECT_FALSE(BerLength::isValid(b)) << b;
    EXPECT_TRUE(BerLength::isMultiByte(0x81));
    EXPECT_FALSE(BerLength::isMultiByte(0x100));
    EXPECT_EQ(BerLength::getLength(0x84), 4);
    EXPECT_EQ(BerLength::getTagLengthType(0x7F), 0);
    EXPECT_EQ(BerLength::getTagLengthType(0x80), 2);
    EXPECT_EQ(BerLength::getTagLengthType(0x81), 1);
    EXPECT_EQ(BerLength::getTagLengthType(0xFF), 1);
}

// Reads a field back (short form or 81/82 and the count bytes), the inverse of the encoder.
std::uint64_t readField(const Bytes& field) {
    if (field.at(0) < 0x80) return field[0];
    std::uint64_t n = 0;
    for (std::size_t i = 1; i < field.size(); ++i)
        n = n << 8 | field[i];
    EXPECT_EQ(field[0] & 0x7FU, field.size() - 1);
    return n;
}

TEST(BerLengthTest, EncodedLengthRoundTripsUpTo65535) {
    struct Case {
        std::uint64_t n;
        const char* field;
    };
    const Case cases[] = {{0, "00"},       {5, "05"},       {127, "7F"},
                          {128, "8180"},   {200, "81C8"},   {255, "81FF"},
                          {256, "820100"}, {300, "82012C"}, {65535, "82FFFF"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.n);
        EXPECT_EQ(BerLength::getEncodedLengthHexString(c.n), c.field);
        const Bytes field = BerLength::getEncodedLength(c.n);
        EXPECT_EQ(field.size(), BerLength::getNumberOfBytesToEncodedLength(c.n));
        EXPECT_EQ(readField(field), c.n);
    }
    for (std::uint64_t n = 0; n <= 0xFFFF; n += 251) {
        ASSERT_EQ(readField(BerLength::getEncodedLength(n)), n);
    }
}

TEST(BerLengthTest, LengthsAbove65535RaiseRangeError) {
    EXPECT_THROW(BerLength::getEncodedLengthHexString(65536), RangeError);
    EXPECT_THROW(BerLength::getEncodedLength(~0ULL), RangeError);
    Bytes data = {0xAA, 0xBB, 0xCC};
    EXPECT_THROW(BerLength::encodeLengthFor(70000, data, 0), RangeError);
    EXPECT_EQ(hex(data), "AABBCC");  // nothing written before the failure
}

TEST(BerLengthTest, EncodeLengthForWritesAtOffsetAndGrows) {
    Bytes data = {0xAA, 0xBB, 0xCC};
    BerLength::encodeLengthFor(5, data, 1);
    EXPECT_EQ(hex(data), "AA05CC");
    BerLength::encodeLengthFor(200, data, 2);
    EXPECT_EQ(hex(data), "AA0581C8");
    BerLength::encodeLengthFor(300, data, 0);
    EXPECT_EQ(hex(data), "82012CC8");
    Bytes empty;
    BerLength::encodeLengthFor(300, empty, 0);
    EXPECT_EQ(hex(empty), "82012C");

    // The three-byte form only fits at offset 0; an offset past the end fits nowhere.
    EXPECT_THROW(BerLength::encodeLengthFor(300, data, 1), RangeError);
    EXPECT_THROW(BerLength::encodeLengthFor(5, data, 5), RangeError);
    EXPECT_EQ(hex(data), "82012CC8");
}

}  // namespace
}  // namespace vastrel
