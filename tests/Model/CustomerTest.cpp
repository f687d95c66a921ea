#include "vastrel/Model/Customer.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

TEST(CustomerTest, NewCustomerHasAbsentRatherThanEmptyFields) {
    const Customer customer;
    EXPECT_EQ(customer.emailAddress(), std::nullopt);
    EXPECT_EQ(customer.phone(), std::nullopt);
}

TEST(CustomerTest, CopyHoldsTheSourceValuesAndIgnoresLaterChangesToIt) {
    Customer source;
    source.setEmailAddress("pat@example.com");
    source.setPhone("+1 555 0100");
    const Customer copy = source.copy();
    source.setPhone(std::nullopt);
    EXPECT_EQ(copy.emailAddress(), "pat@example.com");
    EXPECT_EQ(copy.phone(), "+1 555 0100");
}

}  // namespace
}  // namespace vastrel
