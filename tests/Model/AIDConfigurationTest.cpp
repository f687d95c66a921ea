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

}  // namespace
}  // namespace vastrel
