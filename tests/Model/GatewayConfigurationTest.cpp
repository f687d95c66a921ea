#include "vastrel/Model/GatewayConfiguration.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace vastrel {
namespace {

TEST(GatewayConfigurationTest, OnlyTheDefaultConstructorSetsTimeOutAndRetries) {
    const auto credentials = std::make_shared<const GatewayConfiguration::Credentials>();
    const struct {
        const char* reason;
        GatewayConfiguration config;
        std::string version;
        std::string name;
        std::shared_ptr<const GatewayConfiguration::Credentials> credentials;
        GatewayType type;
        std::int32_t timeOut;
        std::int32_t retries;
    } cases[] = {
        {"default", GatewayConfiguration(), "1.0", "POS App", nullptr,
         GatewayType::GatewayTypeDemoMode, 90, 3},
        {"designated",
         GatewayConfiguration("2.3", "Till", credentials, GatewayType::GatewayTypeAstrinel), "2.3",
         "Till", credentials, GatewayType{3}, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(c.config.posAppVersion(), c.version);
        EXPECT_EQ(c.config.posAppName(), c.name);
        EXPECT_EQ(c.config.credentials(), c.credentials);
        EXPECT_EQ(c.config.gatewayType(), c.type);
        EXPECT_EQ(c.config.gatewayMode(), GatewayMode{0});
        EXPECT_EQ(c.config.timeOut(), c.timeOut);
        EXPECT_EQ(c.config.maxRetryAttempts(), c.retries);
    }
}

}  // namespace
}  // namespace vastrel
