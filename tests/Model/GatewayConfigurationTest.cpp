#include "vastrel/Model/GatewayConfiguration.hpp"

#include "vastrel/Enums/VastrelConstants.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace vastrel {
namespace {

TEST(GatewayConfigurationTest, DefaultConstructorGivesTheDemoDefaults) {
    const GatewayConfiguration config;
    EXPECT_EQ(config.posAppVersion(), "1.0");
    EXPECT_EQ(config.posAppName(), "POS App");
    EXPECT_EQ(config.credentials(), nullptr);
    EXPECT_EQ(config.gatewayType(), GatewayType::GatewayTypeDemoMode);
    EXPECT_EQ(config.gatewayMode(), GatewayMode{0});
    EXPECT_EQ(config.timeOut(), 90);
    EXPECT_EQ(config.maxRetryAttempts(), 3);
}

TEST(GatewayConfigurationTest, DesignatedConstructorLeavesTimeOutAndRetriesAtZero) {
    auto credentials = std::make_shared<GatewayConfiguration::Credentials>();
    const GatewayConfiguration config("2.3", "Till", credentials, GatewayType::GatewayTypeAstrinel);
    EXPECT_EQ(config.posAppVersion(), "2.3");
    EXPECT_EQ(config.posAppName(), "Till");
    EXPECT_EQ(config.credentials(), credentials);
    EXPECT_EQ(config.gatewayType(), GatewayType{3});
    EXPECT_EQ(config.gatewayMode(), GatewayMode{0});
    EXPECT_EQ(config.timeOut(), 0);
    EXPECT_EQ(config.maxRetryAttempts(), 0);
}

TEST(GatewayConfigurationTest, CredentialsChangedByTheCallerShowThrough) {
    auto credentials = std::make_shared<GatewayConfiguration::Credentials>();
    GatewayConfiguration config;
    config.setCredentials(credentials);

    (*credentials)[std::string(TerminalIDKey)] = "T-0042";

    ASSERT_NE(config.credentials(), nullptr);
    EXPECT_EQ(config.credentials()->at("TerminalIDKey"), "T-0042");
}

}  // namespace
}  // namespace vastrel
