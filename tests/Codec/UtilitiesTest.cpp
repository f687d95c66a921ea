#include "vastrel/Codec/Utilities.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace vastrel {
namespace {

TEST(UtilitiesTest, CurrencyCodeIsKnownOnlyForUsDollar) {
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode::Usd), "0840");
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode{1}), std::nullopt);
    EXPECT_EQ(Utilities::stringCurrencyCode(CurrencyCode{840}), std::nullopt);
}

TEST(UtilitiesTest, TagNumberIsUppercaseHexWithoutLeadingZeros) {
    struct Case {
        std::int64_t tag;
        const char* expected;
        const char* reason;
    };
    const Case cases[] = {
        {0x9F02, "9F02", "two-byte tag"},
        {0x9F1A, "9F1A", "letters are uppercase"},
        {0x5A, "5A", "one-byte tag"},
        {0x0A, "A", "no leading zero"},
        {0, "0", "zero still has one digit"},
        {0xBF0C, "BF0C", "inner zero kept"},
        {0x7FFFFFFFFFFFFFFF, "7FFFFFFFFFFFFFFF", "largest positive"},
        {-1, "FFFFFFFFFFFFFFFF", "negative prints as 64-bit two's complement"},
        {std::numeric_limits<std::int64_t>::min(), "8000000000000000", "most negative"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(Utilities::hexStringFromEMVTagEnum(c.tag), c.expected);
    }
}

TEST(UtilitiesTest, TerminalStatusReadsTheInteractionTable) {
    EXPECT_EQ(Utilities::stringTerminalStatus(0), "IDLE");
    EXPECT_EQ(Utilities::stringTerminalStatus(16), "DO_NOT_REMOVE_CARD");
    // 17 and every status above share one key; the first listed row is kept there.
    EXPECT_EQ(Utilities::stringTerminalStatus(17), "DEVICE_BUSY");
    EXPECT_EQ(Utilities::stringTerminalStatus(18), "DEVICE_BUSY");
    EXPECT_EQ(Utilities::stringTerminalStatus(25), "DEVICE_BUSY");
    EXPECT_EQ(Utilities::stringTerminalStatus(1000), "DEVICE_BUSY");
}

}  // namespace
}  // namespace vastrel
