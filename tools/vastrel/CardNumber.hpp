#pragma once

#include <string_view>

namespace vastrel::tool {

// Throws InputError unless the first six characters of pan (all of them when it is
// shorter) are decimal digits. The brand detector stops the whole program on anything
// else, so every card number from the user passes through here first.
void requireDigitPrefix(std::string_view pan);

}  // namespace vastrel::tool
