#include "vastrel/Codec/TLVDecoder.hpp"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "CodecRules.hpp"
#include "DecoderSummary.hpp"
#include "HexDecode.hpp"
#include "HexEncode.hpp"
#include "vastrel/Codec/BerLength.hpp"
#include "vastrel/Codec/TLVDepth.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel {
namespace {

// The byte numbers as "%02lX" writes each one: two uppercase digits for 0 to 255, more for
// larger numbers, and a negative number as its 64-bit two's complement.
std::string hexOfByteNumbers(std::span<const std::int32_t> bytes) {
    std::string out(2 * bytes.size(), '\0');
    const char* pairs = codec::kHexPairs<true>.data();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<std::uint32_t>(bytes[i]);
        if (b > 0xFF) {
            // Only a caller of decodeTlv that passes numbers outside a byte gets here.
            out.clear();
            for (const std::int32_t wide : bytes) {
                codec::appendHexNumber(out, static_cast<std::uint64_t>(std::int64_t{wide}), 2);
            }
            return out;
        }
        std::memcpy(out.data() + 2 * i, pairs + 2 * b, 2);
    }
    return out;
}

// Bytes decoded from hex text are always bytes: plain table lookup.
std::string hexOfByteNumbers(std::span<const std::uint8_t> bytes) { return codec::hexUpper(bytes); }

// How an element at the front of a level was read.
enum class Read {
    Stop,      // the level ends: no element, or one cut short inside its tag or length
    NoLength,  // a bad length byte: kept with length "0", the byte is read again as a tag
    PastEnd,   // the length runs past the end: kept without a value, the last length
               // byte is read again as a tag
    ToEnd,     // the value ends at the level's last byte: kept, never expanded nor
               // summarised, and the level ends
    Whole,     // the value lies within the level and does not end at its last byte
};

struct Head {
    Read read = Read::Stop;
    bool constructed = false;
    std::size_t tagStart = 0;
    std::size_t tagSize = 0;
    std::int32_t length = 0;
};

// Reads the tag and length of the element at bytes[p], leaving p on the value's first byte
// (ToEnd, Whole) or on the byte to read next as a tag (NoLength, PastEnd).
template <class Number>
Head readHead(std::span<const Number> bytes, std::int64_t& p) {
    const auto n = static_cast<std::int64_t>(bytes.size());
    const auto at = [bytes](std::int64_t i) {
        return static_cast<std::int32_t>(bytes[static_cast<std::size_t>(i)]);
    };
    Head head;
    // Tag, at most three bytes; the third byte's continuation bit is not looked at. A 00
    // where a tag is due ends the level: that is how zero padding is skipped.
    if (p >= n) return head;
    const std::int32_t first = at(p);
    if (!Tag::isValid(first)) return head;
    head.constructed = Tag::isConstructed(first);
    head.tagStart = static_cast<std::size_t>(p);
    if (Tag::isMultiByte(first)) {
        if (++p >= n) return head;
        if (!Tag::isLast(at(p)) && ++p >= n) return head;
    }
    head.tagSize = static_cast<std::size_t>(p + 1) - head.tagStart;

    // Length: a short form, or 81 to 84 followed by that many bytes.
    if (++p >= n) return head;
    const std::int32_t lengthByte = at(p);
    if (!BerLength::isValid(lengthByte)) {
        head.read = Read::NoLength;
        return head;
    }
    head.length = lengthByte;
    if (BerLength::isMultiByte(lengthByte)) {
        const std::int32_t count = BerLength::getLength(lengthByte);
        std::uint32_t collected = 0;
        for (std::int32_t i = 0; i < count; ++i) {
            if (++p >= n) return head;
            collected |= static_cast<std::uint32_t>(at(p)) << (8 * (count - i - 1));
        }
        head.length = static_cast<std::int32_t>(collected);
    }
    // A negative length (four length bytes from 80) runs past the end too.
    if (static_cast<std::uint64_t>(std::int64_t{head.length}) >
        static_cast<std::uint64_t>(n - 1 - p)) {
        head.read = Read::PastEnd;
        return head;
    }
    if (++p >= n) return head;  // an empty value after the last byte: dropped
    head.read = head.length > n - 1 - p ? Read::ToEnd : Read::Whole;
    return head;
}

// The number of elements a level will hold, so that its list is allocated once at its size.
template <class Number>
std::size_t countElements(std::span<const Number> bytes) {
    std::size_t count = 0;
    std::int64_t p = 0;
    for (;;) {
        const Head head = readHead(bytes, p);
        if (head.read == Read::Stop) return count;
        ++count;
        if (head.read == Read::ToEnd) return count;
        if (head.read == Read::Whole) p += head.length;
    }
}

// One level of nesting being decoded: the bytes of the level, the position of the byte
// under consideration, and what the level has produced so far. Number is std::int32_t for
// the byte numbers decodeTlv takes, and std::uint8_t for bytes decoded from hex text,
// which read the same since every byte is a number from 0 to 255.
template <class Number>
struct Level {
    Level(std::span<const Number> levelBytes, std::size_t depth)
        : bytes(levelBytes), expands(depth < kMaxTLVDepth) {
        const std::size_t count = countElements(bytes);
        result.reserve(count);
        if (logs) summarised.reserve(count);
    }

    std::span<const Number> bytes;
    std::int64_t p = 0;
    // False at the deepest level expanded (depth counts the top level as 1): its templates
    // are kept whole.
    bool expands;
    std::vector<TLVObject> result;
    // The summary line is built only when it will be logged, from the positions in result
    // of the elements it lists. Masking is read once per level, so a line never mixes
    // masked and unmasked values.
    bool logs = log::enabled();
    bool maskSensitiveData = log::masksSensitiveData();
    std::vector<std::uint32_t> summarised;
    // The constructed element (in result) whose value is being decoded one level down.
    std::size_t pendingIndex = 0;
    std::int32_t pendingLength = 0;
};

// Appends the element that head read, with the given length text and value, and returns it.
template <class Number>
TLVObject& appendElement(Level<Number>& level, const Head& head, std::string length,
                         std::string value = {}) {
    const std::span<const Number> tagBytes = level.bytes.subspan(head.tagStart, head.tagSize);
    std::string tag = hexOfByteNumbers(tagBytes);
    std::string name(Tag::tagNameView(tag));
    return level.result.emplace_back(std::move(tag), std::move(name), std::move(length),
                                     std::move(value));
}

// Moves level.p past the value of the element at index, which is now complete, and lists
// the element for the summary.
template <class Number>
void listValue(Level<Number>& level, std::size_t index, std::int32_t length) {
    level.p += length;
    if (level.logs) level.summarised.push_back(static_cast<std::uint32_t>(index));
}

// Completes the template at index, whose value of length bytes starts at level.p, with its
// decoded children.
template <class Number>
void completeTemplate(Level<Number>& level, std::size_t index, std::int32_t length,
                      std::vector<TLVObject> children) {
    TLVObject& element = level.result[index];
    element.setValue(hexOfByteNumbers(
        level.bytes.subspan(static_cast<std::size_t>(level.p), static_cast<std::size_t>(length))));
    element.setInnerTlvs(std::move(children));
    listValue(level, index, length);
}

// Reads elements of the level from level.p until the level ends (returns nothing) or a
// constructed element's value has to be decoded one level down (returns that value; the
// element waits at level.pendingIndex). A template in the deepest level expanded is kept
// whole, and the first one of a call is logged (toldTooDeep then set).
template <class Number>
std::optional<std::span<const Number>> readElements(Level<Number>& level, bool& toldTooDeep) {
    for (;;) {
        const Head head = readHead(level.bytes, level.p);
        const auto rest = level.bytes.subspan(static_cast<std::size_t>(level.p));
        switch (head.read) {
            case Read::Stop:
                return std::nullopt;
            case Read::NoLength:
                appendElement(level, head, "0");
                continue;
            case Read::PastEnd:
                appendElement(level, head, std::to_string(head.length));
                continue;
            case Read::ToEnd:
                appendElement(level, head, std::to_string(head.length), hexOfByteNumbers(rest));
                return std::nullopt;
            case Read::Whole:
                break;
        }
        const std::size_t index = level.result.size();
        const auto value = rest.first(static_cast<std::size_t>(head.length));
        if (head.constructed && head.length > 0) {
            if (level.expands) {
                appendElement(level, head, std::to_string(head.length));
                level.pendingIndex = index;
                level.pendingLength = head.length;
                return value;
            }
            if (!toldTooDeep) log::write("TLV nesting too deep");
            toldTooDeep = true;
        }
        appendElement(level, head, std::to_string(head.length), hexOfByteNumbers(value));
        listValue(level, index, head.length);
    }
}

// decodeTlv over any kind of byte numbers: absent for no bytes, else the top level's
// elements. Levels are kept on the heap, not the call stack, and at most kMaxTLVDepth of
// them: every level's value holds its whole subtree as hex, so without a bound the data
// (up to one level per three bytes) would choose a cost that grows with the square of its
// size.
template <class Number>
std::optional<std::vector<TLVObject>> decodeLevels(std::span<const Number> bytes) {
    if (bytes.empty()) return std::nullopt;
    std::vector<Level<Number>> levels;
    levels.reserve(4);
    levels.emplace_back(bytes, 1);
    bool toldTooDeep = false;
    for (;;) {
        if (const auto children = readElements(levels.back(), toldTooDeep)) {
            levels.emplace_back(*children, levels.size() + 1);
            continue;
        }
        Level<Number>& finished = levels.back();
        if (finished.logs) {
            log::write(codec::describeLevel(finished.result, finished.summarised,
                                            finished.maskSensitiveData));
        }
        std::vector<TLVObject> result = std::move(finished.result);
        levels.pop_back();
        if (levels.empty()) return result;
        Level<Number>& parent = levels.back();
        completeTemplate(parent, parent.pendingIndex, parent.pendingLength, std::move(result));
    }
}

}  // namespace

std::optional<std::vector<TLVObject>> TLVDecoder::decodeWithTLVString(
    std::optional<std::string_view> hex) {
    if (!hex) {
        log::write("TLV is nil");
        return std::nullopt;
    }
    if (hex->size() % 2 != 0) {
        log::write("Invalid TLV");
        return std::nullopt;
    }
    codec::ScratchBytes bytes(hex->size() / 2);
    codec::decodeHexPairs(*hex, bytes.span().data(), [text = *hex](std::size_t pair) {
        return static_cast<std::uint8_t>(hexToInt(text.substr(2 * pair, 2)));
    });
    return decodeLevels(std::span<const std::uint8_t>(bytes.span()));
}

std::optional<std::vector<TLVObject>> TLVDecoder::decodeTlv(std::span<const std::int32_t> bytes) {
    return decodeLevels(bytes);
}

std::uint32_t TLVDecoder::hexToInt(std::string_view hex) {
    while (const std::size_t skip = codec::scannerSpaceLength(hex))
        hex.remove_prefix(skip);
    if (hex.size() >= 3 && hex[0] == '0' && (hex[1] == 'x' || hex[1] == 'X') &&
        codec::isHexDigit(static_cast<unsigned char>(hex[2]))) {
        hex.remove_prefix(2);
    }
    constexpr std::uint64_t kSaturated = 0xFFFFFFFF;
    std::uint64_t value = 0;
    for (const char c : hex) {
        const auto digit = static_cast<unsigned char>(c);
        if (!codec::isHexDigit(digit)) break;
        value =
            std::min(value * 16 + static_cast<std::uint64_t>(codec::nibble(digit)), kSaturated + 1);
    }
    return static_cast<std::uint32_t>(std::min(value, kSaturated));
}

}  // namespace vastrel
