#pragma once

#include <string_view>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// The values of EMVTagHelper::cardholderAuthenticationMethodfromTlv in words, for people
// reading a CVM Results value. Stateless.
class CardholderAuthenticationMethods {
  public:
    // Which CVM codes give method, e.g. "enciphered PIN verified online" for 1; "" for a
    // value the reading never gives.
    static std::string_view meaning(CardholderAuthenticationMethod method);
};

}  // namespace vastrel
