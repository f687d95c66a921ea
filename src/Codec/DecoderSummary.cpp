#include "DecoderSummary.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>
#include <vector>

#include "vastrel/Tags/SensitiveData.hpp"

namespace vastrel::codec {
namespace {

constexpr std::array<bool, 256> kBare = [] {
    std::array<bool, 256> bare{};
    for (int c = 0; c < 256; ++c) {
        bare[c] = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                  std::string_view("_$/:.-").find(static_cast<char>(c)) != std::string_view::npos;
    }
    return bare;
}();

bool isBare(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return kBare[static_cast<unsigned char>(c)];
    });
}

void appendQuoted(std::string& out, std::string_view text) {
    out += '"';
    std::size_t plain = 0;  // start of the characters not yet copied
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c != '"' && c != '\\' && c != '\n') continue;
        out.append(text, plain, i - plain);
        out += c == '\n' ? "\\n" : c == '"' ? "\\\"" : "\\\\";
        plain = i + 1;
    }
    out.append(text, plain);
    out += '"';
}

void appendDescription(std::string& out, std::string_view text) {
    if (isBare(text)) {
        out += text;
    } else {
        appendQuoted(out, text);
    }
}

// The value goes into out as masking writes it, and is quoted afterwards in the rare case
// that it needs quotes, so the common value is copied once.
void appendValueDescription(std::string& out, std::string_view tag, std::string_view value,
                            bool mask) {
    const std::size_t start = out.size();
    if (mask) {
        SensitiveData::appendMaskedValue(out, tag, value);
    } else {
        out += value;
    }
    if (isBare(std::string_view(out).substr(start))) return;
    const std::string shown = out.substr(start);
    out.resize(start);
    appendQuoted(out, shown);
}

std::size_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;  // FNV-1a
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

// The listed positions with only the last of each tag kept, sorted by tag. Duplicates are
// found through an open-addressing table of positions + 1, so a level of any size costs one
// pass; only the distinct tags are sorted.
std::vector<std::uint32_t> lastOfEachTag(std::span<const TLVObject> elements,
                                         std::span<const std::uint32_t> listed) {
    const auto tagOf = [elements](std::uint32_t position) -> const std::string& {
        return *elements[position].tag();
    };
    std::vector<std::uint32_t> slots(std::bit_ceil(2 * listed.size() + 1), 0);
    const std::size_t mask = slots.size() - 1;
    for (const std::uint32_t position : listed) {
        std::size_t slot = hashOf(tagOf(position)) & mask;
        while (slots[slot] != 0 && tagOf(slots[slot] - 1) != tagOf(position))
            slot = (slot + 1) & mask;
        slots[slot] = position + 1;
    }
    std::erase(slots, 0);
    for (std::uint32_t& slot : slots)
        --slot;
    std::sort(slots.begin(), slots.end(),
              [&tagOf](std::uint32_t a, std::uint32_t b) { return tagOf(a) < tagOf(b); });
    return slots;
}

}  // namespace

std::string describeLevel(std::span<const TLVObject> elements,
                          std::span<const std::uint32_t> listed, bool mask) {
    const std::vector<std::uint32_t> shown = lastOfEachTag(elements, listed);
    constexpr std::size_t kFixedTextPerEntry = 72;
    std::size_t size = 2;
    for (const std::uint32_t position : shown) {
        const TLVObject& element = elements[position];
        size += kFixedTextPerEntry + element.tag()->size() + element.tagName()->size() +
                element.value()->size();
    }
    std::string out;
    out.reserve(size);
    out += "{\n";
    for (const std::uint32_t position : shown) {
        const TLVObject& element = elements[position];
        out += "    ";
        appendDescription(out, *element.tag());
        out += " =     {\n        length = ";
        out += *element.length();
        out += ";\n        name = ";
        appendDescription(out, *element.tagName());
        out += ";\n        value = ";
        appendValueDescription(out, *element.tag(), *element.value(), mask);
        out += ";\n    };\n";
    }
    out += '}';
    return out;
}

}  // namespace vastrel::codec
