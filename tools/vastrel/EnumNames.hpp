#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel::tool {

// The C++ name of the enumeration that type selects ("CardType"); "" outside 1 to 14.
std::string_view enumTypeName(EnumType type);

// The selector named by text: a number from 1 to 14, or an enumeration name in any letter
// case ("CardType", "cardtype"). Throws InputError naming the choices otherwise.
EnumType parseEnumType(std::string_view text);

// The value whose display string is text, exactly, in the table of type; absent when no
// value has it. Only for tables without values from 17 up, whose rows share one key.
std::optional<std::uint64_t> valueForDisplayString(EnumType type, std::string_view text);

// The display string of value in the table of type, or "" when it has none.
std::string displayString(EnumType type, std::uint64_t value);

// The display string of each CVMResult value on its own ("NO CVM REQUESTED" for 31), from
// the library's rows. Its string table keeps 31 and 94 under one shared key, so its lookup
// answers "SIGNATURE REQUIRED" for both; a receipt or a CVM reading must tell them apart.
// "" for a value that is not a CVMResult.
std::string cvmResultText(CVMResult result);

}  // namespace vastrel::tool
