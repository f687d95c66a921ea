#include "vastrel/Model/TerminalInteractionRequest.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(TerminalInteractionRequestTest, ConstructorStoresTheTypeUncheckedAndNothingElse) {
    for (const auto type :
         {TerminalInteractionType::WaitingForApplicationSelection, TerminalInteractionType{99}}) {
        const TerminalInteractionRequest request(type);
        EXPECT_EQ(request.terminalInteractionType(), type);
        EXPECT_EQ(request.applicationNames(), std::nullopt);
        EXPECT_FALSE(request.cardData().has_value());
        EXPECT_EQ(request.finalAmount(), std::nullopt);
    }
}

}  // namespace
}  // namespace vastrel
