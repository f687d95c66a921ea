#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"

namespace vastrel {

// The flat splitter: cuts hex into one hex string per top-level element, without looking
// inside constructed elements. Stateless; safe from any thread.
class TLVParser {
  public:
    // One uppercase hex string (tag, length byte, value) per top-level element, in order.
    // Only short-form lengths are read: at a length byte 80, or at the byte after a long-form
    // length byte, it logs "unimplemented" and returns the elements before. A tail that
    // ends inside a tag or before its length byte is dropped silently. Throws RangeError
    // when a value runs past the end, and dataWithHexString's AssertionFailure for bad hex.
    static std::vector<std::string> splitTLVData(std::string_view hex);
    // Always empty, after splitting hex (with its log lines and exceptions): callers rely on
    // it; keep it.
    static std::vector<TLVObject> tlvObjectsFromTLVData(std::string_view hex);
    // Same answers as TLVUtility::isIssuerScriptTemplate1 / 2.
    static bool isIssuerScriptTemplate1(std::string_view tlv);
    static bool isIssuerScriptTemplate2(std::string_view tlv);
};

}  // namespace vastrel
