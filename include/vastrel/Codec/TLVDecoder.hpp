#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"

namespace vastrel {

// The nested decoder: tags of up to three bytes, lengths of up to four bytes, constructed
// elements decoded into innerTlvs. Never throws for malformed data. Stateless.
class TLVDecoder {
  public:
    // decodeTlv of hex read pair by pair with hexToInt (a pair without hex digits is 0).
    // Absent, logging "TLV is nil", for absent hex; absent, logging "Invalid TLV", for an
    // odd length; absent without a log line for "".
    static std::optional<std::vector<TLVObject>> decodeWithTLVString(
        std::optional<std::string_view> hex);
    // The elements of bytes (one number per byte), in order; absent for no bytes. Each
    // level logs one summary line (tag -> name, length, value) when it ends. A 00 where a
    // tag is due ends a level; a truncated tag or length drops the element and ends it;
    // an invalid length byte gives an element of length "0" and is re-read as a tag; a
    // length past the end gives an element without value and resumes at the length's last
    // byte. The last element of a level is never expanded into innerTlvs.
    static std::optional<std::vector<TLVObject>> decodeTlv(std::span<const std::int32_t> bytes);
    // hex read as NSScanner's scanHexInt reads it: leading whitespace skipped, optional 0x,
    // digits up to the first non-hex character; 0 without digits, 0xFFFFFFFF on overflow.
    static std::uint32_t hexToInt(std::string_view hex);
};

}  // namespace vastrel
