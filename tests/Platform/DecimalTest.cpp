#include "vastrel/Platform/Decimal.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/Vectors.hpp"

namespace vastrel {
namespace {

TEST(DecimalTest, ReadsAndPrintsCanonicalTextOrRefusesIt) {
    for (const auto& vector : testing::readVectors("tests/Platform/decimal-vectors.txt")) {
        const std::string text = vector.get("text");
        SCOPED_TRACE(vector.where() + ": \"" + text + "\"");
        if (vector.has("refused")) {
            EXPECT_THROW(Decimal{text}, std::invalid_argument);
        } else {
            EXPECT_EQ(Decimal(text).description(), vector.get("printed"));
        }
    }
}

TEST(DecimalTest, ArithmeticIsExactInBaseTen) {
    EXPECT_EQ((Decimal("0.1") + Decimal("0.2")).description(), "0.3");
    EXPECT_EQ((Decimal("10.00") - Decimal("0.01")).description(), "9.99");
    EXPECT_EQ((Decimal("19.99") * Decimal("3")).description(), "59.97");
    EXPECT_EQ((Decimal("1") - Decimal("1.5")).description(), "-0.5");
}

TEST(DecimalTest, ComparesByValueNotByScale) {
    EXPECT_EQ(Decimal("12.50"), Decimal("12.5"));
    EXPECT_EQ(Decimal(), Decimal::zero());
    EXPECT_EQ(Decimal("0.00"), Decimal::zero());
    EXPECT_LT(Decimal("-1"), Decimal("0.001"));
    EXPECT_GT(Decimal("100"), Decimal("99.99"));
    EXPECT_NE(Decimal("1"), Decimal("1.0001"));
}

}  // namespace
}  // namespace vastrel
