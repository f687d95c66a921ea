#include "vastrel/Enums/ConversionHelper.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace vastrel {
namespace {

TEST(ConversionHelperTest, StatusCodesMapToReversalReasons) {
    struct Case {
        std::uint64_t status;
        std::uint64_t reason;
    };
    const Case cases[] = {
        {0, 6}, {1, 6}, {2, 3}, {3, 3},  {4, 3},
        {5, 1}, {6, 2}, {7, 3}, {99, 3}, {std::numeric_limits<std::uint64_t>::max(), 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.status);
        EXPECT_EQ(ConversionHelper::toReversalReason(c.status), ReversalReason{c.reason});
    }
}

}  // namespace
}  // namespace vastrel
