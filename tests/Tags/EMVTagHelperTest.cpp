#include "vastrel/Tags/EMVTagHelper.hpp"

#include <gtest/gtest.h>

#include <string_view>

#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel {
namespace {

TEST(EMVTagHelperTest, AccessorsAnswerTheirFixedTags) {
    const std::pair<Tag (*)(), std::string_view> cases[] = {
        {&EMVTagHelper::applicationIdentifier, "4F"},
        {&EMVTagHelper::applicationLabel, "50"},
        {&EMVTagHelper::applicationPrefName, "9F12"},
        {&EMVTagHelper::bankIdentifier, "5F54"},
        {&EMVTagHelper::cryptogram, "9F27"},  // Cryptogram Information Data, not 9F26
        {&EMVTagHelper::emvChipIndicator, "9F6E"},
        {&EMVTagHelper::merchantIdentifier, "9F16"},
        {&EMVTagHelper::cardholderVerificationMethod, "9F34"},
        {&EMVTagHelper::terminalIdentifier, "9F1C"},
        {&EMVTagHelper::terminalVerificationResults, "95"},
        {&EMVTagHelper::transactionStatusInformation, "9B"},
        {&EMVTagHelper::cardHolderName, "5F20"},
    };
    for (const auto& [accessor, hex] : cases) {
        const Tag tag = accessor();
        EXPECT_EQ(TLVUtility::dataToHexString(tag.value()), hex);
        EXPECT_EQ(std::optional<Tag>(tag), EMVTagHelper::berTagFromInt(hex)) << hex;
    }
    EXPECT_EQ(Tag::tagName("9F6E"), "Unknown");  // the chip indicator has no listed name
}

TEST(EMVTagHelperTest, BerTagFromIntReadsTheTagAtTheFrontOfTheText) {
    const auto tag = EMVTagHelper::berTagFromInt("9F34031E0300");
    ASSERT_TRUE(tag.has_value());
    EXPECT_EQ(TLVUtility::dataToHexString(tag->value()), "9F34");
    EXPECT_EQ(EMVTagHelper::berTagFromInt(""), std::nullopt);
}

}  // namespace
}  // namespace vastrel
