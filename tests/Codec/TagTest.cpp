#include "vastrel/Codec/Tag.hpp"

#include <gtest/gtest.h>

#include <unordered_set>

namespace vastrel {
namespace {

TEST(TagTest, EqualityAndHashUseValueBytesOnly) {
    Tag a, b, c;
    a.setValue({0x9F, 0x02});
    a.setTagClass(TagClass::ContextSpecific);
    b.setValue({0x9F, 0x02});
    b.setTagClass(TagClass::Private);
    b.setTagType(TagType::Constructed);
    c.setValue({0x9F, 0x03});
    EXPECT_EQ(a, b);
    EXPECT_EQ(std::hash<Tag>{}(a), std::hash<Tag>{}(b));
    EXPECT_NE(a, c);
    EXPECT_EQ((std::unordered_set<Tag>{a, b, c, Tag()}).size(), 3U);
}

}  // namespace
}  // namespace vastrel
