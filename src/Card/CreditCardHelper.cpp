#include "vastrel/Card/CreditCardHelper.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace vastrel {
namespace {

constexpr std::size_t kPrefixDigits = 6;

// A range of issuer numbers on the first `digits` characters, bounds included.
struct BrandRange {
    std::size_t digits;
    std::uint32_t low;
    std::uint32_t high;
    CardType brand;
};

// Tried in order; the first range that matches decides. The order is kept with its
// consequences, which callers rely on: 600..699 claims every number of three or more digits
// that starts with 6 before the Maestro (6304, 6759..6763) and UnionPay (62xx) ranges are
// reached, so those never decide, and the Mastercard 2-series has no range (UNKNOWN).
constexpr std::array<BrandRange, 24> kBrandRanges = {{
    {1, 4, 4, CardType::Visa},
    {2, 34, 34, CardType::Amex},
    {2, 37, 37, CardType::Amex},
    {2, 51, 55, CardType::Master},
    {2, 38, 39, CardType::DinersClub},
    {4, 3095, 3095, CardType::DinersClub},
    {2, 36, 36, CardType::DinersClub},
    {3, 300, 305, CardType::DinersClub},
    {3, 600, 699, CardType::Discover},
    {3, 644, 659, CardType::Discover},
    {6, 601186, 601199, CardType::Discover},
    {5, 60110, 60110, CardType::Discover},
    {5, 60112, 60114, CardType::Discover},
    {4, 3528, 3589, CardType::Jcb},
    {4, 5018, 5018, CardType::Maestro},
    {4, 5020, 5020, CardType::Maestro},
    {4, 5038, 5038, CardType::Maestro},
    {4, 6759, 6759, CardType::Maestro},
    {4, 6761, 6761, CardType::Maestro},
    {4, 6763, 6763, CardType::Maestro},
    {4, 6304, 6304, CardType::Maestro},
    {6, 622126, 622925, CardType::UnionPay},
    {4, 6240, 6269, CardType::UnionPay},
    {4, 6282, 6288, CardType::UnionPay},
}};

[[noreturn]] void abortOnNonDigit(std::size_t index) {
    std::fprintf(stderr,
                 "CreditCardHelper: the card number's first six characters must be digits "
                 "(character %zu is not)\n",
                 index);
    std::abort();
}

}  // namespace

bool CreditCardHelper::hasDigitPrefix(std::string_view cardNumber) noexcept {
    const std::string_view prefix = cardNumber.substr(0, kPrefixDigits);
    for (const char c : prefix) {
        if (c < '0' || c > '9') return false;
    }
    return true;
}

CardType CreditCardHelper::getCardTypeFromRedactedPan(std::string_view cardNumber) const {
    // prefixes[k] is the number formed by the first k characters, or 0 when the input is
    // shorter than k: no range contains 0, so a prefix that was not formed never matches.
    std::array<std::uint32_t, kPrefixDigits + 1> prefixes{};
    const std::size_t formed =
        cardNumber.size() < kPrefixDigits ? cardNumber.size() : kPrefixDigits;
    for (std::size_t k = 1; k <= formed; ++k) {
        const auto digit =
            static_cast<std::uint32_t>(static_cast<unsigned char>(cardNumber[k - 1]) - '0');
        if (digit > 9) abortOnNonDigit(k - 1);
        prefixes[k] = prefixes[k - 1] * 10 + digit;
    }
    auto matches = [&](const BrandRange& range) {
        const std::uint32_t prefix = prefixes[range.digits];
        return prefix >= range.low && prefix <= range.high;
    };
    for (const BrandRange& range : kBrandRanges) {
        if (matches(range)) return range.brand;
    }
    return CardType::Unknown;
}

}  // namespace vastrel
