#include "DecoderSummary.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>
#include <vector>

#include "vastrel/Tags/SensitiveData.hpp"

namespace vastrel::codec {
namespace {

// How a character affects the way a text is written: any character outside letters, digits
// and _$/:.- makes the text quoted, and " \ and newline are escaped within the quotes.
enum class CharClass : std::uint8_t { Bare, Quoted, Escaped };

constexpr std::array<CharClass, 256> kCharClass = [] {
    std::array<CharClass, 256> classes{};
    for (int c = 0; c < 256; ++c) {
        const bool bare =
            (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
            std::string_view("_$/:.-").find(static_cast<char>(c)) != std::string_view::npos;
        const bool escaped = c == '"' || c == '\\' || c == '\n';
        classes[c] = escaped ? CharClass::Escaped : bare ? CharClass::Bare : CharClass::Quoted;
    }
    return classes;
}();

// The class of the text: bare when every character is, escaped when any character is,
// quoted otherwise (an empty text too). Both scans stop early, which also keeps the
// compiler from turning them into slow vector gathers of the table.
CharClass classOf(std::string_view text) {
    const auto classAt = [text](std::size_t i) {
        return kCharClass[static_cast<unsigned char>(text[i])];
    };
    std::size_t i = 0;
    while (i < text.size() && classAt(i) == CharClass::Bare)
        ++i;
    if (i == text.size()) return text.empty() ? CharClass::Quoted : CharClass::Bare;
    for (; i < text.size(); ++i) {
        if (classAt(i) == CharClass::Escaped) return CharClass::Escaped;
    }
    return CharClass::Quoted;
}

// The fixed text of the line and of each entry.
constexpr std::string_view kOpen = "{\n";
constexpr std::string_view kClose = "}";
constexpr std::string_view kEntryOpen = "    ";
constexpr std::string_view kAfterTag = " =     {\n        length = ";
constexpr std::string_view kAfterLength = ";\n        name = ";
constexpr std::string_view kAfterName = ";\n        value = ";
constexpr std::string_view kEntryClose = ";\n    };\n";
constexpr std::size_t kEntryTextSize = kEntryOpen.size() + kAfterTag.size() + kAfterLength.size() +
                                       kAfterName.size() + kEntryClose.size();

// Masking writes at most this many characters in place of a value: "<", a 20-digit byte
// count and " bytes>".
constexpr std::size_t kMaskedValueSize = 28;

// The most characters a text of size characters takes once described: every character
// escaped, plus the quotes.
constexpr std::size_t describedBound(std::size_t size) { return 2 * size + 2; }

// Writes the line into storage sized for the worst case up front, so no single write has
// to check for room; the line's fixed text is copied in pieces of known size.
class LineWriter {
  public:
    explicit LineWriter(char* at) : at_(at) {}

    void text(std::string_view text) {
        std::memcpy(at_, text.data(), text.size());
        at_ += text.size();
    }

    // The text bare when it can be, else quoted, with " \ and newline escaped.
    void description(std::string_view text) {
        const CharClass textClass = classOf(text);
        if (textClass == CharClass::Bare) return this->text(text);
        *at_++ = '"';
        if (textClass == CharClass::Escaped) {
            escaped(text);
        } else {
            this->text(text);
        }
        *at_++ = '"';
    }

    const char* end() const { return at_; }

  private:
    void escaped(std::string_view quoted) {
        for (const char c : quoted) {
            if (c == '\n') {
                text("\\n");
                continue;
            }
            if (c == '"' || c == '\\') *at_++ = '\\';
            *at_++ = c;
        }
    }

    char* at_;
};

// A listed element and the first eight characters of its tag packed big-endian, so that
// comparing keys compares the tags as text; tags longer than eight characters (only byte
// numbers above 255 make them) fall back to comparing the text when the keys are equal.
struct Keyed {
    std::uint64_t key;
    std::uint32_t position;
};

// Built in a register: copying the few characters of a tag to memory and reading them
// back as one word stalls on the store.
std::uint64_t packedKey(std::string_view tag) {
    std::uint64_t key = 0;
    const std::size_t size = std::min<std::size_t>(tag.size(), sizeof key);
    for (std::size_t i = 0; i < size; ++i)
        key |= std::uint64_t{static_cast<unsigned char>(tag[i])} << (56 - 8 * i);
    return key;
}

// The listed positions with only the last of each tag kept, sorted by tag. Duplicates are
// found through an open-addressing table kept at most half full and grown as new tags turn
// up: a level of any size costs one pass and room for its few distinct tags, and only those
// are sorted.
std::vector<Keyed> lastOfEachTag(std::span<const TLVObject> elements,
                                 std::span<const std::uint32_t> listed) {
    const auto tagOf = [elements](std::uint32_t position) -> const std::string& {
        return *elements[position].tag();
    };
    constexpr std::uint32_t kEmpty = UINT32_MAX;
    // The slot that holds entry's tag, or the empty slot where it goes.
    const auto slotOf = [&tagOf](const std::vector<Keyed>& table, const Keyed& entry) {
        const std::size_t mask = table.size() - 1;
        // Fibonacci hashing: the top bits of the product depend on every character.
        const int shift = 64 - std::countr_zero(table.size());
        auto slot = static_cast<std::size_t>((entry.key * 0x9E3779B97F4A7C15) >> shift);
        while (
            table[slot].position != kEmpty &&
            (table[slot].key != entry.key || tagOf(table[slot].position) != tagOf(entry.position)))
            slot = (slot + 1) & mask;
        return slot;
    };
    std::vector<Keyed> slots(64, Keyed{0, kEmpty});
    std::size_t distinct = 0;
    for (const std::uint32_t position : listed) {
        const Keyed entry{packedKey(tagOf(position)), position};
        std::size_t slot = slotOf(slots, entry);
        if (slots[slot].position == kEmpty && 2 * ++distinct > slots.size()) {
            std::vector<Keyed> larger(2 * slots.size(), Keyed{0, kEmpty});
            for (const Keyed& kept : slots) {
                if (kept.position != kEmpty) larger[slotOf(larger, kept)] = kept;
            }
            slots = std::move(larger);
            slot = slotOf(slots, entry);
        }
        slots[slot] = entry;
    }
    std::erase_if(slots, [](const Keyed& slot) { return slot.position == kEmpty; });
    std::sort(slots.begin(), slots.end(), [&tagOf](const Keyed& a, const Keyed& b) {
        return a.key != b.key ? a.key < b.key : tagOf(a.position) < tagOf(b.position);
    });
    return slots;
}

}  // namespace

std::string describeLevel(std::span<const TLVObject> elements,
                          std::span<const std::uint32_t> listed, bool mask) {
    const std::vector<Keyed> shown = lastOfEachTag(elements, listed);
    std::size_t bound = kOpen.size() + kClose.size();
    for (const Keyed& entry : shown) {
        const TLVObject& element = elements[entry.position];
        bound += kEntryTextSize + describedBound(element.tag()->size()) + element.length()->size() +
                 describedBound(element.tagName()->size()) +
                 describedBound(std::max(element.value()->size(), kMaskedValueSize));
    }
    std::string out(bound, '\0');
    LineWriter line(out.data());
    std::string masked;  // reused by every entry
    line.text(kOpen);
    for (const Keyed& entry : shown) {
        const TLVObject& element = elements[entry.position];
        line.text(kEntryOpen);
        line.description(*element.tag());
        line.text(kAfterTag);
        line.text(*element.length());
        line.text(kAfterLength);
        line.description(*element.tagName());
        line.text(kAfterName);
        if (mask) {
            masked.clear();
            SensitiveData::appendMaskedValue(masked, *element.tag(), *element.value());
            line.description(masked);
        } else {
            line.description(*element.value());
        }
        line.text(kEntryClose);
    }
    line.text(kClose);
    out.resize(static_cast<std::size_t>(line.end() - out.data()));
    return out;
}

}  // namespace vastrel::codec
