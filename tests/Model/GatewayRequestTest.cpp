#include "vastrel/Model/GatewayRequest.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vastrel {
namespace {

TEST(GatewayRequestTest, CommercialCardDataIsSharedButCardDataIsCopied) {
    auto commercial = std::make_shared<CommercialCardData>();
    CardData card;
    card.setPan("************0004");
    GatewayRequest request;
    request.setCommercialCardData(commercial);
    request.setCardData(card);

    commercial->setCommercialCardDataValuesDictionary(
        CommercialCardData::Values{{"PURCHASE_ORDER_NUMBER", "PO-7"}});
    card.setPan("************9999");

    ASSERT_NE(request.commercialCardData(), nullptr);
    EXPECT_EQ(request.commercialCardData()->commercialCardDataValuesDictionary(),
              (CommercialCardData::Values{{"PURCHASE_ORDER_NUMBER", "PO-7"}}));
    EXPECT_EQ(request.cardData()->pan(), "************0004");
}

}  // namespace
}  // namespace vastrel
