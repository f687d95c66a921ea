#include "vastrel/Codec/Utilities.hpp"

#include <array>
#include <cstddef>
#include <string_view>

#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel {

std::optional<std::string> Utilities::stringCurrencyCode(CurrencyCode code) {
    if (code == CurrencyCode::Usd) return "0840";
    return std::nullopt;
}

std::string Utilities::hexStringFromEMVTagEnum(std::int64_t tag) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    auto remaining = static_cast<std::uint64_t>(tag);
    std::array<char, 16> digits{};
    std::size_t start = digits.size();
    do {
        digits[--start] = kHexDigits[remaining & 0xF];
        remaining >>= 4;
    } while (remaining != 0);
    return std::string(digits.data() + start, digits.size() - start);
}

std::optional<std::string> Utilities::stringTerminalStatus(std::uint64_t status) {
    return EnumStringValues::valueForAnEnumType(EnumType::TerminalInteractionType, status);
}

}  // namespace vastrel
