#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel::testing {

// Hex written by hand, with blanks between bytes for the reader, as bytes.
inline Bytes bytesOf(std::string_view hex) {
    std::string digits(hex);
    std::erase(digits, ' ');
    return TLVUtility::dataWithHexString(digits);
}

}  // namespace vastrel::testing
