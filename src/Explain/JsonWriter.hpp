#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Oda/OdaCheck.hpp"

namespace vastrel::explain {

// Writes JSON text straight into a string, in the layout of the tool's other JSON output:
// two blanks of indentation per level, "key": value, and no trailing blanks. Callers open
// and close objects and arrays in order; the writer places the commas.
class JsonWriter {
  public:
    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    void key(std::string_view name);
    void string(std::string_view text);
    void number(std::size_t value);
    void boolean(bool value);
    void null();

    // The text, ending in a newline.
    [[nodiscard]] std::string finish();

  private:
    void open(char bracket);
    void close(char bracket);
    void beforeValue();
    void newline();
    void quoted(std::string_view text);

    std::string out_;
    std::vector<bool> hasItems_;  // per open level: something was written in it
    bool afterKey_ = false;
};

// [{"name", "ok" (null when not checked), "detail"}], the checks of offline data
// authentication and of CA keys.
void writeChecks(JsonWriter& json, std::span<const OdaCheck> checks);

}  // namespace vastrel::explain
