#include "vastrel/Explain/CardRanges.hpp"

#include <algorithm>
#include <cstdint>

namespace vastrel {
namespace {

// Card numbers whose first `digits` digits lie between first and last, inclusive.
struct IssuerRange {
    std::uint32_t first;
    std::uint32_t last;
    std::uint8_t digits;
    PaymentScheme scheme;
};

using S = PaymentScheme;

// The schemes' published issuer identification number ranges.
constexpr IssuerRange kRanges[] = {
    {4, 4, 1, S::Visa},         {51, 55, 2, S::Mastercard}, {2221, 2720, 4, S::Mastercard},
    {34, 34, 2, S::Amex},       {37, 37, 2, S::Amex},       {6011, 6011, 4, S::Discover},
    {644, 649, 3, S::Discover}, {65, 65, 2, S::Discover},   {622126, 622925, 6, S::Discover},
    {300, 305, 3, S::Diners},   {3095, 3095, 4, S::Diners}, {36, 36, 2, S::Diners},
    {38, 39, 2, S::Diners},     {3528, 3589, 4, S::Jcb},    {62, 62, 2, S::UnionPay},
    {81, 81, 2, S::UnionPay},   {50, 50, 2, S::Maestro},    {56, 69, 2, S::Maestro},
    {2200, 2204, 4, S::Mir},    {9792, 9792, 4, S::Troy},   {65, 65, 2, S::Troy},
    {60, 60, 2, S::RuPay},      {652, 653, 3, S::RuPay},    {508, 508, 3, S::RuPay},
    {81, 82, 2, S::RuPay},      {353, 353, 3, S::RuPay},    {356, 356, 3, S::RuPay},
};

constexpr std::size_t kMaxPrefixDigits = 6;

}  // namespace

std::vector<PaymentScheme> CardRanges::schemesOf(std::string_view pan) {
    // The leading digits as numbers of every length up to six: prefixes[d] has d digits.
    std::uint32_t prefixes[kMaxPrefixDigits + 1] = {};
    std::size_t available = 0;
    while (available < kMaxPrefixDigits && available < pan.size() && pan[available] >= '0' &&
           pan[available] <= '9') {
        prefixes[available + 1] =
            prefixes[available] * 10 + static_cast<std::uint32_t>(pan[available] - '0');
        ++available;
    }
    std::vector<PaymentScheme> schemes;
    for (const auto& range : kRanges) {
        if (range.digits > available) continue;
        const std::uint32_t prefix = prefixes[range.digits];
        if (prefix < range.first || prefix > range.last) continue;
        if (std::find(schemes.begin(), schemes.end(), range.scheme) == schemes.end()) {
            schemes.push_back(range.scheme);
        }
    }
    return schemes;
}

bool CardRanges::hasOwnRanges(PaymentScheme scheme) noexcept {
    return scheme != S::Interac && scheme != S::Eftpos && scheme != S::CartesBancaires &&
           scheme != S::Any;
}

}  // namespace vastrel
