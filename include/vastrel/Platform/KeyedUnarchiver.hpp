#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace vastrel {

// Reads values by key from a JSON object written by KeyedArchiver (or any JSON object).
class KeyedUnarchiver {
  public:
    // Parses the archive. Throws std::invalid_argument when the text is not a JSON object.
    explicit KeyedUnarchiver(std::string_view json);

    // The string under key; absent when the key is missing or holds anything but a string.
    [[nodiscard]] std::optional<std::string> decodeObjectForKey(std::string_view key) const;

    // The bool under key; false when the key is missing or holds anything but a bool.
    [[nodiscard]] bool decodeBoolForKey(std::string_view key) const;

    // True when the archive has an entry for key (even a null one).
    [[nodiscard]] bool containsValueForKey(std::string_view key) const;

  private:
    using Value = std::variant<std::monostate, std::string, bool>;
    std::map<std::string, Value, std::less<>> values_;
};

}  // namespace vastrel
