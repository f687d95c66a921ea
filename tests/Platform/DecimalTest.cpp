#include "vastrel/Platform/Decimal.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vastrel {
namespace {

TEST(DecimalTest, DescriptionIsCanonicalText) {
    const struct {
        const char* input;
        const char* printed;
    } cases[] = {
        {"12.50", "12.5"},
        {"0", "0"},
        {"0.00", "0"},
        {"-0", "0"},
        {"100", "100"},
        {"100.00", "100"},
        {"-0.01", "-0.01"},
        {"0.001", "0.001"},
        {"-3", "-3"},
        {"007", "7"},
        {"1.10", "1.1"},
        {"123456.789", "123456.789"},
        {"9999999999999999999999999999999999", "9999999999999999999999999999999999"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Decimal(c.input).description(), c.printed) << c.input;
    }
}

TEST(DecimalTest, RejectsMalformedText) {
    const char* const malformed[] = {
        "",
        "-",
        ".5",
        "5.",
        "1e3",
        " 1",
        "1 ",
        "+1",
        "1.2.3",
        "0x10",
        "NaN",
        "Inf",
        "1,5",
        "--1",
        "12a",
        "12345678901234567890123456789012345",  // 35 digits cannot be held exactly
    };
    for (const char* text : malformed) {
        EXPECT_THROW(Decimal{text}, std::invalid_argument) << '"' << text << '"';
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
