#pragma once

#include <string_view>

namespace vastrel {

// One entry of the EMV tag-name dictionary. Both views point into the library's own
// immutable table and stay valid for the life of the program.
struct TagNameEntry {
    std::string_view tag;  // uppercase hex of the tag bytes, "9F34"
    std::string_view name;
};

}  // namespace vastrel
