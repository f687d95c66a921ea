#include "JsonWriter.hpp"

namespace vastrel::explain {

void JsonWriter::newline() {
    out_ += '\n';
    out_.append(2 * hasItems_.size(), ' ');
}

void JsonWriter::beforeValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (hasItems_.empty()) return;
    if (hasItems_.back()) out_ += ',';
    hasItems_.back() = true;
    newline();
}

void JsonWriter::open(char bracket) {
    beforeValue();
    out_ += bracket;
    hasItems_.push_back(false);
}

void JsonWriter::close(char bracket) {
    const bool hadItems = hasItems_.back();
    hasItems_.pop_back();
    if (hadItems) newline();
    out_ += bracket;
}

void JsonWriter::key(std::string_view name) {
    beforeValue();
    quoted(name);
    out_ += ": ";
    afterKey_ = true;
}

void JsonWriter::string(std::string_view text) {
    beforeValue();
    quoted(text);
}

void JsonWriter::quoted(std::string_view text) {
    static constexpr char kDigits[] = "0123456789abcdef";
    out_ += '"';
    std::size_t plainFrom = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x20 && byte != '"' && byte != '\\') continue;
        out_.append(text, plainFrom, i - plainFrom);
        plainFrom = i + 1;
        out_ += '\\';
        if (byte >= 0x20) {
            out_ += static_cast<char>(byte);
        } else {
            out_ += "u00";
            out_ += kDigits[byte >> 4];
            out_ += kDigits[byte & 0x0F];
        }
    }
    out_.append(text, plainFrom);
    out_ += '"';
}

void JsonWriter::number(std::size_t value) {
    beforeValue();
    out_ += std::to_string(value);
}

void JsonWriter::boolean(bool value) {
    beforeValue();
    out_ += value ? "true" : "false";
}

void JsonWriter::null() {
    beforeValue();
    out_ += "null";
}

std::string JsonWriter::finish() {
    out_ += '\n';
    return std::move(out_);
}

void writeChecks(JsonWriter& json, std::span<const OdaCheck> checks) {
    json.beginArray();
    for (const OdaCheck& check : checks) {
        json.beginObject();
        json.key("name");
        json.string(check.name);
        json.key("ok");
        if (check.ok) {
            json.boolean(*check.ok);
        } else {
            json.null();
        }
        json.key("detail");
        json.string(check.detail);
        json.endObject();
    }
    json.endArray();
}

}  // namespace vastrel::explain
