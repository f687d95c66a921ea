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
#include "vastrel/Platform/Bytes.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Tags/SensitiveData.hpp"

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

// One level of nesting being decoded: the bytes of the level, the position of the byte
// under consideration, and what the level has produced so far. Number is std::int32_t for
// the byte numbers decodeTlv takes, and std::uint8_t for bytes decoded from hex text,
// which read the same since every byte is a number from 0 to 255.
template <class Number>
struct Level {
    Level(std::span<const Number> levelBytes, std::size_t depth)
        : bytes(levelBytes),
          n(static_cast<std::int64_t>(levelBytes.size())),
          expands(depth < kMaxTLVDepth) {
        // Elements take several bytes each; growth covers denser data.
        result.reserve(static_cast<std::size_t>(std::min<std::int64_t>(n / 4 + 1, 64)));
        if (log::enabled()) summary.emplace();
    }

    std::span<const Number> bytes;
    std::int64_t n;
    std::int64_t p = 0;
    // False at the deepest level expanded (depth counts the top level as 1): its templates
    // are kept whole.
    bool expands;
    std::vector<TLVObject> result;
    std::optional<codec::Summary> summary;  // built only when it will be logged
    // Read once per level, so a line never mixes masked and unmasked values.
    bool maskSensitiveData = log::masksSensitiveData();
    // The constructed element (in result) whose value is being decoded one level down.
    std::size_t pendingIndex = 0;
    std::int32_t pendingLength = 0;
};

// Appends the element for tagBytes with the given length text and returns it.
template <class Number>
TLVObject& appendElement(Level<Number>& level, std::span<const Number> tagBytes,
                         std::string length) {
    TLVObject& element = level.result.emplace_back(hexOfByteNumbers(tagBytes));
    element.setLength(std::move(length));
    return element;
}

// Completes an element whose value of length bytes starts at level.p: sets its value and
// children, enters it in the summary and moves level.p past the value.
template <class Number>
void completeWithValue(Level<Number>& level, TLVObject& element, std::int32_t length,
                       std::optional<std::vector<TLVObject>> children) {
    std::string value = hexOfByteNumbers(
        level.bytes.subspan(static_cast<std::size_t>(level.p), static_cast<std::size_t>(length)));
    level.p += length;
    if (level.summary) {
        // Card data stays out of the log unless masking was turned off. A constructed
        // element's value is masked whole: its children appear, masked, in their own level's
        // line, and its last child, which is never expanded, could carry a card number.
        std::string shown =
            level.maskSensitiveData ? SensitiveData::maskedValue(*element.tag(), value) : value;
        level.summary->insert_or_assign(
            *element.tag(), codec::SummaryEntry{*element.tagName(), length, std::move(shown)});
    }
    element.setValue(std::move(value));
    element.setInnerTlvs(std::move(children));
}

// Reads elements of the level from level.p until the level ends (returns nothing) or a
// constructed element's value has to be decoded one level down (returns that value; the
// element waits at level.pendingIndex). A template in the deepest level expanded is kept
// whole, and the first one of a call is logged (toldTooDeep then set).
template <class Number>
std::optional<std::span<const Number>> readElements(Level<Number>& level, bool& toldTooDeep) {
    const std::span<const Number> bytes = level.bytes;
    const std::int64_t n = level.n;
    std::int64_t& p = level.p;
    const auto at = [bytes](std::int64_t i) {
        return static_cast<std::int32_t>(bytes[static_cast<std::size_t>(i)]);
    };

    while (p < n) {
        // Tag, at most three bytes; the third byte's continuation bit is not looked at.
        // A 00 where a tag is due ends the level: that is how zero padding is skipped.
        const std::int32_t first = at(p);
        if (!Tag::isValid(first)) return std::nullopt;
        const bool constructed = Tag::isConstructed(first);
        const std::int64_t tagStart = p;
        if (Tag::isMultiByte(first)) {
            if (++p >= n) return std::nullopt;
            if (!Tag::isLast(at(p)) && ++p >= n) return std::nullopt;
        }
        const std::span<const Number> tag = bytes.subspan(
            static_cast<std::size_t>(tagStart), static_cast<std::size_t>(p - tagStart + 1));

        // Length: a short form, or 81 to 84 followed by that many bytes. An element whose
        // tag or length is cut short by the end of the level is dropped.
        if (++p >= n) return std::nullopt;
        const std::int32_t lengthByte = at(p);
        if (!BerLength::isValid(lengthByte)) {
            // Kept with length "0"; the bad length byte is read again as the next tag.
            appendElement(level, tag, "0");
            continue;
        }
        std::int32_t length = lengthByte;
        if (BerLength::isMultiByte(lengthByte)) {
            const std::int32_t count = BerLength::getLength(lengthByte);
            std::uint32_t collected = 0;
            for (std::int32_t i = 0; i < count; ++i) {
                if (++p >= n) return std::nullopt;
                collected |= static_cast<std::uint32_t>(at(p)) << (8 * (count - i - 1));
            }
            length = static_cast<std::int32_t>(collected);
        }

        // A length past the end (a negative one too) keeps the element without a value;
        // the last length byte is read again as the next tag.
        if (static_cast<std::uint64_t>(std::int64_t{length}) >
            static_cast<std::uint64_t>(n - 1 - p)) {
            appendElement(level, tag, std::to_string(length));
            continue;
        }
        if (++p >= n) return std::nullopt;  // an empty value after the last byte: dropped
        TLVObject& element = appendElement(level, tag, std::to_string(length));
        if (length > n - 1 - p) {
            // The value ends at the last byte. This last element of the level is never
            // expanded nor summarised, even when constructed; callers know it so, keep it.
            element.setValue(hexOfByteNumbers(bytes.subspan(static_cast<std::size_t>(p))));
            return std::nullopt;
        }
        if (constructed && length > 0) {
            if (level.expands) {
                level.pendingIndex = level.result.size() - 1;
                level.pendingLength = length;
                return bytes.subspan(static_cast<std::size_t>(p), static_cast<std::size_t>(length));
            }
            if (!toldTooDeep) log::write("TLV nesting too deep");
            toldTooDeep = true;
        }
        completeWithValue(level, element, length, std::nullopt);
    }
    return std::nullopt;
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
        if (finished.summary) log::write(codec::describeSummary(*finished.summary));
        std::vector<TLVObject> result = std::move(finished.result);
        levels.pop_back();
        if (levels.empty()) return result;
        Level<Number>& parent = levels.back();
        completeWithValue(parent, parent.result[parent.pendingIndex], parent.pendingLength,
                          std::move(result));
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
    Bytes bytes(hex->size() / 2);
    codec::decodeHexPairs(*hex, bytes.data(), [text = *hex](std::size_t pair) {
        return static_cast<std::uint8_t>(hexToInt(text.substr(2 * pair, 2)));
    });
    return decodeLevels<std::uint8_t>(bytes);
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
