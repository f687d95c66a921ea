#include "vastrel/Model/GatewayResponse.hpp"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace vastrel {
namespace {

TEST(GatewayResponseTest, CopyKeepsFlagsEnumerationsAmountsAndStrings) {
    GatewayResponse source;
    source.setIsPartialApproval(true);
    source.setIsApproved(true);
    source.setIsGatewayTimeOut(true);
    source.setCardDataSourceType(CardDataSourceType::Fallback);
    source.setCardType(CardType::Discover);
    source.setCommercialCard(CommercialCard{2});
    source.setGatewayAction(GatewayAction{5});
    source.setApprovedAmount(Decimal("12.50"));
    source.setEmvIssuerScripts("9F1804AABBCCDD");

    const GatewayResponse copy = source.copy();
    EXPECT_TRUE(copy.isPartialApproval());
    EXPECT_TRUE(copy.isApproved());
    EXPECT_TRUE(copy.isGatewayTimeOut());
    EXPECT_EQ(copy.cardDataSourceType(), CardDataSourceType::Fallback);
    EXPECT_EQ(copy.cardType(), CardType::Discover);
    EXPECT_EQ(copy.commercialCard(), CommercialCard{2});
    EXPECT_EQ(copy.gatewayAction(), GatewayAction{5});
    EXPECT_EQ(copy.approvedAmount(), Decimal("12.5"));
    EXPECT_EQ(copy.emvIssuerScripts(), "9F1804AABBCCDD");
}

TEST(GatewayResponseTest, ErrorIsNotKeptAliveByTheResponseOrItsCopies) {
    auto error =
        std::make_shared<const Error>("TRANSACTION_ERROR", 8, std::map<std::string, std::string>{});
    GatewayResponse response;
    response.setGatewayError(error);
    const GatewayResponse copy = response.copy();
    EXPECT_EQ(copy.gatewayError().lock(), error);

    error.reset();
    EXPECT_TRUE(response.gatewayError().expired());
    EXPECT_TRUE(copy.gatewayError().expired());
    EXPECT_TRUE(response.copy().gatewayError().expired());
}

}  // namespace
}  // namespace vastrel
