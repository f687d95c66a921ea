#include "DecoderSummary.hpp"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace vastrel::codec {
namespace {

void appendDescriptionString(std::string& out, std::string_view text) {
    const auto isBare = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               std::strchr("_$/:.-", c) != nullptr;
    };
    if (!text.empty() && std::all_of(text.begin(), text.end(), isBare)) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '\n') {
            out += "\\n";
        } else {
            out += c;
        }
    }
    out += '"';
}

}  // namespace

std::string describeSummary(const Summary& summary) {
    std::string out = "{\n";
    for (const auto& [tag, entry] : summary) {
        out += "    ";
        appendDescriptionString(out, tag);
        out += " =     {\n        length = ";
        out += std::to_string(entry.length);
        out += ";\n        name = ";
        appendDescriptionString(out, entry.name);
        out += ";\n        value = ";
        appendDescriptionString(out, entry.value);
        out += ";\n    };\n";
    }
    out += '}';
    return out;
}

}  // namespace vastrel::codec
