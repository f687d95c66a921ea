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

TEST(TerminalResponseTest, StoredCardDataIgnoresLaterChangesByTheCaller) {
    CardData card;
    card.setTrack2(";4111111111111111=2512?");
    TerminalResponse response;
    response.setCardData(card);
    card.setTrack2(std::nullopt);
    EXPECT_EQ(response.cardData()->track2(), ";4111111111111111=2512?");
}

}  // namespace
}  // namespace vastrel
