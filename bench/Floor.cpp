#include "Floor.hpp"

#include <array>

#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel::bench {
namespace {

constexpr std::uint8_t kBad = 0x10;

constexpr std::array<std::uint8_t, 256> kNibble = [] {
    std::array<std::uint8_t, 256> table{};
    for (int c = 0; c < 256; ++c) {
        if (c >= '0' && c <= '9') {
            table[c] = static_cast<std::uint8_t>(c - '0');
        } else if (c >= 'A' && c <= 'F') {
            table[c] = static_cast<std::uint8_t>(c - 'A' + 10);
        } else if (c >= 'a' && c <= 'f') {
            table[c] = static_cast<std::uint8_t>(c - 'a' + 10);
        } else {
            table[c] = kBad;
        }
    }
    return table;
}();

// Decodes hex into out (hex.size() / 2 bytes); false on a non-hex digit. Kept scalar: GCC's
// vectorizer turns the table gather into lane-by-lane extraction through the stack, which
// doubles the time of this loop, and a floor is the plain loop as it is usually compiled.
__attribute__((optimize("no-tree-vectorize"))) bool decodePlainTable(std::string_view hex,
                                                                     std::uint8_t* out) {
    const auto* in = reinterpret_cast<const unsigned char*>(hex.data());
    const std::size_t count = hex.size() / 2;
    unsigned seen = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned high = kNibble[in[2 * i]];
        const unsigned low = kNibble[in[2 * i + 1]];
        seen |= high | low;
        out[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return (seen & kBad) == 0;
}

bool decode(FloorHex decoder, std::string_view hex, std::uint8_t* out) {
    if (decoder == FloorHex::PlainTable) return decodePlainTable(hex, out);
    return !HexDecoder::decode(hex, std::span<std::uint8_t>(out, hex.size() / 2));
}

}  // namespace

std::size_t walkElementOffsets(FloorHex decoder, std::string_view hex,
                               std::span<std::uint8_t> scratch, std::span<std::uint32_t> offsets) {
    const std::size_t n = hex.size() / 2;
    if (hex.size() % 2 != 0 || n > scratch.size() || !decode(decoder, hex, scratch.data())) {
        return 0;
    }
    const std::uint8_t* bytes = scratch.data();
    std::size_t count = 0;
    std::size_t p = 0;
    while (p < n && count < offsets.size()) {
        const std::size_t tagStart = p;
        const bool constructed = (bytes[p] & 0x20) != 0;
        if ((bytes[p] & 0x1F) == 0x1F) {
            do {
                if (++p >= n) return count;
            } while ((bytes[p] & 0x80) != 0);
        }
        if (++p >= n) return count;
        std::size_t length = bytes[p++];
        if (length >= 0x80) {
            const std::size_t lengthBytes = length & 0x7F;
            if (lengthBytes == 0 || lengthBytes > 4 || p + lengthBytes > n) return count;
            length = 0;
            for (std::size_t i = 0; i < lengthBytes; ++i)
                length = length << 8 | bytes[p++];
        }
        if (length > n - p) return count;
        offsets[count++] = static_cast<std::uint32_t>(tagStart);
        // A constructed element's value is walked as elements of their own.
        if (!constructed) p += length;
    }
    return count;
}

}  // namespace vastrel::bench
