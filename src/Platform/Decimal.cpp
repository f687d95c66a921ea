#include "vastrel/Platform/Decimal.hpp"

#include <cstring>
#include <stdexcept>
#include <string>

extern "C" {
#include <bid_conf.h>
#include <bid_functions.h>
}

namespace vastrel {
namespace {

// Every operation rounds to nearest-even and reports through a local flag word, so no
// global state of the decimal library is touched and all of it is thread-safe.
constexpr _IDEC_round kRounding = BID_ROUNDING_TO_NEAREST;
constexpr std::size_t kMaxDigits = 34;

BID_UINT128 toBid(std::uint64_t low, std::uint64_t high) noexcept {
    BID_UINT128 value;
    value.w[BID_LOW_128W] = low;
    value.w[BID_HIGH_128W] = high;
    return value;
}

// True for text of the form -?[0-9]+(\.[0-9]+)? with at most 34 digits.
bool isPlainDecimal(std::string_view text) noexcept {
    std::size_t i = text.starts_with('-') ? 1 : 0;
    std::size_t digits = 0;
    std::size_t integerDigits = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        ++integerDigits;
    if (integerDigits == 0) return false;
    digits += integerDigits;
    if (i < text.size() && text[i] == '.') {
        ++i;
        std::size_t fractionDigits = 0;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
            ++fractionDigits;
        if (fractionDigits == 0) return false;
        digits += fractionDigits;
    }
    return i == text.size() && digits <= kMaxDigits;
}

}  // namespace

Decimal::Decimal() noexcept : Decimal(std::string_view("0")) {}

Decimal::Decimal(std::string_view text) {
    if (!isPlainDecimal(text)) {
        throw std::invalid_argument("Decimal: not a plain decimal number: \"" + std::string(text) +
                                    "\"");
    }
    std::string terminated(text);
    _IDEC_flags flags = 0;
    const BID_UINT128 value = bid128_from_string(terminated.data(), kRounding, &flags);
    bits_ = Bits{value.w[BID_LOW_128W], value.w[BID_HIGH_128W]};
}

std::string Decimal::description() const {
    // The library prints [+-]<coefficient>E[+-]<exponent>; turn that into plain text.
    char raw[64] = {};
    _IDEC_flags flags = 0;
    bid128_to_string(raw, toBid(bits_.low, bits_.high), &flags);

    const std::string_view printed(raw);
    const bool negative = !printed.empty() && printed.front() == '-';
    const std::size_t ePosition = printed.find('E');
    std::string coefficient(printed.substr(1, ePosition - 1));
    long exponent = std::stol(std::string(printed.substr(ePosition + 1)));

    // Drop fraction zeros first: 1250E-2 is 12.5, while 100E0 stays 100.
    while (exponent < 0 && coefficient.size() > 1 && coefficient.back() == '0') {
        coefficient.pop_back();
        ++exponent;
    }
    if (coefficient == "0") return "0";

    std::string text;
    if (exponent >= 0) {
        text = coefficient;
        text.append(static_cast<std::size_t>(exponent), '0');
    } else {
        const auto fractionDigits = static_cast<std::size_t>(-exponent);
        if (coefficient.size() <= fractionDigits) {
            coefficient.insert(0, fractionDigits - coefficient.size() + 1, '0');
        }
        text = coefficient;
        text.insert(text.size() - fractionDigits, 1, '.');
    }
    return negative ? "-" + text : text;
}

bool operator==(const Decimal& lhs, const Decimal& rhs) noexcept {
    _IDEC_flags flags = 0;
    return bid128_quiet_equal(toBid(lhs.bits_.low, lhs.bits_.high),
                              toBid(rhs.bits_.low, rhs.bits_.high), &flags) != 0;
}

std::weak_ordering operator<=>(const Decimal& lhs, const Decimal& rhs) noexcept {
    if (lhs == rhs) return std::weak_ordering::equivalent;
    _IDEC_flags flags = 0;
    const bool less = bid128_quiet_less(toBid(lhs.bits_.low, lhs.bits_.high),
                                        toBid(rhs.bits_.low, rhs.bits_.high), &flags) != 0;
    return less ? std::weak_ordering::less : std::weak_ordering::greater;
}

Decimal operator+(const Decimal& lhs, const Decimal& rhs) noexcept {
    _IDEC_flags flags = 0;
    const BID_UINT128 sum = bid128_add(toBid(lhs.bits_.low, lhs.bits_.high),
                                       toBid(rhs.bits_.low, rhs.bits_.high), kRounding, &flags);
    return Decimal(Decimal::Bits{sum.w[BID_LOW_128W], sum.w[BID_HIGH_128W]});
}

Decimal operator-(const Decimal& lhs, const Decimal& rhs) noexcept {
    _IDEC_flags flags = 0;
    const BID_UINT128 difference =
        bid128_sub(toBid(lhs.bits_.low, lhs.bits_.high), toBid(rhs.bits_.low, rhs.bits_.high),
                   kRounding, &flags);
    return Decimal(Decimal::Bits{difference.w[BID_LOW_128W], difference.w[BID_HIGH_128W]});
}

Decimal operator*(const Decimal& lhs, const Decimal& rhs) noexcept {
    _IDEC_flags flags = 0;
    const BID_UINT128 product = bid128_mul(toBid(lhs.bits_.low, lhs.bits_.high),
                                           toBid(rhs.bits_.low, rhs.bits_.high), kRounding, &flags);
    return Decimal(Decimal::Bits{product.w[BID_LOW_128W], product.w[BID_HIGH_128W]});
}

}  // namespace vastrel
