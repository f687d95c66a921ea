#include "vastrel/Model/TerminalConfiguration.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

namespace vastrel {
namespace {

TEST(TerminalConfigurationTest, NewConfigurationHasNoDefaults) {
    const TerminalConfiguration config;
    EXPECT_EQ(config.port() | config.timeout() | config.operatingEnvironment() |
                  config.authenticationCapability() | config.outputCapability() |
                  config.inputCapability(),
              0u);
    EXPECT_EQ(config.minPinLength() | config.maxPinLength(), 0);
    EXPECT_EQ(config.terminalType(), TerminalType::IngenicoRP450C);
    EXPECT_EQ(config.connectionType(), ConnectionType::AudioJack);
}

TEST(TerminalConfigurationTest, CopyDropsCapksAndKeepsTheOtherFields) {
    TerminalConfiguration source;
    source.setHost("10.0.0.7");
    source.setPort(9001);
    source.setMinPinLength(-1);
    source.setScreenTurnOffDelay(std::make_shared<const std::int64_t>(30));
    source.setOperatingEnvironment(0x22);
    source.setTerminalType(TerminalType::IngenicoMoby8500);
    source.setConnectionType(ConnectionType::Usb);
    source.setContactAIDs(TerminalConfiguration::AIDList{std::make_shared<AIDConfiguration>()});
    source.setTerminalActionCodesDictionary(TerminalConfiguration::TerminalActionCodesDictionary{
        {"A0000000031010", std::make_shared<TerminalActionCodes>()}});
    source.setCapks(
        TerminalConfiguration::CAPKList{std::make_shared<EMVCAPK>(), std::make_shared<EMVCAPK>()});
    source.setBluetoothName("Moby-8500");

    const TerminalConfiguration copy = source.copy();

    EXPECT_EQ(copy.capks(), std::nullopt);
    EXPECT_EQ(source.capks()->size(), 2u);
    EXPECT_EQ(copy.host(), "10.0.0.7");
    EXPECT_EQ(copy.port(), 9001u);
    EXPECT_EQ(copy.minPinLength(), -1);
    EXPECT_EQ(copy.screenTurnOffDelay(), source.screenTurnOffDelay());
    EXPECT_EQ(copy.operatingEnvironment(), 0x22u);
    EXPECT_EQ(copy.terminalType(), TerminalType::IngenicoMoby8500);
    EXPECT_EQ(copy.connectionType(), ConnectionType::Usb);
    // The same element objects: the copy is shallow.
    EXPECT_EQ(copy.contactAIDs(), source.contactAIDs());
    EXPECT_EQ(copy.terminalActionCodesDictionary(), source.terminalActionCodesDictionary());
    EXPECT_EQ(copy.bluetoothName(), "Moby-8500");
}

TEST(TerminalConfigurationTest, EnergySaverDelayIsNotOwnedByTheConfigurationOrItsCopies) {
    auto energySaver = std::make_shared<const std::int64_t>(60);
    auto shutDown = std::make_shared<const std::int64_t>(600);
    TerminalConfiguration config;
    config.setEnergySaverModeDelay(energySaver);
    config.setShutDownDelay(shutDown);
    const TerminalConfiguration copy = config.copy();
    EXPECT_EQ(copy.energySaverModeDelay().lock(), energySaver);

    energySaver.reset();
    shutDown.reset();

    EXPECT_TRUE(config.energySaverModeDelay().expired());
    EXPECT_TRUE(copy.energySaverModeDelay().expired());
    ASSERT_NE(copy.shutDownDelay(), nullptr);
    EXPECT_EQ(*copy.shutDownDelay(), 600);
}

}  // namespace
}  // namespace vastrel
