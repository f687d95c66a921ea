#include "vastrel/Model/TerminalResponse.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(TerminalResponseTest, ActionConstructorStoresTheActionAndNothingElse) {
    const TerminalResponse response{TerminalAction{12}};
    EXPECT_EQ(response.terminalAction(), TerminalAction{12});
    EXPECT_EQ(response.terminalDecisionType(), TerminalDecisionType{0});
    EXPECT_EQ(response.message(), std::nullopt);
    EXPECT_FALSE(response.cardData().has_value());
}

}  // namespace
}  // namespace vastrel
