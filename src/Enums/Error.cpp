#include "vastrel/Enums/Error.hpp"

#include <stdexcept>
#include <string>
#include <utility>

#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel {

std::shared_ptr<const Error> Error::emvErrorType(EMVErrorType type,
                                                 std::optional<std::string_view> message) {
    const auto value = static_cast<std::uint64_t>(type);
    std::optional<std::string> name =
        EnumStringValues::valueForAnEnumType(EnumType::EMVErrorType, value);
    if (!name) {
        throw std::invalid_argument("EMVErrorType " + std::to_string(value) +
                                    " has no display string");
    }
    if (!message) throw std::invalid_argument("An error needs a message");
    // The display string is both the domain and the one user-information key; callers
    // read the message back under it.
    std::map<std::string, std::string> userInfo{{*name, std::string(*message)}};
    return std::make_shared<const Error>(std::move(*name), static_cast<std::int64_t>(value),
                                         std::move(userInfo));
}

}  // namespace vastrel
