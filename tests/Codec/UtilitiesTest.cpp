#include "vastrel/Codec/Utilities.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <utility>

namespace vastrel {
namespace {

TEST(UtilitiesTest, CurrencyCodeIsKnownOnlyForUsDollar) {
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode::Usd), "0840");
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode{840}), std::nullopt);
}

TEST(UtilitiesTest, TagNumberIsUppercaseHexWithoutLeadingZeros) {
    const std::pair<std::int64_t, const char*> cases[] = {
        {0x9F1A, "9F1A"},
        {0x0A, "A"},
        {0, "0"},
        {0xBF0C, "BF0C"},
        {-1, "FFFFFFFFFFFFFFFF"},  // negative prints as its two's complement
        {std::numeric_limits<std::int64_t>::min(), "8000000000000000"},
    };
    for (const auto& [tag, hex] : cases)
        EXPECT_EQ(Utilities::hexStringFromEMVTagEnum(tag), hex);
}

TEST(UtilitiesTest, TerminalStatusReadsTheInteractionTable) {
    EXPECT_EQ(Utilities::stringTerminalStatus(0), "IDLE");
    EXPECT_EQ(Utilities::stringTerminalStatus(16), "DO_NOT_REMOVE_CARD");
    // 17 and every status above share one key, and the first listed row is kept there.
    EXPECT_EQ(Utilities::stringTerminalStatus(18), "DEVICE_BUSY");
    EXPECT_EQ(Utilities::stringTerminalStatus(1000), "DEVICE_BUSY");
}

}  // namespace
}  // namespace vastrel
