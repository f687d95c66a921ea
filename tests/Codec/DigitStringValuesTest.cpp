#include "vastrel/Codec/DigitStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>

namespace vastrel {
namespace {

// The enumeration tables are keyed by this text, so every value above sixteen shares "17".
TEST(DigitStringValuesTest, ValuesAboveSixteenShareTheKeySeventeen) {
    EXPECT_EQ(DigitStringValues::stringForDigit(0), "0");
    EXPECT_EQ(DigitStringValues::stringForDigit(16), "16");
    for (const std::uint64_t value : {std::uint64_t{17}, std::uint64_t{250}, ~std::uint64_t{0}})
        EXPECT_EQ(DigitStringValues::stringForDigit(value), "17") << value;
}

}  // namespace
}  // namespace vastrel
