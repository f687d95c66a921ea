#include "vastrel/Codec/BerLength.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "CodecRules.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

// The field for n. Lengths above 65535 have always raised the range exception here (the
// three-byte form was written with a fixed 82 into a three-entry buffer); callers never
// pass more, and the limit stays.
codec::LengthField checkedLengthField(std::uint64_t n) {
    if (n > 0xFFFF) {
        throw RangeError("BER length " + std::to_string(n) +
                         " needs more than two length bytes, which are not supported");
    }
    return codec::lengthField(static_cast<std::uint16_t>(n));
}

}  // namespace

Bytes BerLength::getEncodedLength(std::uint64_t n) {
    const codec::LengthField field = checkedLengthField(n);
    return Bytes(field.bytes.begin(), field.bytes.begin() + field.size);
}

std::string BerLength::getEncodedLengthHexString(std::uint64_t n) {
    return codec::hexUpper(checkedLengthField(n).view());
}

void BerLength::encodeLengthFor(std::uint64_t n, Bytes& data, std::uint64_t offset) {
    if (offset > data.size()) {
        throw RangeError("BER length offset " + std::to_string(offset) + " is past the end of " +
                         std::to_string(data.size()) + " bytes");
    }
    // The three-byte form is reversed in place over positions 0 to offset + 2, which only
    // fits its buffer at offset 0.
    if (n > 255 && offset != 0) {
        throw RangeError("BER length " + std::to_string(n) + " can only be written at offset 0");
    }
    const codec::LengthField field = checkedLengthField(n);
    const std::size_t end = static_cast<std::size_t>(offset) + field.size;
    if (data.size() < end) data.resize(end);
    std::copy(field.bytes.begin(), field.bytes.begin() + field.size,
              data.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace vastrel
