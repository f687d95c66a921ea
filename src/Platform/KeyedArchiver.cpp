#include "vastrel/Platform/KeyedArchiver.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace vastrel {

void KeyedArchiver::encodeObject(const std::optional<std::string>& value, std::string_view key) {
    put(key, value ? Value(*value) : Value(std::monostate{}));
}

void KeyedArchiver::encodeBool(bool value, std::string_view key) { put(key, Value(value)); }

void KeyedArchiver::put(std::string_view key, Value value) {
    const auto existing = std::find_if(entries_.begin(), entries_.end(),
                                       [key](const auto& entry) { return entry.first == key; });
    if (existing != entries_.end()) {
        existing->second = std::move(value);
    } else {
        entries_.emplace_back(std::string(key), std::move(value));
    }
}

std::vector<std::string> KeyedArchiver::keys() const {
    std::vector<std::string> result;
    result.reserve(entries_.size());
    for (const auto& [key, value] : entries_)
        result.push_back(key);
    return result;
}

std::string KeyedArchiver::data() const {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (const auto& [key, value] : entries_) {
        if (const auto* text = std::get_if<std::string>(&value)) {
            object[key] = *text;
        } else if (const auto* flag = std::get_if<bool>(&value)) {
            object[key] = *flag;
        } else {
            object[key] = nullptr;
        }
    }
    return object.dump();
}

}  // namespace vastrel
