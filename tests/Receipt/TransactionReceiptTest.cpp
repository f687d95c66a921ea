#include "vastrel/Receipt/TransactionReceipt.hpp"

#include "Model/StringProperties.hpp"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <type_traits>

namespace vastrel {
namespace {

using std::chrono::system_clock;
using test::StringProperty;
using R = TransactionReceipt;

static_assert(!std::is_polymorphic_v<TransactionReceipt>);

constexpr std::array<StringProperty<R>, 22> kStrings{{
    {"invoiceNumber", &R::invoiceNumber, &R::setInvoiceNumber},
    {"transactionAmount", &R::transactionAmount, &R::setTransactionAmount},
    {"authorizationCode", &R::authorizationCode, &R::setAuthorizationCode},
    {"maskedPan", &R::maskedPan, &R::setMaskedPan},
    {"transactionId", &R::transactionId, &R::setTransactionId},
    {"cardholderName", &R::cardholderName, &R::setCardholderName},
    {"aid", &R::aid, &R::setAid},
    {"applicationLabel", &R::applicationLabel, &R::setApplicationLabel},
    {"applicationExpiryDate", &R::applicationExpiryDate, &R::setApplicationExpiryDate},
    {"applicationEffectiveDate", &R::applicationEffectiveDate, &R::setApplicationEffectiveDate},
    {"applicationInterchangeProfile", &R::applicationInterchangeProfile,
     &R::setApplicationInterchangeProfile},
    {"applicationVersionNumber", &R::applicationVersionNumber, &R::setApplicationVersionNumber},
    {"applicationTransactionCounter", &R::applicationTransactionCounter,
     &R::setApplicationTransactionCounter},
    {"panSequenceNumber", &R::panSequenceNumber, &R::setPanSequenceNumber},
    {"cryptogram", &R::cryptogram, &R::setCryptogram},
    {"issuerApplicationData", &R::issuerApplicationData, &R::setIssuerApplicationData},
    {"terminalVerificationResult", &R::terminalVerificationResult,
     &R::setTerminalVerificationResult},
    {"unpredictableNumber", &R::unpredictableNumber, &R::setUnpredictableNumber},
    {"cashBackAmount", &R::cashBackAmount, &R::setCashBackAmount},
    {"terminalType", &R::terminalType, &R::setTerminalType},
    {"ifdSerialNumber", &R::ifdSerialNumber, &R::setIfdSerialNumber},
    {"cryptogramInformationData", &R::cryptogramInformationData, &R::setCryptogramInformationData},
}};

// Expects the copy to carry a time taken while copy() ran.
void expectStampedBetween(const TransactionReceipt& copy, system_clock::time_point before,
                          system_clock::time_point after) {
    ASSERT_TRUE(copy.transactionDateTime().has_value());
    EXPECT_GE(*copy.transactionDateTime(), before);
    EXPECT_LE(*copy.transactionDateTime(), after);
}

TEST(TransactionReceiptTest, NewReceiptIsAllZeroAndAbsent) {
    const TransactionReceipt receipt;
    EXPECT_EQ(receipt.transactionType(), TransactionType::TransactionTypeSale);
    EXPECT_EQ(receipt.currencyCode(), CurrencyCode::Usd);
    EXPECT_EQ(receipt.cardType(), CardType::Visa);
    EXPECT_EQ(receipt.cvmResult(), CVMResult::NotAvailable);
    EXPECT_EQ(receipt.posEntryMode(), CardDataSourceType::Msr);
    EXPECT_EQ(receipt.terminalCountryCode(), CountryCode::Us);
    EXPECT_EQ(receipt.pinStatementType(), PinStatementType::PinNotSupported);
    EXPECT_EQ(receipt.transactionDateTime(), std::nullopt);
    for (const auto& property : kStrings) {
        SCOPED_TRACE(property.name);
        EXPECT_EQ((receipt.*property.get)(), std::nullopt);
    }
}

TEST(TransactionReceiptTest, CopyOfAnUndatedReceiptIsDatedNow) {
    const TransactionReceipt receipt;
    const auto before = system_clock::now();
    const TransactionReceipt copy = receipt.copy();
    expectStampedBetween(copy, before, system_clock::now());
}

TEST(TransactionReceiptTest, CopyOfAReceiptFromYesterdayIsDatedNowAndKeepsEverythingElse) {
    TransactionReceipt source;
    source.setTransactionType(TransactionType::TransactionTypeRefundWithCard);
    source.setCurrencyCode(CurrencyCode{124});
    source.setCardType(CardType::Jcb);
    source.setCvmResult(CVMResult{-7});
    source.setPosEntryMode(CardDataSourceType::Keyed);
    source.setTerminalCountryCode(CountryCode{840});
    source.setPinStatementType(PinStatementType::PinVerified);
    source.setTransactionDateTime(system_clock::now() - std::chrono::hours(24));
    test::fillStrings<R>(source, kStrings);

    const auto before = system_clock::now();
    const TransactionReceipt copy = source.copy();
    expectStampedBetween(copy, before, system_clock::now());

    EXPECT_EQ(copy.transactionType(), TransactionType::TransactionTypeRefundWithCard);
    EXPECT_EQ(copy.currencyCode(), CurrencyCode{124});
    EXPECT_EQ(copy.cardType(), CardType::Jcb);
    EXPECT_EQ(copy.cvmResult(), CVMResult{-7});
    EXPECT_EQ(copy.posEntryMode(), CardDataSourceType::Keyed);
    EXPECT_EQ(copy.terminalCountryCode(), CountryCode{840});
    EXPECT_EQ(copy.pinStatementType(), PinStatementType::PinVerified);
    test::expectFilledStrings<R>(copy, kStrings);
    EXPECT_LT(*source.transactionDateTime(), before);  // the source keeps its own date
}

}  // namespace
}  // namespace vastrel
