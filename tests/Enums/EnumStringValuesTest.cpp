#include "vastrel/Enums/EnumStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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
    struct Case {
        EnumType type;
        std::uint64_t value;
        std::optional<std::string> expected;
    };
    const Case cases[] = {
        {EnumType::TerminalType, 5, "NO_READER"},
        {EnumType::TerminalType, 6, std::nullopt},
        {EnumType::EMVErrorType, 10, "GENERAL_ERROR"},
        {EnumType::EMVErrorType, 12, std::nullopt},
        {EnumType::EMVErrorType, 17, std::nullopt},  // no row under the shared key
        {EnumType::TerminalInteractionType, 16, "DO_NOT_REMOVE_CARD"},
        {EnumType::TerminalInteractionType, 17, "DEVICE_BUSY"},  // first row under "17" kept
        {EnumType::TerminalInteractionType, 25, "DEVICE_BUSY"},  // NONE is shadowed
        {EnumType::CardType, 5, "DINERS CLUB"},
        {EnumType::CVMResult, 0, "NOT AVAILABLE"},
        {EnumType::CVMResult, 1, "PIN ONLINE"},
        {EnumType::CVMResult, 4, std::nullopt},
        {EnumType::CVMResult, 94, "SIGNATURE REQUIRED"},
        {EnumType::CVMResult, 31, "SIGNATURE REQUIRED"},  // NO CVM REQUESTED is shadowed
        {EnumType::CVMResult, 63, "SIGNATURE REQUIRED"},
        {EnumType::CVMResult, kNegativeOne, "SIGNATURE REQUIRED"},
        {EnumType::CurrencyCode, 0, "USD"},
        {EnumType::CountryCode, 0, "US"},
        {EnumType::CountryCode, 1, std::nullopt},
        {EnumType::TransactionResultType, 6, "Transaction Cancelled"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(EnumStringValues::valueForAnEnumType(c.type, c.value), c.expected)
            << "type " << static_cast<std::uint64_t>(c.type) << " value " << c.value;
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
