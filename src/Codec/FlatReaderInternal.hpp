#pragma once

// The flat reader shared by TLVParser::splitTLVData, TLVUtility::tagValueFromTLV and
// TLVUtility::tagFromTLVString: tags of any length, short-form lengths only. The nested
// decoder (TLVDecoder) has different limits and keeps its own reader.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "vastrel/Codec/BerLength.hpp"
#include "vastrel/Codec/TLVSplit.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel::codec {

// Decodes hex into out (hex.size() / 2 bytes) as TLVUtility::dataWithHexString does, throwing
// its AssertionFailure for an odd length or a pair that is not hex.
void decodeHexOrThrow(std::string_view hex, std::span<std::uint8_t> out);

// The number of tag bytes at the front of data: 1 when the first byte's identifier is
// below 31, otherwise through the first following byte with bit 0x80 clear. Absent when
// data is empty or ends inside the tag.
inline std::optional<std::size_t> flatTagLength(std::span<const std::uint8_t> data) {
    if (data.empty()) return std::nullopt;
    if (Tag::tagIdentifier(data[0], true) < 31) return 1;
    for (std::size_t i = 1; i < data.size(); ++i) {
        if (Tag::tagIdentifierIsLastByte(data[i])) return i + 1;
    }
    return std::nullopt;
}

// One complete short-form element: its whole encoding and its value bytes.
struct FlatElement {
    std::span<const std::uint8_t> encoding;
    std::span<const std::uint8_t> value;
};

// Calls visit(FlatElement) for each complete element at the front of data, in order, and
// returns why it stopped, without logging. Stops at a tail that ends inside a tag or before
// its length byte (Incomplete), and at a length byte 80 or at the byte after a long-form
// length byte (UnreadLength); so a long-form byte that is the last byte stops as
// Incomplete. Throws RangeError when a value runs past the end of data.
template <class Visit>
TLVSplit::Stop walkFlatElements(std::span<const std::uint8_t> data, Visit&& visit) {
    using Stop = TLVSplit::Stop;
    std::size_t offset = 0;  // of data within the caller's bytes, for the error message
    while (!data.empty()) {
        const std::optional<std::size_t> tagLength = flatTagLength(data);
        if (!tagLength || *tagLength == data.size()) return Stop::Incomplete;
        const std::uint8_t lengthByte = data[*tagLength];
        const std::span<const std::uint8_t> rest = data.subspan(*tagLength + 1);
        switch (BerLength::getTagLengthType(lengthByte)) {
            case 2:
                return Stop::UnreadLength;
            case 1:
                return rest.empty() ? Stop::Incomplete : Stop::UnreadLength;
            default:
                break;
        }
        if (lengthByte > rest.size()) {
            throw RangeError("TLV value of " + std::to_string(lengthByte) + " bytes at offset " +
                             std::to_string(offset + *tagLength + 1) + " runs past the end of " +
                             std::to_string(offset + data.size()) + " bytes");
        }
        const std::size_t size = *tagLength + 1 + lengthByte;
        visit(FlatElement{data.first(size), rest.first(lengthByte)});
        data = data.subspan(size);
        offset += size;
    }
    return Stop::Complete;
}

// walkFlatElements, with the log line "unimplemented" when it stops at a length it cannot
// read.
template <class Visit>
TLVSplit::Stop forEachFlatElement(std::span<const std::uint8_t> data, Visit&& visit) {
    const TLVSplit::Stop stop = walkFlatElements(data, std::forward<Visit>(visit));
    if (stop == TLVSplit::Stop::UnreadLength) log::write("unimplemented");
    return stop;
}

}  // namespace vastrel::codec
