#include "vastrel/Card/CreditCardHelper.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace vastrel {
namespace {

struct BrandCase {
    std::string_view cardNumber;
    CardType expected;
};

// Every range that can decide, with its first and last member and the numbers just
// outside, on six-digit numbers; the first matching range wins. 600..699 comes before the
// Discover sub-ranges (644..659, 6011x, 601186..601199), the Maestro 6xxx ranges (6304,
// 6759, 6761, 6763) and UnionPay (622126..622925, 6240..6269, 6282..6288), so those never
// decide, and the Mastercard 2-series has no range: callers rely on both.
constexpr BrandCase kBrandCases[] = {
    // Visa: 4.
    {"399999", CardType::DinersClub},
    {"400000", CardType::Visa},
    {"499999", CardType::Visa},
    {"4", CardType::Visa},
    // Amex: 34 and 37.
    {"339999", CardType::Unknown},
    {"340000", CardType::Amex},
    {"349999", CardType::Amex},
    {"370000", CardType::Amex},
    {"379999", CardType::Amex},
    {"34", CardType::Amex},
    // Mastercard: 51..55.
    {"509999", CardType::Unknown},
    {"510000", CardType::Master},
    {"559999", CardType::Master},
    {"560000", CardType::Unknown},
    {"222100", CardType::Unknown},
    // Diners Club: 300..305, 3095, 36, 38..39.
    {"299999", CardType::Unknown},
    {"300000", CardType::DinersClub},
    {"305999", CardType::DinersClub},
    {"306000", CardType::Unknown},
    {"309499", CardType::Unknown},
    {"309500", CardType::DinersClub},
    {"309600", CardType::Unknown},
    {"359999", CardType::Unknown},
    {"360000", CardType::DinersClub},
    {"369999", CardType::DinersClub},
    {"380000", CardType::DinersClub},
    {"309", CardType::Unknown},  // too short for 3095
    // JCB: 3528..3589.
    {"352799", CardType::Unknown},
    {"352800", CardType::Jcb},
    {"358999", CardType::Jcb},
    {"359000", CardType::Unknown},
    {"353", CardType::Unknown},  // no four-digit prefix formed
    // Maestro: 5018, 5020, 5038.
    {"501799", CardType::Unknown},
    {"501800", CardType::Maestro},
    {"501899", CardType::Maestro},
    {"501900", CardType::Unknown},
    {"502000", CardType::Maestro},
    {"502100", CardType::Unknown},
    {"503799", CardType::Unknown},
    {"503800", CardType::Maestro},
    {"503900", CardType::Unknown},
    // Discover: 600..699, which also takes the ranges listed after it.
    {"599999", CardType::Unknown},
    {"600000", CardType::Discover},
    {"699999", CardType::Discover},
    {"700000", CardType::Unknown},
    {"601186", CardType::Discover},
    {"630400", CardType::Discover},
    {"622126", CardType::Discover},
    {"60", CardType::Unknown},  // no three-digit prefix formed
    // Nothing matches.
    {"", CardType::Unknown},
    {"6", CardType::Unknown},
    {"979200", CardType::Unknown},
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
