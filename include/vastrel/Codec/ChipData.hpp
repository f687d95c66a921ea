#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Codec/TLVObject.hpp"

namespace vastrel {

// Chip data as the receipt builders take it, read strictly: one TLVObject per primitive
// element, with every template opened at any depth, in document order.
struct ChipElements {
    std::vector<TLVObject> elements;  // the primitives read, up to the error if there is one
    std::optional<BerError> error;
};

class ChipData {
  public:
    // Each element's tag and value as uppercase hex, its length as decimal text and its name
    // from the tag dictionary that TLVObject uses.
    [[nodiscard]] static ChipElements primitives(std::span<const std::uint8_t> data);
};

}  // namespace vastrel
