#include "vastrel/Enums/VastrelConstants.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace vastrel {
namespace {

// Typed here independently of the header: other components read these keys. One per
// family, plus every key whose value differs in style from its family.
TEST(VastrelConstantsTest, KeysHaveTheirPublishedValues) {
    const struct {
        std::string_view constant;
        std::string_view expected;
    } cases[] = {
        {TerminalIDKey, "TerminalIDKey"},
        {PasswordKey, "PasswordKey"},
        {CardNumberKey, "cardNumber"},
        {CardGoodThruKey, "cardExpire"},
        {CardholderNameKey, "cardName"},
        {CardKSNKey, "ksn"},
        {CardEmulatedKey, "emulatedTrackData"},
        {CardInfoKey, "credit_card_info"},
        {CardZipKey, "zip_key"},
        {TransactionAmountKey, "amount"},
        {PaymentTypeKey, "payment_type"},
        {TransactionSalesTaxKey, "sales_tax"},
        {TransactionEventKey, "transaction_event"},
        {TransactionCustomerReceiptKey, "customerReceipt"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.constant, c.expected);
}

TEST(VastrelConstantsTest, VersionSymbolsAreExact) {
    EXPECT_EQ(VastrelVersionNumber, 1.0);
    EXPECT_EQ(std::string_view(VastrelVersionString), "@(#)PROGRAM:Vastrel  PROJECT:Vastrel-1\n");
    EXPECT_EQ(sizeof(VastrelVersionString), 40u);  // 38 characters, line feed, terminator
}

}  // namespace
}  // namespace vastrel
