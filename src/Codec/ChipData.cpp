#include "vastrel/Codec/ChipData.hpp"

#include <string>

#include "HexEncode.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel {

ChipElements ChipData::primitives(std::span<const std::uint8_t> data) {
    const BerReadResult read = BerReader::read(data);
    ChipElements chip;
    chip.error = read.error;
    for (const BerNode& node : read.nodes) {
        if (node.constructed) continue;
        std::string tag = codec::hexUpper(node.tag);
        std::string name = Tag::tagName(tag);
        chip.elements.emplace_back(std::move(tag), std::move(name),
                                   std::to_string(node.value.size()), codec::hexUpper(node.value));
    }
    return chip;
}

}  // namespace vastrel
