#pragma once

#include <algorithm>
#include <string_view>

namespace vastrel::tool {

// ASCII letter case, whatever the locale: the tool's words and hex are ASCII.
constexpr char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

constexpr bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, asciiUpper, asciiUpper);
}

}  // namespace vastrel::tool
