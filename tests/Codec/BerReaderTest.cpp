// The strict reader: what it reads, where it stops, and why.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HexBytes.hpp"
#include "support/TestSupport.hpp"
#include "vastrel/Codec/BerReader.hpp"

namespace vastrel {
namespace {

using testing::bytesOf;
using K = BerErrorKind;

// Each element as depth, tag and value in hex: "0 70:", "1 5A:4761".
std::vector<std::string> shape(const BerReadResult& result) {
    std::vector<std::string> out;
    for (const auto& node : result.nodes) {
        out.push_back(std::to_string(node.depth) + " " + testing::hex(node.tag) + ":" +
                      (node.constructed ? "" : testing::hex(node.value)));
    }
    return out;
}

TEST(BerReaderTest, ReadsWellFormedData) {
    struct Case {
        const char* why;
        const char* hex;
        std::vector<std::string> shape;
        std::size_t padding;
    };
    const Case cases[] = {
        {"every template expanded, the last one included",
         "77 03 9F2700 70 03 5A 01 47",
         {"0 77:", "1 9F27:", "0 70:", "1 5A:47"},
         0},
        {"nested templates", "70 06 61 04 4F 02 A0 00", {"0 70:", "1 61:", "2 4F:A000"}, 0},
        {"an empty last element is kept", "9F02 01 12 9F03 00", {"0 9F02:12", "0 9F03:"}, 0},
        {"an empty template", "70 00 5A 00", {"0 70:", "0 5A:"}, 0},
        {"three-byte and four-byte tags",
         "DF8129 01 11 FF810100 9F818203 00",
         {"0 DF8129:11", "0 FF8101:", "0 9F818203:"},
         0},
        {"a tag of six bytes", "1F 81 82 83 84 05 01 AA", {"0 1F8182838405:AA"}, 0},
        {"lengths in long form, 81 to 84",
         "5A 81 01 11 5A 82 0001 22 5A 83 000001 33 5A 84 00000001 44",
         {"0 5A:11", "0 5A:22", "0 5A:33", "0 5A:44"},
         0},
        {"00 padding before, between, inside and after",
         "00 70 04 00 5A 01 47 00 00 5F 20 00 00",
         {"0 70:", "1 5A:47", "0 5F20:"},
         5},
        {"only padding", "00 00", {}, 2},
        {"nothing", "", {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const auto data = bytesOf(c.hex);
        const BerReadResult result = BerReader::read(data);
        EXPECT_TRUE(result.ok()) << describe(result.error->kind);
        EXPECT_EQ(shape(result), c.shape);
        EXPECT_EQ(result.paddingBytes, c.padding);
    }
}

TEST(BerReaderTest, StopsAtTheFirstElementItCannotRead) {
    struct Case {
        const char* why;
        const char* hex;
        BerError error;
        std::size_t nodesKept;
    };
    const Case cases[] = {
        {"a tag cut short", "5A 01 47 9F", {K::TruncatedTag, 3}, 1},
        {"a three-byte tag cut short", "9F 81", {K::TruncatedTag, 0}, 0},
        {"no length after the tag", "5A 01 47 9F 27", {K::TruncatedLength, 3}, 1},
        {"a long-form length cut short", "5A 82 01", {K::TruncatedLength, 0}, 0},
        {"a value past the end", "5A 01 47 9F 27 02 80", {K::LengthPastEnd, 3}, 1},
        {"a 4-byte length far past the end", "5A 84 FF FF FF FF 00", {K::LengthPastEnd, 0}, 0},
        {"five length bytes", "5A 85 00 00 00 00 01 11", {K::LengthTooLarge, 0}, 0},
        {"the reserved length byte FF", "5A FF", {K::LengthTooLarge, 0}, 0},
        {"the indefinite form", "70 80 5A 01 47 00 00", {K::IndefiniteLength, 0}, 0},
        {"a child past its template's end",
         "70 03 5A 02 47 61 9F 27 01 80",
         {K::LengthPastEnd, 2},
         1},
        {"a tag cut short by its template's end", "70 01 9F 27 01 80", {K::TruncatedTag, 2}, 1},
        {"a value past the end after a template", "70 03 5A 01 47 5A 01", {K::LengthPastEnd, 5}, 2},
        {"an error two levels down keeps its own offset",
         "70 08 61 06 4F 01 A0 4F 05 A0",
         {K::LengthPastEnd, 7},
         3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const auto data = bytesOf(c.hex);
        const BerReadResult result = BerReader::read(data);
        ASSERT_FALSE(result.ok());
        EXPECT_EQ(*result.error, c.error)
            << describe(result.error->kind) << " at " << result.error->offset;
        EXPECT_EQ(result.nodes.size(), c.nodesKept);
    }
}

TEST(BerReaderTest, TemplatesOpenWhenTheReadStopsEndAtTheLastNodeRead) {
    const auto data = bytesOf("70 08 61 06 4F 01 A0 4F 05 A0");
    const BerReadResult result = BerReader::read(data);
    ASSERT_EQ(result.nodes.size(), 3u);
    EXPECT_EQ(result.nodes[0].subtreeEnd, 3u);
    EXPECT_EQ(result.nodes[1].subtreeEnd, 3u);
    EXPECT_EQ(result.nodes[2].parent, 1u);
    EXPECT_EQ(result.nodes[1].parent, 0u);
    EXPECT_EQ(result.nodes[0].parent, BerNode::kNoParent);
}

TEST(BerReaderTest, LinksEachNodeToItsTemplateAndSubtree) {
    // 70 { 61 { 4F } 50 } 9F27
    const auto data = bytesOf("70 0A 61 03 4F 01 A0 50 03 41 42 43 9F 27 01 80");
    const BerReadResult result = BerReader::read(data);
    ASSERT_TRUE(result.ok());
    struct Expected {
        std::uint32_t depth, parent, subtreeEnd;
        std::size_t offset;
        std::uint8_t lengthFieldSize;
    };
    const Expected expected[] = {
        {0, BerNode::kNoParent, 4, 0, 1},  {1, 0, 3, 2, 1}, {2, 1, 3, 4, 1}, {1, 0, 4, 7, 1},
        {0, BerNode::kNoParent, 5, 12, 1},
    };
    ASSERT_EQ(result.nodes.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(result.nodes[i].depth, expected[i].depth);
        EXPECT_EQ(result.nodes[i].parent, expected[i].parent);
        EXPECT_EQ(result.nodes[i].subtreeEnd, expected[i].subtreeEnd);
        EXPECT_EQ(result.nodes[i].offset, expected[i].offset);
        EXPECT_EQ(result.nodes[i].lengthFieldSize, expected[i].lengthFieldSize);
    }
    EXPECT_EQ(result.nodes[4].tagNumber(), 0x9F27u);
    const auto longForm = bytesOf("5A 82 0001 22");
    EXPECT_EQ(BerReader::read(longForm).nodes[0].lengthFieldSize, 3u);
}

TEST(BerReaderTest, DepthLimitCountsTheTopLevel) {
    // Four levels: E1 { E1 { E1 { 5A } } }
    const auto data = bytesOf("E1 07 E1 05 E1 03 5A 01 47");
    EXPECT_TRUE(BerReader::read(data, 4).ok());
    const BerReadResult limited = BerReader::read(data, 3);
    ASSERT_FALSE(limited.ok());
    EXPECT_EQ(*limited.error, (BerError{K::TooDeep, 6}));
    EXPECT_EQ(limited.nodes.size(), 3u);
    EXPECT_EQ(BerReader::read(data, 0).error, (BerError{K::TooDeep, 0}));
}

TEST(BerReaderTest, DefaultDepthIsThirtyTwoLevels) {
    auto nested = [](int levels) {
        std::vector<std::uint8_t> data;
        for (int i = 0; i < levels - 1; ++i) {
            data.push_back(0xE1);
            data.push_back(static_cast<std::uint8_t>(2 * (levels - 1 - i) + 1));
        }
        data.insert(data.end(), {0x5A, 0x01, 0x47});
        return data;
    };
    const auto deepest = nested(32);
    EXPECT_TRUE(BerReader::read(deepest).ok());
    const auto tooDeep = nested(33);
    const BerReadResult deeper = BerReader::read(tooDeep);
    ASSERT_FALSE(deeper.ok());
    EXPECT_EQ(deeper.error->kind, K::TooDeep);
    EXPECT_EQ(deeper.error->offset, 64u);
}

TEST(BerReaderTest, ReusedResultStartsAfresh) {
    BerReadResult result;
    const auto bad = bytesOf("00 5A 01");
    const auto good = bytesOf("9F 27 01 80");
    BerReader::read(bad, result);
    ASSERT_FALSE(result.ok());
    BerReader::read(good, result);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.nodes.size(), 1u);
    EXPECT_EQ(result.paddingBytes, 0u);
}

TEST(BerReaderTest, TagNumberOfLongTagsIsAllOnes) {
    const auto data = bytesOf("1F 81 82 83 84 05 00");
    const BerReadResult result = BerReader::read(data);
    ASSERT_EQ(result.nodes.size(), 1u);
    EXPECT_EQ(result.nodes[0].tagNumber(), 0xFFFFFFFFu);
}

TEST(BerReaderTest, ErrorKindsHaveTheirWords) {
    EXPECT_EQ(describe(K::TruncatedTag), "truncated tag");
    EXPECT_EQ(describe(K::TruncatedLength), "truncated length");
    EXPECT_EQ(describe(K::LengthPastEnd), "length past the end");
    EXPECT_EQ(describe(K::LengthTooLarge), "length too large");
    EXPECT_EQ(describe(K::IndefiniteLength), "indefinite length");
    EXPECT_EQ(describe(K::TooDeep), "too deep");
}

}  // namespace
}  // namespace vastrel
