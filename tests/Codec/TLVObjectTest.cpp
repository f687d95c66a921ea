#include "vastrel/Codec/TLVObject.hpp"

#include <gtest/gtest.h>
#include <pthread.h>

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
        {"9F02", "90", "", "9F025A", "every decimal digit counts"},
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
    // A length text is read exactly up to the largest 64-bit length, and as that length past
    // it, as integerValue does.
    const struct {
        const char* text;
        const char* read;
    } hugeLengths[] = {
        {"9223372036854775806", "9223372036854775806"},
        {"9223372036854775808", "9223372036854775807"},
        {"99999999999999999999", "9223372036854775807"},
    };
    for (const auto& length : hugeLengths) {
        tooLong.setLength(length.text);
        try {
            TLVObject::generateHexStringFromTLVObject(&tooLong);
            ADD_FAILURE() << length.text << " did not throw";
        } catch (const RangeError& error) {
            EXPECT_NE(
                std::string(error.what()).find("BER length " + std::string(length.read) + " "),
                std::string::npos)
                << error.what();
        }
    }
}

// A tree may be built deeper than any decoder would make it: copying and destroying it take
// no stack per level, shown on a 256 KiB stack.
TEST(TLVObjectTest, DeepTreeIsCopiedAndDestroyedWithoutRecursion) {
    struct Job {
        std::size_t copiedDepth = 0;
        std::string innermostTag;
    } job;
    const auto run = [](void* argument) -> void* {
        auto& job = *static_cast<Job*>(argument);
        TLVObject tree("5A");
        for (int level = 0; level < 100000; ++level) {
            std::vector<TLVObject> children;
            children.push_back(std::move(tree));  // a braced list would copy the subtree
            TLVObject parent("E0");
            parent.setInnerTlvs(std::move(children));
            tree = std::move(parent);
        }
        const TLVObject copy = tree;
        const TLVObject* element = &copy;
        for (; element->innerTlvs(); element = &element->innerTlvs()->front())
            ++job.copiedDepth;
        job.innermostTag = element->tag().value_or("");
        return nullptr;
    };
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 256 * 1024);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, +run, &job), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(job.copiedDepth, 100000u);
    EXPECT_EQ(job.innermostTag, "5A");
}

}  // namespace
}  // namespace vastrel
