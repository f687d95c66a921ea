#include "vastrel/Model/TransactionResponse.hpp"

#include <gtest/gtest.h>

#include <chrono>

namespace vastrel {
namespace {

TEST(TransactionResponseTest, NewResponseIsAllZeroAndAbsent) {
    const TransactionResponse response;
    EXPECT_EQ(response.transactionResultType(), TransactionResultType::TransactionApproved);
    EXPECT_EQ(response.cardType(), CardType::Visa);
    EXPECT_EQ(response.tenderType(), TenderType{0});
    EXPECT_EQ(response.transactionType(), TransactionType::TransactionTypeSale);
    EXPECT_EQ(response.cardDataSourceType(), CardDataSourceType::Msr);
    EXPECT_EQ(response.gatewayAuthCode(), std::nullopt);
    EXPECT_EQ(response.approvedAmount(), std::nullopt);
    EXPECT_FALSE(response.receipt().has_value());
    EXPECT_EQ(response.responseMessages(), std::nullopt);
}

TEST(TransactionResponseTest, StoredReceiptIsStampedWithTheTimeItWasSet) {
    using std::chrono::system_clock;
    TransactionReceipt receipt;
    receipt.setTransactionDateTime(system_clock::now() - std::chrono::hours(24));
    receipt.setAuthorizationCode("A1B2C3");

    TransactionResponse response;
    const auto before = system_clock::now();
    response.setReceipt(receipt);
    const auto after = system_clock::now();

    ASSERT_TRUE(response.receipt().has_value());
    ASSERT_TRUE(response.receipt()->transactionDateTime().has_value());
    EXPECT_GE(*response.receipt()->transactionDateTime(), before);
    EXPECT_LE(*response.receipt()->transactionDateTime(), after);
    EXPECT_EQ(response.receipt()->authorizationCode(), "A1B2C3");
}

}  // namespace
}  // namespace vastrel
