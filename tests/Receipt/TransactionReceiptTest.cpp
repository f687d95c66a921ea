#include "vastrel/Receipt/TransactionReceipt.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace vastrel {
namespace {

using std::chrono::system_clock;

TEST(TransactionReceiptTest, CopyIsDatedNowWhateverTheSourceDateAndKeepsEverythingElse) {
    const std::optional<TransactionReceipt::Date> yesterday =
        system_clock::now() - std::chrono::hours(24);
    for (const auto& sourceDate : {std::optional<TransactionReceipt::Date>(), yesterday}) {
        SCOPED_TRACE(sourceDate ? "dated yesterday" : "undated");
        TransactionReceipt source;
        source.setTransactionDateTime(sourceDate);
        source.setTransactionType(TransactionType::TransactionTypeRefundWithCard);
        source.setCvmResult(CVMResult{-7});
        source.setPinStatementType(PinStatementType::PinVerified);
        source.setAuthorizationCode("A1B2C3");
        source.setCryptogramInformationData("80");

        const auto before = system_clock::now();
        const TransactionReceipt copy = source.copy();
        const auto after = system_clock::now();

        ASSERT_TRUE(copy.transactionDateTime().has_value());
        EXPECT_GE(*copy.transactionDateTime(), before);
        EXPECT_LE(*copy.transactionDateTime(), after);
        EXPECT_EQ(source.transactionDateTime(), sourceDate);
        EXPECT_EQ(copy.transactionType(), TransactionType::TransactionTypeRefundWithCard);
        EXPECT_EQ(copy.cvmResult(), CVMResult{-7});
        EXPECT_EQ(copy.pinStatementType(), PinStatementType::PinVerified);
        EXPECT_EQ(copy.authorizationCode(), "A1B2C3");
        EXPECT_EQ(copy.cryptogramInformationData(), "80");
    }
}

}  // namespace
}  // namespace vastrel
