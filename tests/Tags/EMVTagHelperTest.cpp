#include "vastrel/Tags/EMVTagHelper.hpp"

#include <gtest/gtest.h>

#include <string_view>

#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel {
namespace {

TEST(EMVTagHelperTest, AccessorsAnswerTheirFixedTags) {
    struct Case {
        Tag (*accessor)();
        std::string_view hex;
        std::string_view name;
    };
    const Case cases[] = {
        {&EMVTagHelper::applicationIdentifier, "4F", "Application Identifier (AID) from card"},
        {&EMVTagHelper::applicationLabel, "50", "Application Label"},
        {&EMVTagHelper::applicationPrefName, "9F12", "Application Preferred Name"},
        {&EMVTagHelper::bankIdentifier, "5F54", "Bank Identifier Code (BIC)"},
        {&EMVTagHelper::cryptogram, "9F27", "Cryptogram Information Data"},  // not 9F26
        {&EMVTagHelper::emvChipIndicator, "9F6E", "Unknown"},                // has no listed name
        {&EMVTagHelper::merchantIdentifier, "9F16", "Merchant Identifier"},
        {&EMVTagHelper::cardholderVerificationMethod, "9F34",
         "Cardholder Verification Method (CVM) Results"},
        {&EMVTagHelper::terminalIdentifier, "9F1C", "Terminal Identification"},
        {&EMVTagHelper::terminalVerificationResults, "95", "Terminal Verification Results"},
        {&EMVTagHelper::transactionStatusInformation, "9B", "Transaction Status Information"},
        {&EMVTagHelper::cardHolderName, "5F20", "Cardholder Name"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.hex);
        const Tag tag = c.accessor();
        const std::string hex = TLVUtility::dataToHexString(tag.value());
        EXPECT_EQ(hex, c.hex);
        EXPECT_EQ(Tag::tagName(hex), c.name);
        EXPECT_EQ(std::optional<Tag>(tag), TLVUtility::tagFromTLVString(c.hex));
    }
}

TEST(EMVTagHelperTest, BerTagFromIntReadsTheTagAtTheFrontOfTheText) {
    const auto tag = EMVTagHelper::berTagFromInt("9F34031E0300");
    ASSERT_TRUE(tag.has_value());
    EXPECT_EQ(TLVUtility::dataToHexString(tag->value()), "9F34");
    EXPECT_EQ(EMVTagHelper::berTagFromInt(""), std::nullopt);
}

}  // namespace
}  // namespace vastrel
