#include "vastrel/Model/TerminalConfiguration.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace vastrel {
namespace {

static_assert(!std::is_polymorphic_v<TerminalConfiguration>);

std::shared_ptr<EMVCAPK> capk(const char* index) {
    auto key = std::make_shared<EMVCAPK>();
    key->setCaPublicKeyIndex(index);
    return key;
}

std::shared_ptr<AIDConfiguration> application(std::int64_t priority) {
    auto entry = std::make_shared<AIDConfiguration>();
    entry->setPriorityIndex(priority);
    return entry;
}

TerminalConfiguration fullConfiguration() {
    TerminalConfiguration config;
    config.setHost("10.0.0.7");
    config.setPort(9001);
    config.setTimeout(30);
    config.setMinPinLength(12);  // above the maximum: kept as given
    config.setMaxPinLength(4);
    config.setOperatingEnvironment(0x22);
    config.setAuthenticationCapability(0xE0);
    config.setOutputCapability(0xF0);
    config.setInputCapability(0xC8);
    config.setTerminalType(TerminalType::IngenicoMoby8500);
    config.setConnectionType(ConnectionType::Usb);
    config.setContactAIDs(TerminalConfiguration::AIDList{application(1), application(2)});
    config.setContactLessAIDs(TerminalConfiguration::AIDList{application(3)});
    config.setTerminalActionCodesDictionary(TerminalConfiguration::TerminalActionCodesDictionary{
        {"A0000000031010", std::make_shared<TerminalActionCodes>()}});
    config.setCapks(TerminalConfiguration::CAPKList{capk("92"), capk("94")});
    config.setBluetoothName("Moby-8500");
    return config;
}

TEST(TerminalConfigurationTest, NewConfigurationHasNoDefaults) {
    const TerminalConfiguration config;
    EXPECT_EQ(config.port(), 0u);
    EXPECT_EQ(config.timeout(), 0u);
    EXPECT_EQ(config.minPinLength(), 0);
    EXPECT_EQ(config.maxPinLength(), 0);
    EXPECT_EQ(config.operatingEnvironment() | config.authenticationCapability() |
                  config.outputCapability() | config.inputCapability(),
              0u);
    EXPECT_EQ(config.terminalType(), TerminalType::IngenicoRP450C);
    EXPECT_EQ(config.connectionType(), ConnectionType::AudioJack);
    EXPECT_EQ(config.host(), std::nullopt);
    EXPECT_EQ(config.contactAIDs(), std::nullopt);
    EXPECT_EQ(config.capks(), std::nullopt);
    EXPECT_TRUE(config.energySaverModeDelay().expired());
    EXPECT_EQ(config.shutDownDelay(), nullptr);
}

TEST(TerminalConfigurationTest, CopyDropsCapksAndKeepsEverythingElse) {
    const TerminalConfiguration source = fullConfiguration();
    const TerminalConfiguration copy = source.copy();

    EXPECT_EQ(copy.capks(), std::nullopt);
    ASSERT_TRUE(source.capks().has_value());
    EXPECT_EQ(source.capks()->size(), 2u);

    EXPECT_EQ(copy.host(), "10.0.0.7");
    EXPECT_EQ(copy.port(), 9001u);
    EXPECT_EQ(copy.timeout(), 30u);
    EXPECT_EQ(copy.minPinLength(), 12);
    EXPECT_EQ(copy.maxPinLength(), 4);
    EXPECT_EQ(copy.operatingEnvironment(), 0x22u);
    EXPECT_EQ(copy.authenticationCapability(), 0xE0u);
    EXPECT_EQ(copy.outputCapability(), 0xF0u);
    EXPECT_EQ(copy.inputCapability(), 0xC8u);
    EXPECT_EQ(copy.terminalType(), TerminalType::IngenicoMoby8500);
    EXPECT_EQ(copy.connectionType(), ConnectionType::Usb);
    EXPECT_EQ(copy.contactAIDs(), source.contactAIDs());
    EXPECT_EQ(copy.contactLessAIDs(), source.contactLessAIDs());
    EXPECT_EQ(copy.terminalActionCodesDictionary(), source.terminalActionCodesDictionary());
    EXPECT_EQ(copy.bluetoothName(), "Moby-8500");
}

TEST(TerminalConfigurationTest, CopyHasItsOwnListsButSharesTheirElements) {
    TerminalConfiguration source = fullConfiguration();
    const TerminalConfiguration copy = source.copy();

    source.setContactAIDs(TerminalConfiguration::AIDList{});
    ASSERT_TRUE(copy.contactAIDs().has_value());
    EXPECT_EQ(copy.contactAIDs()->size(), 2u);

    source.contactLessAIDs()->front()->setPriorityIndex(99);
    EXPECT_EQ(copy.contactLessAIDs()->front()->priorityIndex(), 99);

    source.terminalActionCodesDictionary()->at("A0000000031010")->setDenialTac("0010000000");
    EXPECT_EQ(copy.terminalActionCodesDictionary()->at("A0000000031010")->denialTac(),
              "0010000000");
}

TEST(TerminalConfigurationTest, OwnedDelaysOutliveTheCallerButTheEnergySaverDelayDoesNot) {
    auto energySaver = std::make_shared<const std::int64_t>(60);
    auto shutDown = std::make_shared<const std::int64_t>(600);
    auto screenOff = std::make_shared<const std::int64_t>(30);
    TerminalConfiguration config;
    config.setEnergySaverModeDelay(energySaver);
    config.setShutDownDelay(shutDown);
    config.setScreenTurnOffDelay(screenOff);
    const TerminalConfiguration copy = config.copy();

    ASSERT_FALSE(copy.energySaverModeDelay().expired());
    EXPECT_EQ(*copy.energySaverModeDelay().lock(), 60);
    EXPECT_EQ(copy.shutDownDelay(), config.shutDownDelay());  // the same number, shared

    energySaver.reset();
    shutDown.reset();
    screenOff.reset();

    EXPECT_TRUE(config.energySaverModeDelay().expired());
    EXPECT_TRUE(copy.energySaverModeDelay().expired());
    ASSERT_NE(copy.shutDownDelay(), nullptr);
    EXPECT_EQ(*copy.shutDownDelay(), 600);
    ASSERT_NE(config.screenTurnOffDelay(), nullptr);
    EXPECT_EQ(*config.screenTurnOffDelay(), 30);
}

}  // namespace
}  // namespace vastrel
