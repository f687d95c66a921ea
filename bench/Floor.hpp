#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// The floor every figure is quoted against: the simplest walk from hex text to the offsets
// of the elements, with no strings and no objects. The hex is decoded into caller-owned
// scratch, then tags (any length) and lengths (short form, 81 to 84) are stepped over,
// entering constructed elements, and the offset of each element's tag is written down.
namespace vastrel::bench {

enum class FloorHex {
    PlainTable,  // one table lookup per digit, the loop anyone would write first
    Simd,        // the library's own SSE2 decoder: the strictest floor this codec allows
};

// Writes the byte offset of each element's tag to offsets and returns how many there are.
// Returns 0 when hex has an odd length, a non-hex digit, or more bytes than scratch holds;
// stops early at an indefinite or too long length, at a truncated element, or when offsets
// is full.
std::size_t walkElementOffsets(FloorHex decoder, std::string_view hex,
                               std::span<std::uint8_t> scratch, std::span<std::uint32_t> offsets);

}  // namespace vastrel::bench
