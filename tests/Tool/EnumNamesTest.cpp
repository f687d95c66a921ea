// The tool's enumeration names at the edges of the selector range 1 to 14.
#include "EnumNames.hpp"

#include <gtest/gtest.h>

#include <cstdint>

namespace vastrel::tool {
namespace {

TEST(EnumNamesTest, NamesSelectorsOneToFourteenOnly) {
    const struct {
        std::uint64_t selector;
        std::string_view name;
    } cases[] = {
        {0, ""},  {1, "TerminalType"},     {14, "TransactionResultType"},
        {15, ""}, {~std::uint64_t{0}, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(enumTypeName(EnumType{c.selector}), c.name) << c.selector;
}

}  // namespace
}  // namespace vastrel::tool
