#include "vastrel/Codec/DigitStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace vastrel {
namespace {

TEST(DigitStringValuesTest, ValuesAboveSixteenShareTheKeySeventeen) {
    for (std::uint64_t value = 0; value <= 16; ++value) {
        EXPECT_EQ(DigitStringValues::stringForDigit(value), std::to_string(value));
    }
    for (const std::uint64_t value : {std::uint64_t{17}, std::uint64_t{250}, ~std::uint64_t{0}}) {
        EXPECT_EQ(DigitStringValues::stringForDigit(value), "17") << value;
    }
}

}  // namespace
}  // namespace vastrel
