#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "support/TestSupport.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

namespace vastrel {
namespace {

// The whole dictionary, spellings included ("Issuer Action Code (Defaul)t", 9F09 named like
// 9F08), pinned in tag-names.golden and compared at once, both as published and as looked up.
TEST(TagNamesTest, DictionaryMatchesTheGoldenFile) {
    std::string published =
        "# The EMV tag-name dictionary: tag, a tab, name; in the "
        "dictionary's own order.\n";
    std::string lookedUp = published;
    for (const TagNameEntry& entry : EMVTagHelper::tagNameDictionary()) {
        published += std::string(entry.tag) + '\t' + std::string(entry.name) + '\n';
        lookedUp += std::string(entry.tag) + '\t' + Tag::tagName(entry.tag) + '\n';
        EXPECT_EQ(Tag::tagNameView(entry.tag).data(), entry.name.data()) << "a view into the table";
    }
    const std::string golden = testing::readSourceFile("tests/Tags/tag-names.golden");
    EXPECT_EQ(published, golden);
    EXPECT_EQ(lookedUp, golden);
}

TEST(TagNamesTest, AnythingButTheExactListedTextIsUnknown) {
    const std::optional<std::string_view> unknown[] = {
        std::nullopt, "",     "9F6E",
        "DF03",                                               // absent, empty, not listed
        "9f12",       "9F3",  "9F340",                        // lower case, prefix, longer
        " 4F",        "004F", std::string_view("4F\0\0", 4),  // no trimming or padding
    };
    for (const auto& tag : unknown) {
        EXPECT_EQ(Tag::tagName(tag), "Unknown") << tag.value_or("<absent>");
        EXPECT_EQ(Tag::tagNameView(tag.value_or("")), "Unknown") << tag.value_or("<absent>");
    }
    EXPECT_EQ(Tag::tagName("9F12"), "Application Preferred Name");
}

}  // namespace
}  // namespace vastrel
