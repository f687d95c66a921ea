#include "vastrel/Model/TransactionRequest.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

void expectDefaults(const TransactionRequest& request) {
    EXPECT_EQ(request.tenderType(), TenderType{0});
    EXPECT_EQ(request.transactionType(), TransactionType::TransactionTypeSale);
    EXPECT_EQ(request.taxCategory(), TaxCategory{1});
    EXPECT_EQ(request.cashBack(), Decimal::zero());  // present, not absent
    EXPECT_EQ(request.gatewayTransactionId(), std::nullopt);
    EXPECT_EQ(request.forcedAuthCode(), std::nullopt);
}

TEST(TransactionRequestTest, DefaultConstructorSetsTaxCategoryOneAndAZeroCashBack) {
    const TransactionRequest request;
    expectDefaults(request);
    EXPECT_EQ(request.total(), std::nullopt);
    EXPECT_EQ(request.tip(), std::nullopt);
    EXPECT_EQ(request.tax(), std::nullopt);
    EXPECT_FALSE(request.cardData().has_value());
}

TEST(TransactionRequestTest, AmountConstructorWithEverythingAbsentKeepsTheDefaults) {
    const TransactionRequest request(std::nullopt, std::nullopt, std::nullopt, nullptr);
    expectDefaults(request);
    EXPECT_EQ(request.total(), std::nullopt);
    EXPECT_FALSE(request.cardData().has_value());
}

TEST(TransactionRequestTest, AmountConstructorStoresTotalTipTaxAndCardInThatOrder) {
    CardData card;
    card.setPan("************1111");
    const TransactionRequest request(Decimal("25.00"), Decimal("3.50"), Decimal("1.75"), &card);
    expectDefaults(request);
    EXPECT_EQ(request.total(), Decimal("25"));
    EXPECT_EQ(request.tip(), Decimal("3.5"));
    EXPECT_EQ(request.tax(), Decimal("1.75"));
    ASSERT_TRUE(request.cardData().has_value());
    EXPECT_EQ(request.cardData()->pan(), "************1111");
}

}  // namespace
}  // namespace vastrel
