#include "vastrel/Model/TerminalInteractionResult.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vastrel {
namespace {

TEST(TerminalInteractionResultTest, NewResultIsEmpty) {
    const TerminalInteractionResult result;
    EXPECT_EQ(result.selectedApplicationIndex(), 0);
    EXPECT_FALSE(result.finalAmountConfirmed());
    EXPECT_EQ(result.terminalInteractionType(), TerminalInteractionType{0});
    EXPECT_FALSE(result.gatewayResponse().has_value());
}

TEST(TerminalInteractionResultTest, StoredGatewayResponseKeepsItsErrorWeak) {
    auto error =
        std::make_shared<const Error>("TRANSACTION_ERROR", 8, std::map<std::string, std::string>{});
    GatewayResponse response;
    response.setIsApproved(true);
    response.setGatewayError(error);

    TerminalInteractionResult result;
    result.setGatewayResponse(response);
    ASSERT_TRUE(result.gatewayResponse().has_value());
    EXPECT_TRUE(result.gatewayResponse()->isApproved());
    EXPECT_EQ(result.gatewayResponse()->gatewayError().lock(), error);

    error.reset();
    EXPECT_TRUE(result.gatewayResponse()->gatewayError().expired());
}

}  // namespace
}  // namespace vastrel
