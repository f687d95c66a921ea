#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

// Decimal keys for the enumeration string tables.
class DigitStringValues {
  public:
    // "0" to "16" for the values 0 to 16, and "17" for every other value. Callers rely on
    // the cap: all values from 17 up share one table key.
    static std::string stringForDigit(std::uint64_t value);
};

}  // namespace vastrel
