// BerReader on raw bytes; the first byte sets the depth limit. It never fails but with an
// error value. Every byte is accounted for: the headers and primitive values of the
// elements read, plus the padding, make up the whole input when the read succeeds. Copying
// each element's header and then its value (a template's value rebuilt from its children)
// gives the input back without its top-level padding, when no template held padding.
#include <cstring>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/BerReader.hpp"

using namespace vastrel;

namespace {

std::size_t headerSize(const BerNode& node) { return node.tag.size() + node.lengthFieldSize; }

// Appends node i and its subtree; returns the index after the subtree.
std::size_t reencode(const std::vector<BerNode>& nodes, std::size_t i,
                     std::span<const std::uint8_t> input, std::vector<std::uint8_t>& out) {
    const BerNode& node = nodes[i];
    const auto* header = input.data() + node.offset;
    out.insert(out.end(), header, header + headerSize(node));
    if (!node.constructed) {
        out.insert(out.end(), node.value.begin(), node.value.end());
        return i + 1;
    }
    std::size_t child = i + 1;
    while (child < node.subtreeEnd)
        child = reencode(nodes, child, input, out);
    return child;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::uint32_t maxDepth = data[0] % 40;
    const std::span<const std::uint8_t> input(data + 1, size - 1);
    const BerReadResult result = BerReader::read(input, maxDepth);

    std::size_t consumed = 0;
    for (std::size_t i = 0; i < result.nodes.size(); ++i) {
        const BerNode& node = result.nodes[i];
        FUZZ_CHECK(node.offset + headerSize(node) + node.value.size() <= input.size());
        FUZZ_CHECK(node.value.data() == input.data() + node.offset + headerSize(node));
        FUZZ_CHECK(node.depth < maxDepth);
        FUZZ_CHECK(node.subtreeEnd > i && node.subtreeEnd <= result.nodes.size());
        FUZZ_CHECK(node.constructed || node.subtreeEnd == i + 1);
        consumed += headerSize(node) + (node.constructed ? 0 : node.value.size());
        if (node.parent != BerNode::kNoParent) {
            FUZZ_CHECK(node.parent < i && result.nodes[node.parent].depth + 1 == node.depth);
        }
    }
    if (!result.ok()) {
        FUZZ_CHECK(result.error->offset < input.size());
        return 0;
    }
    FUZZ_CHECK(consumed + result.paddingBytes == input.size());

    std::vector<std::uint8_t> rebuilt;
    std::size_t topLevelSize = 0;
    for (std::size_t i = 0; i < result.nodes.size(); i = result.nodes[i].subtreeEnd) {
        reencode(result.nodes, i, input, rebuilt);
        topLevelSize += headerSize(result.nodes[i]) + result.nodes[i].value.size();
    }
    // Rebuilt templates lose the padding they held; without any, the sizes agree.
    if (rebuilt.size() == topLevelSize) {
        std::vector<std::uint8_t> withoutPadding;
        std::size_t at = 0;
        for (std::size_t i = 0; i < result.nodes.size(); i = result.nodes[i].subtreeEnd) {
            const BerNode& node = result.nodes[i];
            for (; at < node.offset; ++at)
                FUZZ_CHECK(input[at] == 0x00);
            const std::size_t end = node.offset + headerSize(node) + node.value.size();
            withoutPadding.insert(withoutPadding.end(),
                                  input.begin() + static_cast<std::ptrdiff_t>(at),
                                  input.begin() + static_cast<std::ptrdiff_t>(end));
            at = end;
        }
        FUZZ_CHECK(rebuilt == withoutPadding);
    }
    return 0;
}
