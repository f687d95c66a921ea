#include "vastrel/Model/TransactionRequest.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vastrel {
namespace {

TEST(TransactionRequestTest, BothConstructorsSetTaxCategoryOneAndAPresentZeroCashBack) {
    CardData card;
    card.setPan("************1111");
    const struct {
        const char* reason;
        TransactionRequest request;
        std::optional<Decimal> total, tip, tax;
        std::optional<std::string> pan;
    } cases[] = {
        {"default", TransactionRequest(), std::nullopt, std::nullopt, std::nullopt, std::nullopt},
        {"all absent", TransactionRequest(std::nullopt, std::nullopt, std::nullopt, nullptr),
         std::nullopt, std::nullopt, std::nullopt, std::nullopt},
        {"total, tip, tax, card in that order",
         TransactionRequest(Decimal("25.00"), Decimal("3.50"), Decimal("1.75"), &card),
         Decimal("25"), Decimal("3.5"), Decimal("1.75"), "************1111"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(c.request.taxCategory(), TaxCategory{1});
        EXPECT_EQ(c.request.cashBack(), Decimal::zero());
        EXPECT_EQ(c.request.tenderType(), TenderType{0});
        EXPECT_EQ(c.request.transactionType(), TransactionType::TransactionTypeSale);
        EXPECT_EQ(c.request.total(), c.total);
        EXPECT_EQ(c.request.tip(), c.tip);
        EXPECT_EQ(c.request.tax(), c.tax);
        const auto& stored = c.request.cardData();
        EXPECT_EQ(stored ? stored->pan() : std::nullopt, c.pan);
    }
}

}  // namespace
}  // namespace vastrel
