#include "vastrel/Codec/BerLength.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "HexInternal.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

// The encoded field for one length, without allocation.
struct LengthField {
    std::array<std::uint8_t, 3> bytes{};
    std::size_t size = 0;

    std::span<const std::uint8_t> view() const { return {bytes.data(), size}; }
};

// The field for n: n below 128; 81 n up to 255; 82 hi lo up to 65535. The three-byte form
// has always been written with a fixed 82 and a three-entry reversal buffer, which raised
// the range exception for anything longer; callers never pass more, and the limit stays.
LengthField lengthField(std::uint64_t n) {
    if (n < 128) return {{static_cast<std::uint8_t>(n)}, 1};
    if (n <= 255) return {{0x81, static_cast<std::uint8_t>(n)}, 2};
    if (n > 0xFFFF) {
        throw RangeError("BER length " + std::to_string(n) +
                         " needs more than two length bytes, which are not supported");
    }
    return {{0x82, static_cast<std::uint8_t>(n >> 8), static_cast<std::uint8_t>(n)}, 3};
}

}  // namespace

Bytes BerLength::getEncodedLength(std::uint64_t n) {
    const LengthField field = lengthField(n);
    return Bytes(field.bytes.begin(), field.bytes.begin() + field.size);
}

std::string BerLength::getEncodedLengthHexString(std::uint64_t n) {
    return codec::hexUpper(lengthField(n).view());
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
    const LengthField field = lengthField(n);
    const std::size_t end = static_cast<std::size_t>(offset) + field.size;
    if (data.size() < end) data.resize(end);
    std::copy(field.bytes.begin(), field.bytes.begin() + field.size,
              data.begin() + static_cast<std::ptrdiff_t>(offset));
}

}  // namespace vastrel
