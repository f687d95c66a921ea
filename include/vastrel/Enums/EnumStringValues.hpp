#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// The display strings of the fourteen enumerations selected by EnumType. Each table is
// keyed by DigitStringValues::stringForDigit of the value, so values from 17 up share the
// key "17"; where several rows collide there, the first listed row is kept
// ("DEVICE_BUSY", "SIGNATURE REQUIRED"). Built once, immutable, safe from any thread.
class EnumStringValues {
  public:
    // The table of the enumeration selected by type, from key to display string, or nullptr
    // when type is not 1 to 14. The table lives for the whole program.
    static const std::map<std::string, std::string>* dictionaryForEnumType(EnumType type);

    // The display string of value in the table selected by type; absent when type is not
    // 1 to 14 or the table has no entry under value's key.
    static std::optional<std::string> valueForAnEnumType(EnumType type, std::uint64_t value);
};

}  // namespace vastrel
