#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel {

// The schemes whose issuer ranges hold a card number, from the leading digits of the PAN
// (a masked number works: only the first six digits are read). Ranges overlap (65 is both
// Discover's and RuPay's; JCB and RuPay share co-branded 353 and 356), so a number may
// belong to several schemes. The contract's CreditCardHelper keeps its own, older rules.
class CardRanges {
  public:
    // Every scheme with a range that holds pan, in the table's order; empty when none does
    // or when pan does not start with a digit.
    [[nodiscard]] static std::vector<PaymentScheme> schemesOf(std::string_view pan);

    // False for the schemes whose cards carry their issuer's own BIN, from another scheme's
    // range (Interac, eftpos and Cartes Bancaires are co-badged debit networks), so that a
    // card number cannot be checked against them.
    [[nodiscard]] static bool hasOwnRanges(PaymentScheme scheme) noexcept;
};

}  // namespace vastrel
