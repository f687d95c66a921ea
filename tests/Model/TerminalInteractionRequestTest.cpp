#include "vastrel/Model/TerminalInteractionRequest.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(TerminalInteractionRequestTest, StoredApplicationNamesIgnoreLaterChangesByTheCaller) {
    std::vector<std::string> names{"VISA CREDIT", "VISA DEBIT"};
    TerminalInteractionRequest request(TerminalInteractionType::WaitingForApplicationSelection);
    request.setApplicationNames(names);
    names.push_back("INTERLINK");
    EXPECT_EQ(request.applicationNames()->size(), 2u);
}

}  // namespace
}  // namespace vastrel
