#include "vastrel/Codec/Utilities.hpp"

#include <gtest/gtest.h>

#include <cstdint>

namespace vastrel {
namespace {

TEST(UtilitiesTest, CodesAndStatusesAsText) {
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode::Usd), "0840");
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode{840}), std::nullopt);
    // Reads the interaction table, where every status from 17 up shares one string.
    EXPECT_EQ(Utilities::stringTerminalStatus(1000), "DEVICE_BUSY");
    EXPECT_EQ(Utilities::hexStringFromEMVTagEnum(0x9F1A), "9F1A");
    EXPECT_EQ(Utilities::hexStringFromEMVTagEnum(0x0A), "A");               // no leading zero
    EXPECT_EQ(Utilities::hexStringFromEMVTagEnum(-1), "FFFFFFFFFFFFFFFF");  // two's complement
}

}  // namespace
}  // namespace vastrel
