#include "vastrel/Model/TerminalCapabilities.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(TerminalCapabilitiesTest, CopyOfANewRecordIsAllZero) {
    const TerminalCapabilities copy = TerminalCapabilities().copy();
    EXPECT_EQ(copy.terminalOperatingEnvironemt(), 0u);
    EXPECT_EQ(copy.terminalAuthenticationCapability(), 0u);
    EXPECT_EQ(copy.terminalOutputCapability(), 0u);
    EXPECT_EQ(copy.terminalInputCapability(), 0u);
}

}  // namespace
}  // namespace vastrel
