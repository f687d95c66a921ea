#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// A BER length field: its bytes, and the byte rules and encoders for length fields.
class BerLength {
  public:
    BerLength() = default;

    const Bytes& value() const { return value_; }
    void setValue(Bytes v) { value_ = std::move(v); }
    // Nothing in the library sets it, so it stays 0.
    std::uint64_t type() const { return type_; }
    void setType(std::uint64_t v) { type_ = v; }

    // Byte rules of the flat readers.

    // 2 for 0x80 (indefinite form), 1 for 0x81 to 0xFF (long form), 0 below (short form).
    static constexpr int getTagLengthType(std::uint8_t b) {
        if (b == 0x80) return 2;
        return b > 0x7F ? 1 : 0;
    }
    static constexpr bool isTagLengthLastByte(std::uint8_t b) { return (b & 0x80) == 0; }

    // Byte rules of the nested decoder, on byte numbers.

    // True for the short forms 0 to 127 and the long forms 0x81 to 0x84; false for 0x80,
    // anything above 0x84 and any negative b.
    static constexpr bool isValid(std::int32_t b) { return b != 128 && b >= 0 && b < 133; }
    // The short-form length, or for a long form the number of length bytes that follow.
    static constexpr std::int32_t getLength(std::int32_t b) { return b & 0x7F; }
    // True when b >> 7 is 1 (bit 0x80 set, for byte values).
    static constexpr bool isMultiByte(std::int32_t b) { return (b >> 7) == 1; }

    // Encoders.

    // The size of the field that encodes n: 1 below 128, 2 up to 255, 3 above.
    static constexpr std::uint64_t getNumberOfBytesToEncodedLength(std::uint64_t n) {
        if (n < 128) return 1;
        return n <= 255 ? 2 : 3;
    }
    // The field for n: n; 81 n; or 82 and n as two bytes, most significant first.
    // Throws RangeError above 65535, which the encoder never supported.
    static Bytes getEncodedLength(std::uint64_t n);
    // The same field as uppercase hex ("05", "81C8", "82012C"). Throws as above.
    static std::string getEncodedLengthHexString(std::uint64_t n);
    // Writes the field for n into data at offset, growing data when the field runs past its
    // end. Throws RangeError, leaving data untouched, when offset is past the end of data,
    // when n is above 65535, or when n is above 255 and offset is not 0: the three-byte
    // form is only ever written at the start of a buffer.
    static void encodeLengthFor(std::uint64_t n, Bytes& data, std::uint64_t offset);

  private:
    Bytes value_;
    std::uint64_t type_ = 0;
};

}  // namespace vastrel
