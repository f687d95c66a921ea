// `vastrel brand`: card brand detection, and refusal of numbers the detector cannot take.
#include <gtest/gtest.h>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(BrandCommandTest, NamesTheBrandOfMaskedAndGroupedNumbers) {
    const ToolCase cases[] = {
        {"masked Visa", {"brand", "411111XXXXXX1111"}, "", 0, "VISA (CardType 0)\n", ""},
        {"grouped with blanks", {"brand", "4761 7390 0101 0010"}, "", 0, "VISA (CardType 0)", ""},
        {"Amex", {"brand", "371449XXXXX8431"}, "", 0, "AMEX (CardType 2)", ""},
        {"Mastercard 2-series has no rule",
         {"brand", "222100XXXXXX0000"},
         "",
         0,
         "UNKNOWN (CardType 8)",
         ""},
        {"62 is read as Discover", {"brand", "620000XXXXXX"}, "", 0, "DISCOVER (CardType 3)", ""},
        {"short prefix", {"brand", "36"}, "", 0, "DINERS CLUB (CardType 5)", ""},
        {"json",
         {"brand", "--json", "352800XXXXXX"},
         "",
         0,
         "\"cardType\": {\n    \"value\": 4,\n    \"name\": \"JCB\"",
         ""},
    };
    for (const auto& c : cases)
        expectCase(c);
}

// The detector stops the program on such numbers; the tool must refuse them first.
TEST(BrandCommandTest, RefusesNumbersWithoutSixLeadingDigitsInsteadOfAborting) {
    const ToolCase cases[] = {
        {"mask inside the first six",
         {"brand", "36XXXX"},
         "",
         1,
         "",
         "must start with six digits (mask characters may follow); this one starts with "
         "'36XXXX'"},
        {"mask first", {"brand", "X4111111"}, "", 1, "", "starts with 'X41111'"},
        {"sign", {"brand", "--", "-4111111"}, "", 1, "", "must start with six digits"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(BrandCommandTest, EchoesOnlyTheRefusedPrefixOfACardNumber) {
    const RunResult result = runTool({"brand", "41111A1111111111"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("'41111A'"), std::string::npos) << result.err;
    EXPECT_EQ(result.err.find("1111111111"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace vastrel::tool::testing
