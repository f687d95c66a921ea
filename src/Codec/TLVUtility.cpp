#include "vastrel/Codec/TLVUtility.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "CodecRules.hpp"
#include "FlatReaderInternal.hpp"
#include "HexDecode.hpp"
#include "vastrel/Codec/Utilities.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"

namespace vastrel {

void codec::decodeHexOrThrow(std::string_view hex, std::span<std::uint8_t> out) {
    if (hex.size() % 2 != 0) {
        throw AssertionFailure("Hex strings should have an even number of digits (" +
                               std::string(hex) + ")");
    }
    decodeHexPairs(hex, out.data(), [hex](std::size_t pair) -> std::uint8_t {
        const std::optional<std::uint8_t> value =
            strtolPairValue(static_cast<unsigned char>(hex[2 * pair]),
                            static_cast<unsigned char>(hex[2 * pair + 1]));
        if (!value) {
            throw AssertionFailure("String should be all hex digits: " + std::string(hex) +
                                   " (bad digit around " + std::to_string(2 * pair) + ")");
        }
        return *value;
    });
}

TLVUtility& TLVUtility::sharedInstance() {
    static TLVUtility instance;
    return instance;
}

Bytes TLVUtility::dataWithHexString(std::string_view hex) {
    Bytes out(hex.size() / 2);
    codec::decodeHexOrThrow(hex, out);
    return out;
}

std::string TLVUtility::dataToHexString(std::span<const std::uint8_t> data) {
    return codec::hexUpper(data);
}

std::string TLVUtility::stringToHex(std::string_view text) {
    const std::size_t nul = text.find('\0');
    if (nul != std::string_view::npos) text = text.substr(0, nul);
    std::string out(2 * text.size(), '\0');
    codec::writeHex<false>({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                           out.data());
    return out;
}

std::string TLVUtility::hexToAscii(std::string_view hex) {
    if (hex.size() % 2 != 0) return "";
    std::string out(hex.size() / 2, '\0');
    codec::decodeHexPairs(hex, out.data(), [hex](std::size_t pair) {
        return codec::scanfPairValue(static_cast<unsigned char>(hex[2 * pair]),
                                     static_cast<unsigned char>(hex[2 * pair + 1]));
    });
    return out;
}

std::optional<Tag> TLVUtility::tagFromTLVString(std::string_view tlv) {
    const Bytes bytes = dataWithHexString(tlv);
    if (bytes.empty()) return std::nullopt;
    Tag tag;
    tag.setTagClass(Tag::tagClassFromChar(bytes[0]));
    // Stored inverted, exactly as the splitter always stored it; nothing reads it back.
    tag.setTagType(Tag::tagIsPrimitive(bytes[0]) ? TagType::Primitive : TagType::Constructed);
    if (const std::optional<std::size_t> length = codec::flatTagLength(bytes)) {
        tag.setValue(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*length)));
    }
    return tag;
}

std::string TLVUtility::tagValueFromTLV(std::string_view tlv) {
    const Bytes bytes = dataWithHexString(tlv);
    std::span<const std::uint8_t> last;
    codec::forEachFlatElement(bytes,
                              [&last](const codec::FlatElement& element) { last = element.value; });
    return codec::hexUpper(last);
}

bool TLVUtility::isIssuerScriptTemplate1(std::string_view tlv) {
    return codec::startsWithScriptTemplate(tlv, codec::kIssuerScriptTemplate1);
}

bool TLVUtility::isIssuerScriptTemplate2(std::string_view tlv) {
    return codec::startsWithScriptTemplate(tlv, codec::kIssuerScriptTemplate2);
}

std::optional<TLVObject> TLVUtility::findTLVObject(
    std::int64_t tag, const std::optional<std::vector<TLVObject>>& array) {
    if (!array || array->empty()) return std::nullopt;
    const std::string wanted = Utilities::hexStringFromEMVTagEnum(tag);
    const auto matches = [&wanted](const TLVObject& object) { return object.tag() == wanted; };
    for (const TLVObject& object : *array) {
        if (matches(object)) return object;
        // One level down only: grandchildren were never searched and callers rely on that.
        if (const auto& children = object.innerTlvs()) {
            const auto child = std::find_if(children->begin(), children->end(), matches);
            if (child != children->end()) return *child;
        }
    }
    return std::nullopt;
}

std::string TLVUtility::createTLVFromTag(std::string_view tag, std::string_view value) {
    // The byte count as a 32-bit int, as it has always been taken.
    const std::int32_t count = static_cast<std::int32_t>(value.size()) / 2;
    std::string out;
    out.reserve(tag.size() + 6 + value.size());
    out += tag;
    codec::appendLengthFieldHex(out, static_cast<std::uint32_t>(count));
    out += value;
    return out;
}

std::optional<std::string> TLVUtility::fetchIccDataStringFromEmvTagsDictionary(
    const std::optional<std::map<std::string, std::string>>& tags) {
    if (!tags || tags->empty()) return std::nullopt;
    std::string out;
    for (const auto& [tag, value] : *tags)
        out += createTLVFromTag(tag, value);
    return out;
}

std::string TLVUtility::fetchIccDataStringFromEmvTagsArray(
    const std::optional<std::vector<TLVObject>>& tags) {
    std::string out;
    if (!tags) return out;
    for (const TLVObject& object : *tags) {
        out += *TLVObject::generateHexStringFromTLVObject(&object);
    }
    return out;
}

std::vector<TLVObject> TLVUtility::stripTagsEmvTagDescriptors(
    const std::optional<std::vector<std::string>>& tagsToRemove,
    const std::optional<std::vector<TLVObject>>& emvTags) {
    std::vector<TLVObject> kept;
    if (!emvTags) return kept;
    kept.reserve(emvTags->size());
    if (!tagsToRemove || tagsToRemove->empty()) return kept;
    for (const TLVObject& object : *emvTags) {
        const bool listed = object.tag() && std::find(tagsToRemove->begin(), tagsToRemove->end(),
                                                      *object.tag()) != tagsToRemove->end();
        if (!listed) kept.push_back(object);
    }
    return kept;
}

}  // namespace vastrel
