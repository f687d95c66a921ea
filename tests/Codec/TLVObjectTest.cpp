#include "vastrel/Codec/TLVObject.hpp"

#include <gtest/gtest.h>

#include "support/TestSupport.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

TEST(TLVObjectTest, HexStringTakesTheLengthFromTheLengthText) {
    struct Case {
        std::optional<std::string> tag;
        std::optional<std::string> length;
        std::optional<std::string> value;
        const char* expected;
        const char* reason;
    };
    const Case cases[] = {
        {"9F02", "6", "000000001000", "9F0206000000001000", "short form"},
        {"9F02", "200", "AB", "9F0281C8AB", "long form; value not measured"},
        {"9F02", std::nullopt, "AB", "9F0200AB", "absent length writes 00"},
        {"9F02", "", "AB", "9F0200AB", "empty length reads as 0"},
        {"9F02", " +12abc", "", "9F020C", "read like integerValue"},
        {std::nullopt, "1", std::nullopt, "01", "absent tag and value are skipped"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        TLVObject object;
        object.setTag(c.tag);
        object.setLength(c.length);
        object.setValue(c.value);
        EXPECT_EQ(TLVObject::generateHexStringFromTLVObject(&object), c.expected);
    }
    EXPECT_EQ(TLVObject::generateHexStringFromTLVObject(nullptr), std::nullopt);
    EXPECT_EQ(testing::render(TLVObject()), "::");  // empty texts, no children

    TLVObject tooLong("5A");
    EXPECT_EQ(tooLong.tagName(), "Application Primary Account Number (PAN)");
    for (const char* length : {"65536", "-1"}) {
        tooLong.setLength(length);
        EXPECT_THROW(TLVObject::generateHexStringFromTLVObject(&tooLong), RangeError) << length;
    }
}

}  // namespace
}  // namespace vastrel
