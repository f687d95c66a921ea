#include "vastrel/Model/TransactionConfiguration.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(TransactionConfigurationTest, NewConfigurationHasEveryEntryMethodOffAndUsDefaults) {
    const TransactionConfiguration config;
    EXPECT_FALSE(config.isMagStripeEnabled());
    EXPECT_FALSE(config.isChipEnabled());
    EXPECT_FALSE(config.isManualEntryEnabled());
    EXPECT_FALSE(config.isContaclessEnabled());
    EXPECT_EQ(config.currencyCode(), CurrencyCode::Usd);
    EXPECT_EQ(config.countryCode(), CountryCode::Us);
    EXPECT_EQ(config.defualtCurrencyExponent(), 0u);
}

}  // namespace
}  // namespace vastrel
