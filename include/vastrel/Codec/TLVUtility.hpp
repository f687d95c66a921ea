#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// Hex conversions, single-element readers and the ICC-data builders. Everything but
// sharedInstance() is a pure class operation, safe from any thread.
class TLVUtility {
  public:
    TLVUtility() = default;

    // The process-wide instance, created on first use.
    static TLVUtility& sharedInstance();

    // Hex conversions.

    // The bytes of hex, one per pair of characters, each pair read as strtol base 16 reads
    // it: so " A" gives 0A and "-1" gives FF. Throws AssertionFailure for an odd length
    // ("Hex strings should have an even number of digits (<hex>)") or for a pair strtol does
    // not consume whole ("String should be all hex digits: <hex> (bad digit around <index>)").
    static Bytes dataWithHexString(std::string_view hex);
    // Two uppercase hex digits per byte; "" for no bytes.
    static std::string dataToHexString(std::span<const std::uint8_t> data);
    // Two lowercase hex digits per byte of text, up to its first NUL byte.
    static std::string stringToHex(std::string_view text);
    // One character per pair, each pair read as sscanf "%x" reads it (0 when the pair holds
    // no hex digit, 4 for "4G", FC for "-4"). "" for an odd length.
    static std::string hexToAscii(std::string_view hex);

    // Single-element readers. Hex input goes through dataWithHexString and throws as it does.

    // The tag at the front of tlv: one byte when its low five bits are below 31, otherwise
    // through the first following byte with bit 0x80 clear. The tag's value is empty when
    // tlv ends inside the tag; absent for empty tlv. tagType is stored inverted, as the
    // splitter stores it.
    static std::optional<Tag> tagFromTLVString(std::string_view tlv);
    // The uppercase hex value of the last complete element, read as TLVParser::splitTLVData
    // reads (same "unimplemented" log lines, same RangeError); "" when there is none.
    static std::string tagValueFromTLV(std::string_view tlv);
    // True when the element's tag is the one byte 71 (resp. 72), and when no tag bytes can
    // be read (empty input, or input ending inside a multi-byte tag).
    static bool isIssuerScriptTemplate1(std::string_view tlv);
    static bool isIssuerScriptTemplate2(std::string_view tlv);

    // Lookups and builders.

    // The first element whose tag is the tag number's hex text (exact match), searching
    // each top-level element and then its direct children; grandchildren are not searched.
    // Absent when nothing matches or the array is absent or empty.
    static std::optional<TLVObject> findTLVObject(
        std::int64_t tag, const std::optional<std::vector<TLVObject>>& array);
    // tag, the length field for value's byte count, value. The count is written as 81 and
    // two digits from 128, as 82 and four (or more, from 65536) digits above 255.
    static std::string createTLVFromTag(std::string_view tag, std::string_view value);
    // createTLVFromTag of every entry, in key order; absent for an absent or empty map.
    static std::optional<std::string> fetchIccDataStringFromEmvTagsDictionary(
        const std::optional<std::map<std::string, std::string>>& tags);
    // generateHexStringFromTLVObject of every element, in order; "" for none.
    static std::string fetchIccDataStringFromEmvTagsArray(
        const std::optional<std::vector<TLVObject>>& tags);
    // The elements of emvTags whose tag is not in tagsToRemove, in order. Keeps nothing
    // when tagsToRemove is absent or empty: callers rely on that, keep it.
    static std::vector<TLVObject> stripTagsEmvTagDescriptors(
        const std::optional<std::vector<std::string>>& tagsToRemove,
        const std::optional<std::vector<TLVObject>>& emvTags);
};

}  // namespace vastrel
