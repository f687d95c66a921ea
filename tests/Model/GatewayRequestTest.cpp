#include "vastrel/Model/GatewayRequest.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>

namespace vastrel {
namespace {

TEST(GatewayRequestTest, NewRequestIsAllZeroAndAbsent) {
    const GatewayRequest request;
    EXPECT_EQ(request.totalAmount(), std::nullopt);
    EXPECT_EQ(request.signature(), std::nullopt);
    EXPECT_EQ(request.cvmResult(), CVMResult::NotAvailable);
    EXPECT_EQ(request.taxCategory(), TaxCategory{0});  // unlike TransactionRequest
    EXPECT_FALSE(request.cardData().has_value());
    EXPECT_EQ(request.commercialCardData(), nullptr);
}

TEST(GatewayRequestTest, CommercialCardDataIsSharedButCardDataIsCopied) {
    auto commercial = std::make_shared<CommercialCardData>();
    CardData card;
    card.setPan("************0004");
    GatewayRequest request;
    request.setCommercialCardData(commercial);
    request.setCardData(card);

    commercial->setCommercialCardDataValuesDictionary(CommercialCardData::Values{{"k", "v"}});
    card.setPan("************9999");

    EXPECT_TRUE(request.commercialCardData()->commercialCardDataValuesDictionary().has_value());
    EXPECT_EQ(request.cardData()->pan(), "************0004");
}

TEST(GatewayRequestTest, CvmResultKeepsNegativeValues) {
    for (const std::int64_t value :
         {std::int64_t{-1}, std::numeric_limits<std::int64_t>::min(), std::int64_t{94}}) {
        SCOPED_TRACE(value);
        GatewayRequest request;
        request.setCvmResult(CVMResult{value});
        EXPECT_EQ(static_cast<std::int64_t>(request.cvmResult()), value);
    }
}

}  // namespace
}  // namespace vastrel
