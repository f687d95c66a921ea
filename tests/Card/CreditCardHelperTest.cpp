#include "vastrel/Card/CreditCardHelper.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace vastrel {
namespace {

struct BrandCase {
    std::string_view cardNumber;
    CardType expected;
};

// Grouped by the rule that decides; the first matching rule wins.
constexpr BrandCase kBrandCases[] = {
    // Visa 4, Amex 34/37, Master 51..55; one or two digits are enough.
    {"4111111111111111", CardType::Visa},
    {"411111XXXXXX1111", CardType::Visa},
    {"4", CardType::Visa},
    {"371449XXXXX8431", CardType::Amex},
    {"34", CardType::Amex},
    {"555555XXXXXX4444", CardType::Master},
    {"510000", CardType::Master},
    {"560000", CardType::Unknown},
    {"222100XXXXXX0000", CardType::Unknown},  // Mastercard 2-series has no rule
    // Diners Club 36, 38, 39, 3095, 300..305.
    {"36", CardType::DinersClub},
    {"399999", CardType::DinersClub},
    {"3095", CardType::DinersClub},
    {"309", CardType::Unknown},  // too short for 3095, outside 300..305
    {"305999XXXXXX", CardType::DinersClub},
    {"306000", CardType::Unknown},
    // Discover: 600..699 comes first, so every 6 with three or more digits.
    {"601186XXXXXX", CardType::Discover},
    {"650000XXXXXX", CardType::Discover},
    {"600", CardType::Discover},
    {"60", CardType::Unknown},  // no three-digit prefix formed
    // JCB 3528..3589.
    {"352800XXXXXX", CardType::Jcb},
    {"358999", CardType::Jcb},
    {"359000", CardType::Unknown},
    {"353", CardType::Unknown},  // no four-digit prefix formed
    // Maestro: only 5018, 5020, 5038 ever decide; 6304 and 6759..6763 lie under Discover.
    {"501800XXXXXX", CardType::Maestro},
    {"502000", CardType::Maestro},
    {"503800", CardType::Maestro},
    {"501900", CardType::Unknown},
    {"630400XXXXXX", CardType::Discover},
    {"675900XXXXXX", CardType::Discover},
    // UnionPay is never returned: all its ranges lie under Discover.
    {"620000XXXXXX", CardType::Discover},
    {"622126", CardType::Discover},
    {"628800", CardType::Discover},
    // Nothing matches.
    {"", CardType::Unknown},
    {"6", CardType::Unknown},
    {"979200XXXXXX", CardType::Unknown},
};

TEST(CreditCardHelperTest, BrandFollowsTheFirstMatchingRule) {
    const CreditCardHelper helper;
    for (const BrandCase& c : kBrandCases) {
        EXPECT_EQ(helper.getCardTypeFromRedactedPan(c.cardNumber), c.expected)
            << '"' << c.cardNumber << '"';
    }
    // Anything after the sixth character is never read.
    EXPECT_EQ(helper.getCardTypeFromRedactedPan({"371449\0 -", 9}), CardType::Amex);
}

TEST(CreditCardHelperDeathTest, NonDigitWithinTheFirstSixStopsTheProgram) {
    const CreditCardHelper helper;
    // Mask first, third, sixth; blank; sign; letter in a short number; non-ASCII.
    for (const std::string_view cardNumber :
         {"X4111111", "36XXXX", "41111X", " 4111", "+4111", "4a", "\xC3\xA9"}) {
        EXPECT_FALSE(CreditCardHelper::hasDigitPrefix(cardNumber)) << cardNumber;
        EXPECT_DEATH(static_cast<void>(helper.getCardTypeFromRedactedPan(cardNumber)),
                     "first six characters must be digits")
            << cardNumber;
    }
    for (const std::string_view cardNumber : {"", "4", "411111XXXXXX1111", "000000"}) {
        EXPECT_TRUE(CreditCardHelper::hasDigitPrefix(cardNumber)) << cardNumber;
    }
}

}  // namespace
}  // namespace vastrel
