#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace vastrel {

KeyedUnarchiver::KeyedUnarchiver(std::string_view json) {
    // Parse without exceptions so that every malformed archive, whatever nlohmann's reason,
    // surfaces as the one documented std::invalid_argument.
    const auto parsed = nlohmann::json::parse(json, nullptr, /*allow_exceptions=*/false);
    if (!parsed.is_object()) {
        throw std::invalid_argument("KeyedUnarchiver: archive is not a JSON object");
    }
    for (const auto& [key, value] : parsed.items()) {
        if (value.is_string()) {
            values_.emplace(key, value.get<std::string>());
        } else if (value.is_boolean()) {
            values_.emplace(key, value.get<bool>());
        } else {
            values_.emplace(key, std::monostate{});
        }
    }
}

std::optional<std::string> KeyedUnarchiver::decodeObjectForKey(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&found->second)) return *text;
    return std::nullopt;
}

bool KeyedUnarchiver::decodeBoolForKey(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return false;
    const auto* flag = std::get_if<bool>(&found->second);
    return flag != nullptr && *flag;
}

bool KeyedUnarchiver::containsValueForKey(std::string_view key) const {
    return values_.find(key) != values_.end();
}

}  // namespace vastrel
