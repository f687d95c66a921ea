#include "vastrel/Card/CreditCardHelper.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace vastrel {
namespace {

struct BrandCase {
    std::string_view cardNumber;
    CardType expected;
    std::string_view reason;
};

// Grouped by the rule that decides; the first matching rule wins.
constexpr BrandCase kBrandCases[] = {
    // Visa: first digit 4.
    {"4111111111111111", CardType::Visa, "full number"},
    {"411111XXXXXX1111", CardType::Visa, "masked from the seventh character"},
    {"4", CardType::Visa, "one digit is enough"},
    // Amex: 34, 37.
    {"371449XXXXX8431", CardType::Amex, "37"},
    {"34", CardType::Amex, "two digits are enough"},
    {"35", CardType::Unknown, "between 34 and 37, and too short for JCB"},
    // Master: 51..55 only.
    {"555555XXXXXX4444", CardType::Master, "55"},
    {"510000", CardType::Master, "lower bound"},
    {"500000", CardType::Unknown, "below 51"},
    {"560000", CardType::Unknown, "above 55"},
    {"222100XXXXXX0000", CardType::Unknown, "2-series has no rule"},
    {"272099", CardType::Unknown, "2-series upper end"},
    // Diners Club: 36, 38, 39, 3095, 300..305.
    {"36", CardType::DinersClub, "36"},
    {"38", CardType::DinersClub, "38"},
    {"399999", CardType::DinersClub, "39"},
    {"3095", CardType::DinersClub, "3095 needs four digits"},
    {"309", CardType::Unknown, "309 alone is no rule"},
    {"300", CardType::DinersClub, "300..305 lower bound"},
    {"305999XXXXXX", CardType::DinersClub, "300..305 upper bound"},
    {"306000", CardType::Unknown, "past 305"},
    // Discover: 600..699 first, so every 6 with three or more digits.
    {"601186XXXXXX", CardType::Discover, "601186..601199"},
    {"650000XXXXXX", CardType::Discover, "644..659"},
    {"600", CardType::Discover, "three digits suffice"},
    {"699999", CardType::Discover, "top of 600..699"},
    {"6", CardType::Unknown, "one digit forms no three-digit prefix"},
    {"60", CardType::Unknown, "two digits form no three-digit prefix"},
    // JCB: 3528..3589.
    {"352800XXXXXX", CardType::Jcb, "lower bound"},
    {"358999", CardType::Jcb, "upper bound"},
    {"352799", CardType::Unknown, "below 3528"},
    {"359000", CardType::Unknown, "above 3589"},
    {"353", CardType::Unknown, "three digits form no four-digit prefix"},
    // Maestro: only 5018, 5020, 5038 ever decide.
    {"501800XXXXXX", CardType::Maestro, "5018"},
    {"502000", CardType::Maestro, "5020"},
    {"503800", CardType::Maestro, "5038"},
    {"501900", CardType::Unknown, "between the listed numbers"},
    {"630400XXXXXX", CardType::Discover, "Maestro 6304 is shadowed by 600..699"},
    {"675900XXXXXX", CardType::Discover, "Maestro 6759 is shadowed"},
    {"6763", CardType::Discover, "Maestro 6763 is shadowed"},
    // UnionPay: never returned, every range lies under 600..699.
    {"620000XXXXXX", CardType::Discover, "62 is Discover"},
    {"622126", CardType::Discover, "622126..622925 shadowed"},
    {"6240", CardType::Discover, "6240..6269 shadowed"},
    {"628800", CardType::Discover, "6282..6288 shadowed"},
    // Nothing matches.
    {"", CardType::Unknown, "empty"},
    {"0", CardType::Unknown, "zero"},
    {"000000", CardType::Unknown, "all zeros"},
    {"979200XXXXXX", CardType::Unknown, "9 is no brand here"},
};

TEST(CreditCardHelperTest, BrandFollowsTheFirstMatchingRule) {
    const CreditCardHelper helper;
    for (const BrandCase& c : kBrandCases) {
        SCOPED_TRACE(::testing::Message() << '"' << c.cardNumber << "\": " << c.reason);
        EXPECT_EQ(helper.getCardTypeFromRedactedPan(c.cardNumber), c.expected);
    }
}

TEST(CreditCardHelperTest, OnlyTheFirstSixCharactersAreRead) {
    const CreditCardHelper helper;
    EXPECT_EQ(helper.getCardTypeFromRedactedPan("411111 -+*abc"), CardType::Visa);
    EXPECT_EQ(helper.getCardTypeFromRedactedPan(std::string_view("371449\0X", 8)), CardType::Amex);
}

TEST(CreditCardHelperDeathTest, NonDigitWithinTheFirstSixStopsTheProgram) {
    const CreditCardHelper helper;
    const std::string_view stopping[] = {
        "X4111111",  // mask character first
        "36XXXX",    // third character
        "41111X",    // sixth character
        " 4111",     // leading blank
        "+4111",     // sign
        "-4",        // sign of a short number
        "4a",        // letter in a short number
        "\xC3\xA9",  // non-ASCII
    };
    for (const std::string_view cardNumber : stopping) {
        SCOPED_TRACE(cardNumber);
        EXPECT_DEATH(static_cast<void>(helper.getCardTypeFromRedactedPan(cardNumber)),
                     "first six characters must be digits");
    }
}

}  // namespace
}  // namespace vastrel
