#include "vastrel/Card/CreditCardHelper.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/Vectors.hpp"
#include "vastrel/Enums/EnumRows.hpp"

namespace vastrel {
namespace {

TEST(CreditCardHelperTest, BrandFollowsTheFirstMatchingRange) {
    const CreditCardHelper helper;
    for (const auto& vector : testing::readVectors("tests/Card/brand-vectors.txt")) {
        const std::string number = vector.get("number");
        const CardType brand = helper.getCardTypeFromRedactedPan(number);
        EXPECT_EQ(EnumRows::textFor(EnumType::CardType, static_cast<std::uint64_t>(brand)),
                  vector.get("brand"))
            << vector.where() << ": " << number;
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
