#pragma once

#include <string>
#include <string_view>

namespace vastrel::tool {

// The text shown for an element's value (hex) in decode output, text and JSON alike.
// Every value printed by `decode` passes through here, so the rules for card data that
// must not be shown in full live in this one place.
std::string displayValue(std::string_view tag, std::string_view value);

}  // namespace vastrel::tool
