#include "vastrel/Codec/Tag.hpp"

#include <gtest/gtest.h>

#include <unordered_set>

namespace vastrel {
namespace {

TEST(TagTest, FlatReaderByteRules) {
    EXPECT_EQ(Tag::tagClassFromChar(0x9F), TagClass::ContextSpecific);
    EXPECT_EQ(Tag::tagClassFromChar(0x5F), TagClass::Application);
    EXPECT_EQ(Tag::tagClassFromChar(0xDF), TagClass::Private);
    EXPECT_EQ(Tag::tagClassFromChar(0x1F), TagClass::Universal);
    // Answers whether the constructed bit is set, despite its name.
    EXPECT_FALSE(Tag::tagIsPrimitive(0x9F));
    EXPECT_TRUE(Tag::tagIsPrimitive(0x70));
    EXPECT_EQ(Tag::tagIdentifier(0xDF, true), 0x1F);
    EXPECT_EQ(Tag::tagIdentifier(0xDF, false), 0x5F);
    EXPECT_FALSE(Tag::tagIdentifierIsLastByte(0x81));
    EXPECT_TRUE(Tag::tagIdentifierIsLastByte(0x7F));
}

TEST(TagTest, DecoderByteRules) {
    for (const std::int32_t b : {0x9F, 0x5F, 0xDF, 0xBF})
        EXPECT_TRUE(Tag::isMultiByte(b)) << b;
    EXPECT_FALSE(Tag::isMultiByte(0x9A));
    EXPECT_FALSE(Tag::isValid(0));
    EXPECT_TRUE(Tag::isConstructed(0x70));
    EXPECT_FALSE(Tag::isConstructed(0x9F));
    EXPECT_TRUE(Tag::isLast(0x7F));
    EXPECT_FALSE(Tag::isLast(0x80));
    EXPECT_FALSE(Tag::isLast(-1));  // shifted right, a negative number never reaches 0
}

TEST(TagTest, EqualityAndHashUseValueBytesOnly) {
    Tag a;
    a.setValue({0x9F, 0x02});
    a.setTagClass(TagClass::ContextSpecific);
    Tag b;
    b.setValue({0x9F, 0x02});
    b.setTagClass(TagClass::Private);
    b.setTagType(TagType::Constructed);
    Tag c;
    c.setValue({0x9F, 0x03});
    EXPECT_EQ(a, b);
    EXPECT_EQ(std::hash<Tag>{}(a), std::hash<Tag>{}(b));
    EXPECT_NE(a, c);
    const std::unordered_set<Tag> set = {a, b, c, Tag()};
    EXPECT_EQ(set.size(), 3U);
}

}  // namespace
}  // namespace vastrel
