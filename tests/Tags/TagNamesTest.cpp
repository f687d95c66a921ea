#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "Tags/TagNameTable.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel {
namespace {

TEST(TagNamesTest, TableHoldsOneHundredThirtySixUniqueUppercaseTags) {
    const auto entries = tagnames::allEntries();
    EXPECT_EQ(entries.size(), 136U);
    std::set<std::string_view> tags;
    for (const auto& entry : entries) {
        EXPECT_TRUE(tags.insert(entry.tag).second) << "repeated tag " << entry.tag;
        EXPECT_TRUE(entry.tag.size() == 2 || entry.tag.size() == 4) << entry.tag;
        EXPECT_TRUE(std::all_of(entry.tag.begin(), entry.tag.end(), [](char c) {
            const auto u = static_cast<unsigned char>(c);
            return std::isxdigit(u) && !std::islower(u);
        })) << entry.tag;
    }
}

TEST(TagNamesTest, EveryListedTagFindsItsOwnName) {
    for (const auto& entry : tagnames::allEntries()) {
        EXPECT_EQ(Tag::tagName(entry.tag), entry.name) << entry.tag;
    }
}

// The index must answer exactly what a plain map of the table answers, for every two-byte
// text and every four-character text over hex digits of both cases and a few others.
TEST(TagNamesTest, IndexAgreesWithAScanOfTheTable) {
    std::map<std::string_view, std::string_view> table;
    for (const auto& entry : tagnames::allEntries())
        table.emplace(entry.tag, entry.name);
    const auto scan = [&table](std::string_view tag) -> std::optional<std::string_view> {
        const auto found = table.find(tag);
        if (found == table.end()) return std::nullopt;
        return found->second;
    };
    int mismatches = 0;
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const char text[] = {static_cast<char>(a), static_cast<char>(b)};
            const std::string_view tag(text, 2);
            if (tagnames::findName(tag) != scan(tag)) ++mismatches;
        }
    }
    constexpr std::string_view kAlphabet("0123456789ABCDEFabcdefG \0\xDF", 26);
    for (const char a : kAlphabet) {
        for (const char b : kAlphabet) {
            for (const char c : kAlphabet) {
                for (const char d : kAlphabet) {
                    const char text[] = {a, b, c, d};
                    const std::string_view tag(text, 4);
                    if (tagnames::findName(tag) != scan(tag)) ++mismatches;
                }
            }
        }
    }
    EXPECT_EQ(mismatches, 0);
}

TEST(TagNamesTest, NamesKeepTheirOddSpellings) {
    struct Case {
        std::string_view tag;
        std::string_view name;
    };
    const Case cases[] = {
        {"42", "Issuer Identification Number (IIN)"},
        {"4F", "Application Identifier (AID) from card"},
        {"9F06", "Application Identifier (AID) from terminal"},
        {"9F08", "Application Version Number"},
        {"9F09", "Application Version Number"},
        {"9F0D", "Issuer Action Code (Defaul)t"},
        {"5F55", "Issuer Country Code (alpha2 format)"},
        {"5F56", "Issuer Country Code (alpha3format)"},
        {"9F3B", "Application Reference Currency"},
        {"9F3D", "TransactionReference Currency Exponent"},
        {"9F41", "Transaction SequenceCounter"},
        {"9F49", "Dynamic Data Authentication Data Object List(DDOL)"},
        {"9F12", "Application Preferred Name"},
        {"9F34", "Cardholder Verification Method (CVM) Results"},
        {"81", "Amount, Authorised (Binary)"},
        {"BF0C", "File Control Information (FCI) Issuer Discretionary Data"},
        {"DF13", "ISO 7811 Track 1 card data"},
        {"DF18", "Risk Management"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Tag::tagName(c.tag), c.name) << c.tag;
    }
}

TEST(TagNamesTest, AnythingButTheExactListedTextIsUnknown) {
    struct Case {
        std::optional<std::string_view> tag;
        std::string_view reason;
    };
    const Case cases[] = {
        {std::nullopt, "absent"},
        {"", "empty"},
        {"9F6E", "not listed, though an accessor returns it"},
        {"9F53", "not listed"},
        {"9F66", "not listed"},
        {"DF03", "gap in the reader's DF range"},
        {"9f12", "lower case is not normalised"},
        {"df18", "lower case is not normalised"},
        {"9F3", "prefix of a listed tag"},
        {"9F340", "listed tag with a trailing digit"},
        {"9F34 ", "trailing blank is not trimmed"},
        {" 4F", "leading blank is not trimmed"},
        {"004F", "leading zeros are not dropped"},
        {std::string_view("4F\0\0", 4), "NUL padding is part of the text"},
        {std::string_view("\0\0\0\0", 4), "all NUL"},
        {"\xFF\xFF\xFF\xFF", "high bytes"},
        {"9F349F34", "two tags"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(Tag::tagName(c.tag), "Unknown");
    }
}

TEST(TagNamesTest, LowerCaseFormOfEveryLetteredTagIsUnknown) {
    for (const auto& entry : tagnames::allEntries()) {
        std::string lower(entry.tag);
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](char c) { return static_cast<char>(std::tolower(c)); });
        if (lower == entry.tag) continue;
        EXPECT_EQ(Tag::tagName(lower), "Unknown") << lower;
    }
}

}  // namespace
}  // namespace vastrel
