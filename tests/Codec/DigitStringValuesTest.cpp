#include "vastrel/Codec/DigitStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace vastrel {
namespace {

TEST(DigitStringValuesTest, ValuesUpToSixteenAreTheirOwnDecimalText) {
    for (std::uint64_t value = 0; value <= 16; ++value) {
        EXPECT_EQ(DigitStringValues::stringForDigit(value), std::to_string(value));
    }
}

TEST(DigitStringValuesTest, EveryValueAboveSixteenSharesTheKeySeventeen) {
    const std::uint64_t values[] = {17,
                                    18,
                                    25,
                                    94,
                                    250,
                                    std::numeric_limits<std::uint64_t>::max(),
                                    static_cast<std::uint64_t>(std::int64_t{-1})};
    for (const std::uint64_t value : values) {
        SCOPED_TRACE(value);
        EXPECT_EQ(DigitStringValues::stringForDigit(value), "17");
    }
}

}  // namespace
}  // namespace vastrel
