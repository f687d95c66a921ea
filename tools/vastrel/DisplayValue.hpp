#pragma once

#include <string>
#include <string_view>

#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel::tool {

// How a command shows element values (hex), in text and JSON alike: card data masked as
// CardDataPolicy says, in the kernel of the AID found in the same data, unless the user
// asked for it in full (--show-sensitive).
class ValueDisplay {
  public:
    // data is all of the command's input, as hex: it is read for an AID.
    ValueDisplay(std::string_view data, bool showSensitive);

    [[nodiscard]] std::string operator()(std::string_view tagHex, std::string_view valueHex) const;

    // A whole element (tag, length and value, as hex) with the card data inside it masked.
    [[nodiscard]] std::string element(std::string_view tlvHex) const;

  private:
    PaymentScheme scheme_ = PaymentScheme::Any;
    bool showSensitive_ = false;
};

}  // namespace vastrel::tool
