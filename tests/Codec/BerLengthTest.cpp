#include "vastrel/Codec/BerLength.hpp"

#include <gtest/gtest.h>

#include "support/TestSupport.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::hex;

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
    const std::pair<std::uint64_t, const char*> cases[] = {
        {0, "00"},       {127, "7F"},     {128, "8180"},    {255, "81FF"},
        {256, "820100"}, {300, "82012C"}, {65535, "82FFFF"}};
    for (const auto& [n, field] : cases)
        EXPECT_EQ(BerLength::getEncodedLengthHexString(n), field);
    for (std::uint64_t n = 0; n <= 0xFFFF; n += 251) {
        ASSERT_EQ(readField(BerLength::getEncodedLength(n)), n);
    }
}

TEST(BerLengthTest, EncodeLengthForWritesInPlaceOrRaisesRangeErrorWritingNothing) {
    Bytes data = {0xAA, 0xBB, 0xCC};
    BerLength::encodeLengthFor(5, data, 1);
    EXPECT_EQ(hex(data), "AA05CC");
    BerLength::encodeLengthFor(200, data, 2);
    EXPECT_EQ(hex(data), "AA0581C8");
    BerLength::encodeLengthFor(300, data, 0);
    EXPECT_EQ(hex(data), "82012CC8");
    Bytes appended = {0xAA};
    BerLength::encodeLengthFor(5, appended, 1);  // at the very end: appended
    EXPECT_EQ(hex(appended), "AA05");

    // Lengths above 65535 fit nowhere, the three-byte form only at offset 0, and nothing
    // fits past the end.
    EXPECT_THROW(BerLength::encodeLengthFor(70000, data, 0), RangeError);
    EXPECT_THROW(BerLength::encodeLengthFor(300, data, 1), RangeError);
    EXPECT_THROW(BerLength::encodeLengthFor(5, data, 5), RangeError);  // one past the end
    EXPECT_EQ(hex(data), "82012CC8");
    EXPECT_THROW(BerLength::getEncodedLengthHexString(65536), RangeError);
    EXPECT_THROW(BerLength::getEncodedLength(~0ULL), RangeError);
}

}  // namespace
}  // namespace vastrel
