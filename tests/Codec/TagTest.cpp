#include "vastrel/Codec/Tag.hpp"

#include <gtest/gtest.h>

#include <unordered_set>

namespace vastrel {
namespace {

TEST(TagTest, FlatReaderByteRules) {
    struct Case {
        std::uint8_t b;
        TagClass tagClass;
        bool constructedBit;  // what tagIsPrimitive answers
        int firstIdentifier;
        int laterIdentifier;
        bool lastByte;
    };
    const Case cases[] = {
        {0x9F, TagClass::ContextSpecific, false, 0x1F, 0x1F, false},
        {0x5F, TagClass::Application, false, 0x1F, 0x5F, true},
        {0xDF, TagClass::Private, false, 0x1F, 0x5F, false},
        {0x1F, TagClass::Universal, false, 0x1F, 0x1F, true},
        {0x70, TagClass::Application, true, 0x10, 0x70, true},
        {0xBF, TagClass::ContextSpecific, true, 0x1F, 0x3F, false},
        {0x00, TagClass::Universal, false, 0x00, 0x00, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.b));
        EXPECT_EQ(Tag::tagClassFromChar(c.b), c.tagClass);
        EXPECT_EQ(Tag::tagIsPrimitive(c.b), c.constructedBit);
        EXPECT_EQ(Tag::tagIdentifier(c.b, true), c.firstIdentifier);
        EXPECT_EQ(Tag::tagIdentifier(c.b, false), c.laterIdentifier);
        EXPECT_EQ(Tag::tagIdentifierIsLastByte(c.b), c.lastByte);
    }
}

TEST(TagTest, DecoderByteRules) {
    struct Case {
        std::int32_t b;
        bool valid;
        bool constructed;
        bool multiByte;
        bool last;
    };
    const Case cases[] = {
        {0x9F, true, false, true, false},   {0x5F, true, false, true, true},
        {0xDF, true, false, true, false},   {0xBF, true, true, true, false},
        {0x9A, true, false, false, false},  {0x70, true, true, false, true},
        {0x00, false, false, false, true},  {-1, true, true, true, false},
        {0x100, true, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.b);
        EXPECT_EQ(Tag::isValid(c.b), c.valid);
        EXPECT_EQ(Tag::isConstructed(c.b), c.constructed);
        EXPECT_EQ(Tag::getEncoding(c.b), c.constructed ? 32 : 0);
        EXPECT_EQ(Tag::isMultiByte(c.b), c.multiByte);
        EXPECT_EQ(Tag::isLast(c.b), c.last);
    }
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
    EXPECT_EQ(Tag(), Tag());
    const std::unordered_set<Tag> set = {a, b, c, Tag()};
    EXPECT_EQ(set.size(), 3U);
}

}  // namespace
}  // namespace vastrel
