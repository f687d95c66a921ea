#include "vastrel/Codec/TLVUtility.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "support/TestSupport.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::hex;
using testing::LogCapture;

// The bytes that text stands for, as hex, or the message of the assertion it raises.
std::string readHex(const std::string& text) {
    try {
        return hex(TLVUtility::dataWithHexString(text));
    } catch (const AssertionFailure& failure) {
        return failure.what();
    }
}

// The pair a,b as strtol(base 16) reads the text "ab": absent unless it takes both characters.
std::optional<std::uint8_t> strtolPair(int a, int b) {
    const char text[3] = {static_cast<char>(a), static_cast<char>(b), '\0'};
    char* end = nullptr;
    const long value = std::strtol(text, &end, 16);
    return end == text + 2 ? std::optional(static_cast<std::uint8_t>(value)) : std::nullopt;
}

// The odd pairs must read exactly as the C library itself reads them, including NUL,
// blanks, signs, "0x" and bytes above 0x7F.
TEST(TLVUtilityTest, OddPairsReadExactlyAsStrtolAndSscanfReadThem) {
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            const char text[3] = {static_cast<char>(a), static_cast<char>(b), '\0'};
            const std::string pair(text, 2);
            const auto expected = strtolPair(a, b);
            if (expected) {
                ASSERT_EQ(TLVUtility::dataWithHexString(pair), Bytes{*expected}) << a << "," << b;
            } else {
                ASSERT_THROW(TLVUtility::dataWithHexString(pair), AssertionFailure)
                    << a << "," << b;
            }
            unsigned scanned = 0;
            static_cast<void>(std::sscanf(text, "%x", &scanned));
            ASSERT_EQ(TLVUtility::hexToAscii(pair),
                      std::string(1, static_cast<char>(static_cast<std::uint8_t>(scanned))))
                << a << "," << b;
        }
    }
}

// Long text is decoded sixteen pairs at a time; every byte value, in either digit of a
// pair, must be classified there exactly as the pair-by-pair reading classifies it.
TEST(TLVUtilityTest, BlockDecodingAgreesWithPairReadingForEveryByte) {
    constexpr std::string_view digits = "0123456789abcdefABCDEF";
    for (int c = 0; c < 256; ++c) {
        std::string text(64, '0');
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = digits[(i + c) % digits.size()];
        text[static_cast<std::size_t>(c) % text.size()] = static_cast<char>(c);
        Bytes bytes;
        std::optional<std::size_t> badPair;
        for (std::size_t i = 0; i < text.size(); i += 2) {
            const auto value = strtolPair(static_cast<unsigned char>(text[i]),
                                          static_cast<unsigned char>(text[i + 1]));
            if (!value && !badPair) badPair = i;
            bytes.push_back(value.value_or(0));
        }
        // what() is a C string: a NUL in the text cuts both sides alike.
        const std::string message = "String should be all hex digits: " + text +
                                    " (bad digit around " + std::to_string(badPair.value_or(0)) +
                                    ")";
        EXPECT_EQ(readHex(text), badPair ? message.c_str() : hex(bytes)) << c;
    }
}

TEST(TLVUtilityTest, DataWithHexStringReadsPairsOrAssertsNamingTheInput) {
    const std::string block(32, '0');
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {" A-1", "0AFF"},  // strtol skips a leading blank and takes a sign; cut to 8 bits
        {"ABC", "Hex strings should have an even number of digits (ABC)"},
        // Blanks between pairs are not removed.
        {"0A 0B", "Hex strings should have an even number of digits (0A 0B)"},
        {"0G", "String should be all hex digits: 0G (bad digit around 0)"},
        {"00ZZ", "String should be all hex digits: 00ZZ (bad digit around 2)"},
        // A bad pair in the tail after a block.
        {block + "00G0",
         "String should be all hex digits: " + block + "00G0 (bad digit around 34)"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(readHex(text), expected) << text;
}

TEST(TLVUtilityTest, HexRoundTripsEveryByteValue) {
    Bytes all(256);
    for (int b = 0; b < 256; ++b)
        all[b] = static_cast<std::uint8_t>(b);
    const std::string upper = TLVUtility::dataToHexString(all);
    EXPECT_EQ(upper.substr(0, 8) + upper.substr(504), "00010203FCFDFEFF");
    EXPECT_EQ(TLVUtility::dataWithHexString(upper), all);
    std::string lower = upper;
    for (char& c : lower)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(TLVUtility::dataWithHexString(lower), all);
    EXPECT_EQ(TLVUtility::stringToHex(
                  std::string_view(reinterpret_cast<const char*>(all.data() + 1), 255)),
              lower.substr(2));
}

TEST(TLVUtilityTest, StringToHexStopsAtNulAndHexToAsciiReadsPairsAsSscanf) {
    EXPECT_EQ(TLVUtility::stringToHex("Hi"), "4869");
    EXPECT_EQ(TLVUtility::stringToHex(std::string_view("Hi\0there", 8)), "4869");
    EXPECT_EQ(TLVUtility::hexToAscii("414243"), "ABC");
    EXPECT_EQ(TLVUtility::hexToAscii("41424"), "");  // odd length
    EXPECT_EQ(TLVUtility::hexToAscii("4G-4G4"), std::string("\x04\xFC\x00", 3));
}

TEST(TLVUtilityTest, TagFromTLVStringReadsTheFrontTag) {
    // Tag bytes, class and type; the type is stored inverted: 0 for constructed, 32 for
    // primitive.
    const std::pair<const char*, const char*> cases[] = {
        {"9F02060000", "9F02 128 32"},
        {"5A08", "5A 64 32"},
        {"70", "70 64 0"},
        {"df8f8101", "DF8F8101 192 32"},  // any number of bytes
        {"9F", " 128 32"},                // ends inside the tag
    };
    for (const auto& [tlv, expected] : cases) {
        const std::optional<Tag> tag = TLVUtility::tagFromTLVString(tlv);
        ASSERT_TRUE(tag.has_value()) << tlv;
        EXPECT_EQ(hex(tag->value()) + " " +
                      std::to_string(static_cast<std::uint64_t>(tag->tagClass())) + " " +
                      std::to_string(static_cast<std::uint64_t>(tag->tagType())),
                  expected);
        EXPECT_EQ(tag->tagIdentifier(), 0U);
    }
    EXPECT_EQ(TLVUtility::tagFromTLVString(""), std::nullopt);
    EXPECT_THROW(TLVUtility::tagFromTLVString("9F0"), AssertionFailure);
}

// Walks the data as the splitter does, with its log line and its range error.
TEST(TLVUtilityTest, TagValueFromTLVGivesTheLastCompleteValue) {
    LogCapture log;
    EXPECT_EQ(TLVUtility::tagValueFromTLV("5a0212349502abcd"), "ABCD");
    EXPECT_EQ(TLVUtility::tagValueFromTLV("5A011270810100"), "12");  // stops at the long form
    EXPECT_EQ(log.lines(), std::vector<std::string>{"unimplemented"});
    EXPECT_THROW(TLVUtility::tagValueFromTLV("5A02"), RangeError);  // even with no value byte
}

// The splitter's copies of the two checks behave the same.
TEST(TLVUtilityTest, IssuerScriptTemplatesMatchOneByteTagsAndNoTag) {
    struct Case {
        const char* tlv;
        bool template1;
        bool template2;
    };
    const Case cases[] = {
        {"7103860100", true, false}, {"7203860100", false, true}, {"", true, true},
        {"9F", true, true},  // ends inside a multi-byte tag: no tag bytes to compare
        {"5A00", false, false},      {"7F7100", false, false},    {"9F7172", false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tlv);
        EXPECT_EQ(TLVUtility::isIssuerScriptTemplate1(c.tlv), c.template1);
        EXPECT_EQ(TLVUtility::isIssuerScriptTemplate2(c.tlv), c.template2);
        EXPECT_EQ(TLVParser::isIssuerScriptTemplate1(c.tlv), c.template1);
        EXPECT_EQ(TLVParser::isIssuerScriptTemplate2(c.tlv), c.template2);
    }
}

TLVObject element(const char* tag, const char* value,
                  std::optional<std::vector<TLVObject>> children = std::nullopt) {
    TLVObject object(tag);
    object.setValue(value);
    object.setLength(std::to_string(std::string_view(value).size() / 2));
    object.setInnerTlvs(std::move(children));
    return object;
}

TEST(TLVUtilityTest, FindTLVObjectSearchesTopLevelThenOneLevelDown) {
    const std::vector<TLVObject> list = {
        element("9F02", "000000001000"),
        element("70", "", std::vector{element("5A", "11"), element("9F02", "22")}),
        element("77", "", std::vector{element("61", "", std::vector{element("50", "33")})}),
        element("5A", "44"),
    };
    const auto valueOf = [&list](std::int64_t tag) {
        const std::optional<TLVObject> found = TLVUtility::findTLVObject(tag, list);
        return found ? found->value().value_or("?") : "<absent>";
    };
    EXPECT_EQ(valueOf(0x9F02), "000000001000");
    EXPECT_EQ(valueOf(0x5A), "11");        // the child of 70 comes before the later 5A
    EXPECT_EQ(valueOf(0x50), "<absent>");  // grandchildren are not searched
    EXPECT_EQ(valueOf(0x9F03), "<absent>");
    EXPECT_EQ(TLVUtility::findTLVObject(0x5A, std::nullopt), std::nullopt);
    EXPECT_EQ(TLVUtility::findTLVObject(0x5A, std::vector<TLVObject>{}), std::nullopt);
}

TEST(TLVUtilityTest, CreateTLVFromTagEncodesTheValueCount) {
    // No check above 65535: the count then takes five digits.
    const std::pair<std::size_t, const char*> cases[] = {
        {0, "00"},       {127, "7F"},       {128, "8180"},     {255, "81FF"},
        {256, "820100"}, {65535, "82FFFF"}, {65536, "8210000"}};
    for (const auto& [valueBytes, lengthField] : cases) {
        const std::string value(2 * valueBytes, 'A');
        EXPECT_EQ(TLVUtility::createTLVFromTag("9F02", value), "9F02" + (lengthField + value))
            << valueBytes;
    }
    EXPECT_EQ(TLVUtility::createTLVFromTag("5A", "123"), "5A01123");  // odd text: count 1
}

TEST(TLVUtilityTest, IccDataStringJoinsElements) {
    using Dictionary = std::map<std::string, std::string>;
    EXPECT_EQ(TLVUtility::fetchIccDataStringFromEmvTagsDictionary(std::nullopt), std::nullopt);
    EXPECT_EQ(TLVUtility::fetchIccDataStringFromEmvTagsDictionary(Dictionary{}), std::nullopt);
    EXPECT_EQ(TLVUtility::fetchIccDataStringFromEmvTagsDictionary(
                  Dictionary{{"9F02", "000000001000"}, {"5A", "4761"}}),
              "5A0247619F0206000000001000");

    TLVObject stale = element("95", "0000000000");
    stale.setLength("2");  // the array form trusts the length text, not the value
    EXPECT_EQ(TLVUtility::fetchIccDataStringFromEmvTagsArray(
                  std::vector{element("9F02", "000000001000"), stale}),
              "9F0206000000001000"
              "95020000000000");
    EXPECT_EQ(TLVUtility::fetchIccDataStringFromEmvTagsArray(std::nullopt), "");
}

TEST(TLVUtilityTest, StripKeepsUnlistedTagsAndNothingWithoutAList) {
    const std::vector<TLVObject> tags = {element("5A", "11"), element("9F02", "22"),
                                         element("5A", "33"), element("5a", "44")};
    std::vector<std::string> kept;
    for (const TLVObject& object :
         TLVUtility::stripTagsEmvTagDescriptors(std::vector<std::string>{"5A"}, tags)) {
        kept.push_back(*object.value());
    }
    EXPECT_EQ(kept, (std::vector<std::string>{"22", "44"}));
    EXPECT_TRUE(TLVUtility::stripTagsEmvTagDescriptors(std::vector<std::string>{}, tags).empty());
    EXPECT_TRUE(TLVUtility::stripTagsEmvTagDescriptors(std::nullopt, tags).empty());
    EXPECT_TRUE(TLVUtility::stripTagsEmvTagDescriptors(std::vector<std::string>{"5A"}, std::nullopt)
                    .empty());
}

}  // namespace
}  // namespace vastrel
