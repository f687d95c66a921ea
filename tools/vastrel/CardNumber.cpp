#include "CardNumber.hpp"

#include <algorithm>
#include <string>

#include "ToolError.hpp"

namespace vastrel::tool {

void requireDigitPrefix(std::string_view pan) {
    const std::string_view prefix = pan.substr(0, std::min<std::size_t>(pan.size(), 6));
    const bool allDigits =
        std::all_of(prefix.begin(), prefix.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!allDigits) {
        // Only the refused prefix is echoed: the rest may be a real card number.
        throw InputError(
            "a card number must start with six digits (mask characters may "
            "follow); this one starts with '" +
            std::string(prefix) + "'");
    }
}

}  // namespace vastrel::tool
