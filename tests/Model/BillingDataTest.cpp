#include "vastrel/Model/BillingData.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(BillingDataTest, NewBillingDataHasAbsentRatherThanEmptyFields) {
    const BillingData billing;
    EXPECT_EQ(billing.firstName(), std::nullopt);
    EXPECT_EQ(billing.lastName(), std::nullopt);
    EXPECT_EQ(billing.addressLine1(), std::nullopt);
    EXPECT_EQ(billing.zip(), std::nullopt);
}

}  // namespace
}  // namespace vastrel
