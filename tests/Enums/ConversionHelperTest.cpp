#include "vastrel/Enums/ConversionHelper.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

namespace vastrel {
namespace {

TEST(ConversionHelperTest, StatusCodesMapToReversalReasons) {
    const std::pair<std::uint64_t, std::uint64_t> cases[] = {
        {0, 6}, {1, 6}, {2, 3}, {4, 3}, {5, 1}, {6, 2}, {7, 3}, {99, 3}, {~std::uint64_t{0}, 3},
    };
    for (const auto& [status, reason] : cases) {
        EXPECT_EQ(ConversionHelper::toReversalReason(status), ReversalReason{reason}) << status;
    }
}

}  // namespace
}  // namespace vastrel
