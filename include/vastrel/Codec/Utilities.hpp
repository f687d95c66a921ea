#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// Small conversions of codes to text.
class Utilities {
  public:
    // The ISO 4217 numeric code as four digits: "0840" for CurrencyCode::Usd, absent for
    // every other value.
    static std::optional<std::string> stringCurrencyCode(CurrencyCode code);

    // The tag number in uppercase hex without leading zeros (0x9F02 gives "9F02", 0x0A gives
    // "A", 0 gives "0"). A negative number is written as its 64-bit two's complement
    // (-1 gives "FFFFFFFFFFFFFFFF"), as "%lX" prints it.
    static std::string hexStringFromEMVTagEnum(std::int64_t tag);

    // The TerminalInteractionType display string for status; absent when there is none.
    // Every status from 17 up gives the one string kept under the shared key.
    static std::optional<std::string> stringTerminalStatus(std::uint64_t status);
};

}  // namespace vastrel
