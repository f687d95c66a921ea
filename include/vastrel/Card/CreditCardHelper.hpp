#pragma once

#include <string_view>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// Card brand detection from the leading digits of a (masked) card number.
class CreditCardHelper {
  public:
    // The brand of the card whose number starts with cardNumber's first six characters; the
    // rest may be mask characters. Short or empty input that matches no rule is
    // CardType::Unknown. Every one of the first min(size, 6) characters must be a decimal
    // digit: otherwise the reason goes to stderr and the program stops (std::abort).
    CardType getCardTypeFromRedactedPan(std::string_view cardNumber) const;

    // True when getCardTypeFromRedactedPan can classify cardNumber without stopping the
    // program: each of its first min(size, 6) characters is a decimal digit.
    static bool hasDigitPrefix(std::string_view cardNumber) noexcept;
};

}  // namespace vastrel
