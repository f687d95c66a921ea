#pragma once

#include <string_view>

// Keys under which the layers above Vastrel exchange credentials, card data and
// transaction values as dictionaries, and the library's version symbols. Nothing inside
// Vastrel reads them. The families mix naming styles; the values are exchanged with other
// components and must stay exactly as they are.
namespace vastrel {

// Keys of GatewayConfiguration::credentials; each value is the constant's own name.
inline constexpr std::string_view TerminalIDKey = "TerminalIDKey";
inline constexpr std::string_view DeviceIDKey = "DeviceIDKey";
inline constexpr std::string_view TransactionKeyKey = "TransactionKeyKey";
inline constexpr std::string_view BankIDKey = "BankIDKey";
inline constexpr std::string_view MerchantDBAKey = "MerchantDBAKey";
inline constexpr std::string_view CompanyIDKey = "CompanyIDKey";
inline constexpr std::string_view AccountIDKey = "AccountIDKey";
inline constexpr std::string_view PINKey = "PINKey";
inline constexpr std::string_view PINTokenKey = "PINTokenKey";
inline constexpr std::string_view MerchantProfileIDKey = "MerchantProfileIDKey";
inline constexpr std::string_view DeveloperIDKey = "DeveloperIDKey";
inline constexpr std::string_view SessionTokenKey = "SessionTokenKey";
inline constexpr std::string_view UsernameKey = "UsernameKey";
inline constexpr std::string_view PasswordKey = "PasswordKey";

// Card data keys.
inline constexpr std::string_view CardNumberKey = "cardNumber";
inline constexpr std::string_view CardGoodThruKey = "cardExpire";
inline constexpr std::string_view CardGoodThruMonthKey = "cardExpireMM";
inline constexpr std::string_view CardGoodThruYearKey = "cardExpireYY";
inline constexpr std::string_view CardholderNameKey = "cardName";
inline constexpr std::string_view CardTrack1Key = "cardTrack1";
inline constexpr std::string_view CardTrack2Key = "cardTrack2";
inline constexpr std::string_view CardTrack3Key = "cardTrack3";
inline constexpr std::string_view CardTypeKey = "cardType";
inline constexpr std::string_view CardKSNKey = "ksn";
inline constexpr std::string_view CardEmulatedKey = "emulatedTrackData";
inline constexpr std::string_view CardEncryptionTypeKey = "encryptionType";
inline constexpr std::string_view CardInfoKey = "credit_card_info";
inline constexpr std::string_view CardZipKey = "zip_key";

// Transaction keys.
inline constexpr std::string_view TransactionAmountKey = "amount";
inline constexpr std::string_view TransactionTotalKey = "total";
inline constexpr std::string_view PaymentTypeKey = "payment_type";
inline constexpr std::string_view TransactionSalesTaxKey = "sales_tax";
inline constexpr std::string_view TransactionTipKey = "tip";
inline constexpr std::string_view TransactionEventKey = "transaction_event";
inline constexpr std::string_view TransactionReceiptKey = "receipt";
inline constexpr std::string_view TransactionChangeDueKey = "changeDue";
inline constexpr std::string_view TransactionTenderedKey = "tendered";
inline constexpr std::string_view TransactionCustomerReceiptKey = "customerReceipt";

inline constexpr double VastrelVersionNumber = 1.0;
// Two spaces before PROJECT, and a trailing line feed.
inline constexpr char VastrelVersionString[] = "@(#)PROGRAM:Vastrel  PROJECT:Vastrel-1\n";

}  // namespace vastrel
