#include "vastrel/Model/TerminalInfo.hpp"

#include <gtest/gtest.h>

#include <type_traits>

namespace vastrel {
namespace {

static_assert(!std::is_polymorphic_v<TerminalInfo>);

TEST(TerminalInfoTest, CopyHoldsTheSourceValuesAndIgnoresLaterChangesToIt) {
    TerminalInfo source;
    source.setSerialNumber("SN-1");
    source.setAppName("EMV App");
    source.setAppVersion("4.2");
    source.setTerminalName("Counter 3");
    source.setBatteryLevel(-1);
    source.setBatteryPercentage(87);
    source.setConnectionType(ConnectionType::Bluetooth);
    source.setTerminalType(TerminalType{42});

    const TerminalInfo copy = source.copy();
    source.setSerialNumber("SN-2");
    source.setAppName(std::nullopt);
    source.setBatteryPercentage(5);
    source.setTerminalType(TerminalType::NoReader);

    EXPECT_EQ(copy.serialNumber(), "SN-1");
    EXPECT_EQ(copy.appName(), "EMV App");
    EXPECT_EQ(copy.appVersion(), "4.2");
    EXPECT_EQ(copy.terminalName(), "Counter 3");
    EXPECT_EQ(copy.batteryLevel(), -1);
    EXPECT_EQ(copy.batteryPercentage(), 87);
    EXPECT_EQ(copy.connectionType(), ConnectionType::Bluetooth);
    EXPECT_EQ(copy.terminalType(), TerminalType{42});
}

}  // namespace
}  // namespace vastrel
