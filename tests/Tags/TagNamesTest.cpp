#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string_view>

#include "Tags/TagNameTable.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel {
namespace {

// The slot index must answer exactly what a plain map of the table answers: for every
// two-byte text, and every four-character text over hex digits of both cases and a few
// others (NUL, blank, G, a high byte). This also proves the table has no repeated tag.
TEST(TagNamesTest, IndexAgreesWithAMapOfAllOneHundredThirtySixEntries) {
    std::map<std::string_view, std::string_view> table;
    for (const auto& entry : tagnames::allEntries())
        table.emplace(entry.tag, entry.name);
    ASSERT_EQ(table.size(), 136U);
    const auto expected = [&table](std::string_view tag) -> std::optional<std::string_view> {
        const auto found = table.find(tag);
        return found == table.end() ? std::nullopt : std::optional(found->second);
    };
    int mismatches = 0;
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const char text[] = {static_cast<char>(a), static_cast<char>(b)};
            if (tagnames::findName({text, 2}) != expected({text, 2})) ++mismatches;
        }
    }
    constexpr std::string_view kAlphabet("0123456789ABCDEFabcdefG \0\xDF", 26);
    for (const char a : kAlphabet) {
        for (const char b : kAlphabet) {
            for (const char c : kAlphabet) {
                for (const char d : kAlphabet) {
                    const char text[] = {a, b, c, d};
                    if (tagnames::findName({text, 4}) != expected({text, 4})) ++mismatches;
                }
            }
        }
    }
    EXPECT_EQ(mismatches, 0);
}

TEST(TagNamesTest, NamesKeepTheirOddSpellings) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"4F", "Application Identifier (AID) from card"},
        {"9F06", "Application Identifier (AID) from terminal"},
        {"9F09", "Application Version Number"},  // same as 9F08
        {"9F0D", "Issuer Action Code (Defaul)t"},
        {"5F56", "Issuer Country Code (alpha3format)"},
        {"9F3D", "TransactionReference Currency Exponent"},
        {"9F41", "Transaction SequenceCounter"},
        {"9F49", "Dynamic Data Authentication Data Object List(DDOL)"},
        {"DF18", "Risk Management"},
    };
    for (const auto& [tag, name] : cases)
        EXPECT_EQ(Tag::tagName(tag), name) << tag;
    EXPECT_EQ(Tag::tagName("9F08"), Tag::tagName("9F09"));
}

TEST(TagNamesTest, AnythingButTheExactListedTextIsUnknown) {
    const std::optional<std::string_view> unknown[] = {
        std::nullopt, "",     "9F6E",
        "DF03",                                               // absent, empty, not listed
        "9f12",       "9F3",  "9F340",                        // lower case, prefix, longer
        " 4F",        "004F", std::string_view("4F\0\0", 4),  // no trimming or padding
    };
    for (const auto& tag : unknown)
        EXPECT_EQ(Tag::tagName(tag), "Unknown") << tag.value_or("<absent>");
    EXPECT_EQ(Tag::tagName("9F12"), "Application Preferred Name");
}

}  // namespace
}  // namespace vastrel
