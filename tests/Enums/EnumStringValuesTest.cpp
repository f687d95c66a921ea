#include "vastrel/Enums/EnumStringValues.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "vastrel/Codec/DigitStringValues.hpp"

namespace vastrel {
namespace {

constexpr std::uint64_t kMaxValue = std::numeric_limits<std::uint64_t>::max();

TEST(EnumStringValuesTest, SelectorOutsideOneToFourteenHasNoTable) {
    for (const std::uint64_t selector : {std::uint64_t{0}, std::uint64_t{15}, kMaxValue}) {
        SCOPED_TRACE(selector);
        EXPECT_EQ(EnumStringValues::dictionaryForEnumType(EnumType{selector}), nullptr);
        EXPECT_EQ(EnumStringValues::valueForAnEnumType(EnumType{selector}, 0), std::nullopt);
    }
}

TEST(EnumStringValuesTest, TablesHoldOneEntryPerDistinctKey) {
    struct Case {
        EnumType type;
        std::size_t entries;
    };
    const Case cases[] = {
        {EnumType::TerminalType, 6},
        {EnumType::GatewayType, 4},
        {EnumType::ConnectionType, 4},
        {EnumType::TransactionType, 10},
        {EnumType::CommercialCardDataField, 5},
        {EnumType::EMVErrorType, 12},
        {EnumType::TerminalInteractionType, 18},  // 26 rows, values 17..25 share "17"
        {EnumType::CardType, 9},
        {EnumType::CVMResult, 5},  // 6 rows, 94 and 31 share "17"
        {EnumType::CardDataSourceType, 10},
        {EnumType::PinStatementType, 4},
        {EnumType::CurrencyCode, 1},
        {EnumType::CountryCode, 1},
        {EnumType::TransactionResultType, 7},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<std::uint64_t>(c.type));
        const auto* table = EnumStringValues::dictionaryForEnumType(c.type);
        ASSERT_NE(table, nullptr);
        EXPECT_EQ(table->size(), c.entries);
    }
}

TEST(EnumStringValuesTest, LookupGivesTheDisplayStringOrNothing) {
    struct Case {
        EnumType type;
        std::uint64_t value;
        std::optional<std::string> expected;
        const char* reason;
    };
    const Case cases[] = {
        {EnumType::TerminalType, 0, "INGENICO_RP450C", "first reader"},
        {EnumType::TerminalType, 5, "NO_READER", "last reader"},
        {EnumType::TerminalType, 6, std::nullopt, "past the last reader"},
        {EnumType::GatewayType, 3, "GatewayTypeAstrinel", "named like its enumerator"},
        {EnumType::ConnectionType, 2, "TCP_IP", ""},
        {EnumType::TransactionType, 6, "TransactionTypeRefundWithReference", ""},
        {EnumType::CommercialCardDataField, 2, "CommercialCardDataFieldCustomerRefID", ""},
        {EnumType::EMVErrorType, 10, "GENERAL_ERROR", ""},
        {EnumType::EMVErrorType, 12, std::nullopt, "no such error type"},
        {EnumType::EMVErrorType, 17, std::nullopt, "shared key absent from this table"},
        {EnumType::TerminalInteractionType, 16, "DO_NOT_REMOVE_CARD", "last own key"},
        {EnumType::TerminalInteractionType, 17, "DEVICE_BUSY", "first row under 17 kept"},
        {EnumType::TerminalInteractionType, 20, "DEVICE_BUSY", "PIN_ACCEPTED shadowed"},
        {EnumType::TerminalInteractionType, 25, "DEVICE_BUSY", "NONE shadowed"},
        {EnumType::TerminalInteractionType, 26, "DEVICE_BUSY", "unlisted, still key 17"},
        {EnumType::CardType, 5, "DINERS CLUB", "blank kept"},
        {EnumType::CardType, 8, "UNKNOWN", ""},
        {EnumType::CVMResult, 0, "NOT AVAILABLE", "listed last, own key"},
        {EnumType::CVMResult, 1, "PIN ONLINE", ""},
        {EnumType::CVMResult, 3, "PIN OFFLINE PLAIN", ""},
        {EnumType::CVMResult, 4, std::nullopt, "gap between 3 and 31"},
        {EnumType::CVMResult, 94, "SIGNATURE REQUIRED", "first row under 17 kept"},
        {EnumType::CVMResult, 31, "SIGNATURE REQUIRED", "NO CVM REQUESTED shadowed"},
        {EnumType::CVMResult, 63, "SIGNATURE REQUIRED", "unlisted, still key 17"},
        {EnumType::CVMResult, static_cast<std::uint64_t>(std::int64_t{-1}), "SIGNATURE REQUIRED",
         "negative reads as a huge unsigned value"},
        {EnumType::CardDataSourceType, 2, "ContactlessMSR", ""},
        {EnumType::PinStatementType, 1, "PIN VERIFIED", ""},
        {EnumType::CurrencyCode, 0, "USD", ""},
        {EnumType::CurrencyCode, 1, std::nullopt, "only one currency"},
        {EnumType::CountryCode, 0, "US", ""},
        {EnumType::CountryCode, 1, std::nullopt, "only one country"},
        {EnumType::TransactionResultType, 6, "Transaction Cancelled", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << "type " << static_cast<std::uint64_t>(c.type)
                                          << " value " << c.value << ": " << c.reason);
        EXPECT_EQ(EnumStringValues::valueForAnEnumType(c.type, c.value), c.expected);
    }
}

TEST(EnumStringValuesTest, LookupAgreesWithTheDictionaryUnderTheDigitKey) {
    std::vector<std::uint64_t> values;
    for (std::uint64_t value = 0; value <= 40; ++value)
        values.push_back(value);
    values.push_back(kMaxValue);
    for (std::uint64_t selector = 1; selector <= 14; ++selector) {
        const auto* table = EnumStringValues::dictionaryForEnumType(EnumType{selector});
        ASSERT_NE(table, nullptr);
        for (const std::uint64_t value : values) {
            SCOPED_TRACE(::testing::Message() << "type " << selector << " value " << value);
            const auto entry = table->find(DigitStringValues::stringForDigit(value));
            const std::optional<std::string> expected =
                entry == table->end() ? std::nullopt : std::optional(entry->second);
            EXPECT_EQ(EnumStringValues::valueForAnEnumType(EnumType{selector}, value), expected);
        }
    }
}

TEST(EnumStringValuesTest, TablesAreSharedAndSafeToReadFromManyThreads) {
    const auto* first = EnumStringValues::dictionaryForEnumType(EnumType::CardType);
    std::vector<std::thread> threads;
    std::vector<int> mismatches(8, 0);
    for (std::size_t t = 0; t < mismatches.size(); ++t) {
        threads.emplace_back([&mismatches, first, t] {
            for (int i = 0; i < 1000; ++i) {
                if (EnumStringValues::dictionaryForEnumType(EnumType::CardType) != first) {
                    ++mismatches[t];
                }
                if (EnumStringValues::valueForAnEnumType(EnumType::TerminalInteractionType, 20) !=
                    "DEVICE_BUSY") {
                    ++mismatches[t];
                }
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(mismatches, std::vector<int>(mismatches.size(), 0));
}

}  // namespace
}  // namespace vastrel
