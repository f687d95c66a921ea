#pragma once

#include <vector>

#include "vastrel/Codec/TLVObject.hpp"

namespace vastrel {

// Chip data as a card reader layer hands it to the receipt builders: one element per
// primitive tag, with templates opened up.
class TLVFlatten {
  public:
    // Every element of elements that has no children, in order, with each template replaced
    // by its own children, at any depth. A template without children is kept as it is.
    static std::vector<TLVObject> primitives(const std::vector<TLVObject>& elements);
};

}  // namespace vastrel
