#include "vastrel/Codec/TLVFlatten.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vastrel/Codec/TLVDecoder.hpp"

namespace vastrel {
namespace {

std::vector<std::string> tagsOf(const std::vector<TLVObject>& elements) {
    std::vector<std::string> tags;
    for (const TLVObject& element : elements)
        tags.push_back(element.tag().value_or("?"));
    return tags;
}

TEST(TLVFlattenTest, OpensTemplatesAtEveryDepthInOrder) {
    // 6F { 84, A5 { 50, BF0C { 9F4D } , 87 }, 88 }, 9F1A; the decoder leaves each level's last
    // element whole, so 88 and 9F1A close their levels.
    const auto decoded = TLVDecoder::decodeWithTLVString(
        "6F158401AAA50D500141BF0C049F4D0111870101880102"
        "9F1A020840");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(tagsOf(TLVFlatten::primitives(*decoded)),
              (std::vector<std::string>{"84", "50", "9F4D", "87", "88", "9F1A"}));
}

TEST(TLVFlattenTest, KeepsTemplatesWithoutChildren) {
    TLVObject empty("E1");
    empty.setInnerTlvs(std::vector<TLVObject>{});
    EXPECT_EQ(tagsOf(TLVFlatten::primitives({empty, TLVObject("5A")})),
              (std::vector<std::string>{"E1", "5A"}));
    EXPECT_TRUE(TLVFlatten::primitives({}).empty());
}

TEST(TLVFlattenTest, HandBuiltTreeDeeperThanAnyStackIsFlattened) {
    TLVObject tree("5A");
    for (int level = 0; level < 100'000; ++level) {
        std::vector<TLVObject> children;
        children.reserve(2);
        children.push_back(std::move(tree));
        children.emplace_back("9F02");
        tree = TLVObject("E1");
        tree.setInnerTlvs(std::move(children));
    }
    const std::vector<TLVObject> forest(1, std::move(tree));
    const auto flat = TLVFlatten::primitives(forest);
    ASSERT_EQ(flat.size(), 100'001u);
    EXPECT_EQ(flat.front().tag(), "5A");
    EXPECT_EQ(flat.back().tag(), "9F02");
}

}  // namespace
}  // namespace vastrel
