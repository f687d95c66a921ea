#include "CardNumber.hpp"

#include <string>

#include "ToolError.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"

namespace vastrel::tool {

void requireDigitPrefix(std::string_view pan) {
    if (!CreditCardHelper::hasDigitPrefix(pan)) {
        const std::string_view prefix = pan.substr(0, 6);
        // Only the refused prefix is echoed: the rest may be a real card number.
        throw InputError(
            "a card number must start with six digits (mask characters may "
            "follow); this one starts with '" +
            std::string(prefix) + "'");
    }
}

}  // namespace vastrel::tool
