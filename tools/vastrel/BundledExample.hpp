#pragma once

#include <string_view>

namespace vastrel::tool {

// The example chip sale (examples/chip-pin-sale.json) compiled into the program, printed
// by `vastrel receipt` when no file is given.
std::string_view bundledExampleJson();

}  // namespace vastrel::tool
