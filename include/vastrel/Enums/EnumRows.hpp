#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// One display string of an enumeration, with the value it belongs to.
struct EnumRow {
    std::uint64_t value;
    std::string_view text;
};

// The rows behind EnumStringValues, as listed and before values from 17 up share one key:
// here 31 ("NO CVM REQUESTED") and 94 ("SIGNATURE REQUIRED") keep their own strings. For
// callers that must show each value by its own name. Immutable, safe from any thread.
class EnumRows {
  public:
    // Every row of the enumeration selected by type, in listed order; empty when type is
    // not 1 to 14. The rows live for the whole program.
    static std::span<const EnumRow> rowsForEnumType(EnumType type);

    // The text of the row listed for value, or "" when there is none.
    static std::string_view textFor(EnumType type, std::uint64_t value);
};

}  // namespace vastrel
