#include "vastrel/Model/AIDConfiguration.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vastrel {
namespace {

TEST(AIDConfigurationTest, AidAndActionCodesAreSharedWithTheCaller) {
    auto aid = std::make_shared<AID>();
    auto codes = std::make_shared<TerminalActionCodes>();
    AIDConfiguration config;
    config.setAid(aid);
    config.setTerminalActionCodes(codes);

    aid->setLabel("MASTERCARD");
    codes->setOnlineTac("FC50BCF800");

    EXPECT_EQ(config.aid()->label(), "MASTERCARD");
    EXPECT_EQ(config.terminalActionCodes()->onlineTac(), "FC50BCF800");
}

TEST(AIDConfigurationTest, NewConfigurationIsEmpty) {
    const AIDConfiguration config;
    EXPECT_EQ(config.aid(), nullptr);
    EXPECT_EQ(config.terminalActionCodes(), nullptr);
    EXPECT_EQ(config.temrinalCapabilities(), std::nullopt);
    EXPECT_EQ(config.floorLimit(), 0);
    EXPECT_EQ(config.priorityIndex(), 0);
}

}  // namespace
}  // namespace vastrel
