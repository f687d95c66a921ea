#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vastrel {

// Writes values under string keys into a JSON object, in the order they are written.
// Writing a key again replaces its value and keeps its first position.
class KeyedArchiver {
  public:
    // Writes a string, or JSON null for an absent one.
    void encodeObject(const std::optional<std::string>& value, std::string_view key);
    void encodeBool(bool value, std::string_view key);

    // The keys in the order they were first written.
    [[nodiscard]] std::vector<std::string> keys() const;

    // The archive as JSON text.
    [[nodiscard]] std::string data() const;

  private:
    using Value = std::variant<std::monostate, std::string, bool>;
    void put(std::string_view key, Value value);

    std::vector<std::pair<std::string, Value>> entries_;
};

}  // namespace vastrel
