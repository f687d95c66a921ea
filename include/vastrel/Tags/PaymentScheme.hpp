#pragma once

#include <cstdint>
#include <string_view>

namespace vastrel {

// The card schemes that explanations tell apart: by the RID of an application identifier,
// by the range of a card number, and where a tag means different things in different
// contactless kernels. Any stands for "every scheme" in the dictionary and "not known"
// elsewhere.
enum class PaymentScheme : std::uint8_t {
    Any,
    Visa,
    Mastercard,
    Maestro,
    Amex,
    Discover,
    Diners,
    Jcb,
    UnionPay,
    Mir,
    Troy,
    RuPay,
    Interac,
    CartesBancaires,
    Eftpos,
};

// The scheme's name as cards print it: "Visa", "American Express"; "unknown" for Any.
[[nodiscard]] std::string_view schemeName(PaymentScheme scheme) noexcept;

}  // namespace vastrel
