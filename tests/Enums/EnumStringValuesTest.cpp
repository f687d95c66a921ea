#include "vastrel/Enums/EnumStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "support/Vectors.hpp"
#include "vastrel/Codec/DigitStringValues.hpp"

namespace vastrel {
namespace {

constexpr std::uint64_t kNegativeOne = ~std::uint64_t{0};

TEST(EnumStringValuesTest, SelectorOutsideOneToFourteenHasNoTable) {
    for (const std::uint64_t selector : {std::uint64_t{0}, std::uint64_t{15}, kNegativeOne}) {
        EXPECT_EQ(EnumStringValues::dictionaryForEnumType(EnumType{selector}), nullptr);
        EXPECT_EQ(EnumStringValues::valueForAnEnumType(EnumType{selector}, 0), std::nullopt);
    }
}

// All fourteen tables as the dictionaries hold them, pinned in enum-tables.golden.
TEST(EnumStringValuesTest, TablesMatchTheGoldenFile) {
    std::string tables;
    for (std::uint64_t selector = 1; selector <= 14; ++selector) {
        // Appended piece by piece: GCC 12 warns falsely (-Wrestrict) on "text" + to_string()
        // when it optimises for 32-bit ARM.
        tables.append("EnumType ").append(std::to_string(selector)).append("\n");
        for (const auto& [key, text] : *EnumStringValues::dictionaryForEnumType(EnumType{selector}))
            tables += key + "\t" + text + "\n";
    }
    EXPECT_EQ(tables, testing::readSourceFile("tests/Enums/enum-tables.golden"));
}

TEST(EnumStringValuesTest, TablesHoldOneEntryPerDistinctKey) {
    // Rows per table minus the collisions under "17": 26 -> 18 for type 7, 6 -> 5 for type 9.
    const std::size_t entries[] = {6, 4, 4, 10, 5, 12, 18, 9, 5, 10, 4, 1, 1, 7};
    for (std::uint64_t selector = 1; selector <= 14; ++selector) {
        const auto* table = EnumStringValues::dictionaryForEnumType(EnumType{selector});
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(table->size(), entries[selector - 1]) << "type " << selector;
    }
}

TEST(EnumStringValuesTest, LookupGivesTheDisplayStringOrNothing) {
    for (const auto& vector : testing::readVectors("tests/Enums/enum-vectors.txt")) {
        const EnumType type{std::stoull(vector.get("type"))};
        const auto value = static_cast<std::uint64_t>(std::stoll(vector.get("value")));
        const auto expected =
            vector.has("string") ? std::optional(vector.get("string")) : std::nullopt;
        EXPECT_EQ(EnumStringValues::valueForAnEnumType(type, value), expected) << vector.where();
    }
}

TEST(EnumStringValuesTest, LookupAgreesWithTheDictionaryUnderTheDigitKey) {
    for (std::uint64_t selector = 1; selector <= 14; ++selector) {
        const auto* table = EnumStringValues::dictionaryForEnumType(EnumType{selector});
        for (std::uint64_t value = 0; value <= 40; ++value) {
            const auto entry = table->find(DigitStringValues::stringForDigit(value));
            const auto expected =
                entry == table->end() ? std::nullopt : std::optional(entry->second);
            EXPECT_EQ(EnumStringValues::valueForAnEnumType(EnumType{selector}, value), expected)
                << "type " << selector << " value " << value;
        }
    }
}

}  // namespace
}  // namespace vastrel
