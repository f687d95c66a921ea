#include "vastrel/Enums/VastrelConstants.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace vastrel {
namespace {

struct KeyCase {
    std::string_view constant;
    std::string_view expected;
    const char* name;
};

// Values are typed here independently of the header: other components read these keys.
constexpr KeyCase kKeys[] = {
    {TerminalIDKey, "TerminalIDKey", "TerminalIDKey"},
    {DeviceIDKey, "DeviceIDKey", "DeviceIDKey"},
    {TransactionKeyKey, "TransactionKeyKey", "TransactionKeyKey"},
    {BankIDKey, "BankIDKey", "BankIDKey"},
    {MerchantDBAKey, "MerchantDBAKey", "MerchantDBAKey"},
    {CompanyIDKey, "CompanyIDKey", "CompanyIDKey"},
    {AccountIDKey, "AccountIDKey", "AccountIDKey"},
    {PINKey, "PINKey", "PINKey"},
    {PINTokenKey, "PINTokenKey", "PINTokenKey"},
    {MerchantProfileIDKey, "MerchantProfileIDKey", "MerchantProfileIDKey"},
    {DeveloperIDKey, "DeveloperIDKey", "DeveloperIDKey"},
    {SessionTokenKey, "SessionTokenKey", "SessionTokenKey"},
    {UsernameKey, "UsernameKey", "UsernameKey"},
    {PasswordKey, "PasswordKey", "PasswordKey"},
    {CardNumberKey, "cardNumber", "CardNumberKey"},
    {CardGoodThruKey, "cardExpire", "CardGoodThruKey"},
    {CardGoodThruMonthKey, "cardExpireMM", "CardGoodThruMonthKey"},
    {CardGoodThruYearKey, "cardExpireYY", "CardGoodThruYearKey"},
    {CardholderNameKey, "cardName", "CardholderNameKey"},
    {CardTrack1Key, "cardTrack1", "CardTrack1Key"},
    {CardTrack2Key, "cardTrack2", "CardTrack2Key"},
    {CardTrack3Key, "cardTrack3", "CardTrack3Key"},
    {CardTypeKey, "cardType", "CardTypeKey"},
    {CardKSNKey, "ksn", "CardKSNKey"},
    {CardEmulatedKey, "emulatedTrackData", "CardEmulatedKey"},
    {CardEncryptionTypeKey, "encryptionType", "CardEncryptionTypeKey"},
    {CardInfoKey, "credit_card_info", "CardInfoKey"},
    {CardZipKey, "zip_key", "CardZipKey"},
    {TransactionAmountKey, "amount", "TransactionAmountKey"},
    {TransactionTotalKey, "total", "TransactionTotalKey"},
    {PaymentTypeKey, "payment_type", "PaymentTypeKey"},
    {TransactionSalesTaxKey, "sales_tax", "TransactionSalesTaxKey"},
    {TransactionTipKey, "tip", "TransactionTipKey"},
    {TransactionEventKey, "transaction_event", "TransactionEventKey"},
    {TransactionReceiptKey, "receipt", "TransactionReceiptKey"},
    {TransactionChangeDueKey, "changeDue", "TransactionChangeDueKey"},
    {TransactionTenderedKey, "tendered", "TransactionTenderedKey"},
    {TransactionCustomerReceiptKey, "customerReceipt", "TransactionCustomerReceiptKey"},
};

TEST(VastrelConstantsTest, KeysHaveTheirPublishedValues) {
    EXPECT_EQ(std::size(kKeys), 38u);
    for (const KeyCase& key : kKeys) {
        SCOPED_TRACE(key.name);
        EXPECT_EQ(key.constant, key.expected);
    }
}

TEST(VastrelConstantsTest, VersionSymbolsAreExact) {
    EXPECT_EQ(VastrelVersionNumber, 1.0);
    EXPECT_EQ(std::string_view(VastrelVersionString), "@(#)PROGRAM:Vastrel  PROJECT:Vastrel-1\n");
    EXPECT_EQ(sizeof(VastrelVersionString), 40u);  // 38 characters, line feed, terminator
}

}  // namespace
}  // namespace vastrel
