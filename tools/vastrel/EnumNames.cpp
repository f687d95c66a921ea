#include "EnumNames.hpp"

#include <algorithm>
#include <array>
#include <charconv>

#include "Ascii.hpp"
#include "ToolError.hpp"
#include "vastrel/Enums/EnumRows.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel::tool {
namespace {

// Indexed by selector - 1.
constexpr std::array<std::string_view, 14> kEnumTypeNames = {
    "TerminalType",
    "GatewayType",
    "ConnectionType",
    "TransactionType",
    "CommercialCardDataField",
    "EMVErrorType",
    "TerminalInteractionType",
    "CardType",
    "CVMResult",
    "CardDataSourceType",
    "PinStatementType",
    "CurrencyCode",
    "CountryCode",
    "TransactionResultType",
};

std::string allChoices() {
    std::string choices;
    for (std::size_t i = 0; i < kEnumTypeNames.size(); ++i) {
        choices +=
            (i == 0 ? "" : ", ") + std::to_string(i + 1) + " " + std::string(kEnumTypeNames[i]);
    }
    return choices;
}

}  // namespace

std::string_view enumTypeName(EnumType type) {
    const auto index = static_cast<std::uint64_t>(type) - 1;
    return index < kEnumTypeNames.size() ? kEnumTypeNames[index] : std::string_view();
}

EnumType parseEnumType(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size() && number >= 1 &&
        number <= kEnumTypeNames.size()) {
        return static_cast<EnumType>(number);
    }
    for (std::size_t i = 0; i < kEnumTypeNames.size(); ++i) {
        if (equalsIgnoringCase(text, kEnumTypeNames[i])) return static_cast<EnumType>(i + 1);
    }
    throw InputError("unknown enumeration '" + std::string(text) + "'; choose one of " +
                     allChoices());
}

std::optional<std::uint64_t> valueForDisplayString(EnumType type, std::string_view text) {
    const auto* table = EnumStringValues::dictionaryForEnumType(type);
    if (table == nullptr) return std::nullopt;
    for (const auto& [key, name] : *table) {
        if (name == text) return std::stoull(key);
    }
    return std::nullopt;
}

std::string displayString(EnumType type, std::uint64_t value) {
    return EnumStringValues::valueForAnEnumType(type, value).value_or("");
}

std::string cvmResultText(CVMResult result) {
    return std::string(EnumRows::textFor(EnumType::CVMResult, static_cast<std::uint64_t>(result)));
}

}  // namespace vastrel::tool
