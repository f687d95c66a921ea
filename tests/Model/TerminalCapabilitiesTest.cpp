#include "vastrel/Model/TerminalCapabilities.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace vastrel {
namespace {

TEST(TerminalCapabilitiesTest, CopyOfANewRecordIsAllZero) {
    const TerminalCapabilities copy = TerminalCapabilities().copy();
    EXPECT_EQ(copy.terminalOperatingEnvironemt(), 0u);
    EXPECT_EQ(copy.terminalAuthenticationCapability(), 0u);
    EXPECT_EQ(copy.terminalOutputCapability(), 0u);
    EXPECT_EQ(copy.terminalInputCapability(), 0u);
}

TEST(TerminalCapabilitiesTest, CopyKeepsEachValueInItsOwnField) {
    constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
    TerminalCapabilities source;
    source.setTerminalOperatingEnvironemt(0x22);
    source.setTerminalAuthenticationCapability(0xE0F0C8);
    source.setTerminalOutputCapability(kMax);
    source.setTerminalInputCapability(1);

    const TerminalCapabilities copy = source.copy();
    EXPECT_EQ(copy.terminalOperatingEnvironemt(), 0x22u);
    EXPECT_EQ(copy.terminalAuthenticationCapability(), 0xE0F0C8u);
    EXPECT_EQ(copy.terminalOutputCapability(), kMax);
    EXPECT_EQ(copy.terminalInputCapability(), 1u);
}

}  // namespace
}  // namespace vastrel
