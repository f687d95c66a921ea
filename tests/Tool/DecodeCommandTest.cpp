// `vastrel decode`: the nested decoder's tree, its JSON, input cleaning and bad input.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(DecodeCommandTest, PrintsOneAlignedRowPerElementWithItsName) {
    const RunResult result = runTool({"decode", "9F02060000000010005F2A020840"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "TAG   NAME                          LEN  VALUE\n"
              "9F02  Amount, Authorised (Numeric)    6  000000001000\n"
              "5F2A  Transaction Currency Code       2  0840\n");
    EXPECT_EQ(result.err, "");
}

TEST(DecodeCommandTest, IndentsChildrenBelowTheirTemplate) {
    const RunResult result = runTool({"decode"}, readExample("chip-templates.hex"));
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("\n77      Response Message Template Format 2      55\n"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("\n  9F27  Cryptogram Information Data              1  80\n"),
              std::string::npos)
        << result.out;
}

TEST(DecodeCommandTest, ExplainsWhyTheLastTemplateOfALevelStaysUndecoded) {
    const RunResult result = runTool({"decode"}, readExample("chip-templates.hex"));
    EXPECT_EQ(result.err,
              "vastrel: warning: 70 is constructed but was not decoded into children: the "
              "decoder leaves the last element of each level as it is\n");
}

TEST(DecodeCommandTest, WrapsLongValuesUnderTheirColumnWithoutLosingDigits) {
    const RunResult result =
        runTool({"decode", "--show-sensitive"}, readExample("chip-templates.hex"));
    const std::string value =
        "57134761739001010010D27122011143804400000F5A0847617390010100105F200F43415244484F4C4445"
        "522F564953415F24032712315F25032001015F280208405F3401019F0702FF009F08020096";
    const auto row = result.out.find("\n70 ");
    ASSERT_NE(row, std::string::npos) << result.out;
    const auto column = result.out.find("57134761", row) - row - 1;
    std::string joined;
    std::istringstream lines(result.out.substr(row + 1));
    for (std::string line; std::getline(lines, line);) {
        ASSERT_GT(line.size(), column) << line;
        joined += line.substr(column);
        EXPECT_LE(line.size() - column, 64u) << line;
    }
    EXPECT_EQ(joined, value);
}

TEST(DecodeCommandTest, JsonKeepsKeyOrderAndNestsChildren) {
    const RunResult result = runTool({"decode", "--json", "700A5A0811111111111111119F0100"});
    ASSERT_EQ(result.status, 0) << result.err;
    const auto json = nlohmann::ordered_json::parse(result.out);
    ASSERT_EQ(json.size(), 1u);
    const auto& templ = json[0];
    std::vector<std::string> keys;
    for (const auto& [key, value] : templ.items())
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"tag", "name", "length", "value", "children"}));
    EXPECT_EQ(templ["tag"], "70");
    EXPECT_EQ(templ["length"], 10);
    ASSERT_EQ(templ["children"].size(), 1u);
    EXPECT_EQ(templ["children"][0]["tag"], "5A");
    EXPECT_EQ(templ["children"][0]["value"], "111111******1111");
    EXPECT_EQ(templ["children"][0]["children"], nlohmann::ordered_json::array());
}

// Card number, track 2 and cardholder name, at the top level (chip-pin-sale) and inside a
// template that the decoder leaves whole (chip-templates).
TEST(DecodeCommandTest, MasksCardDataUnlessAskedToShowIt) {
    const std::string kCardData[] = {"4761739001010010", "4761739001010010D2712201114380440",
                                     "43415244484F4C4445522F5649534"};
    for (const char* example : {"chip-pin-sale.hex", "chip-templates.hex"}) {
        for (const std::vector<std::string>& args : {std::vector<std::string>{"decode"},
                                                     {"decode", "--json"},
                                                     {"split"},
                                                     {"decode", "--verbose"}}) {
            SCOPED_TRACE(std::string(example) + " " + args.back());
            const RunResult masked = runTool(args, readExample(example));
            ASSERT_EQ(masked.status, 0) << masked.err;
            std::vector<std::string> shownArgs = args;
            shownArgs.push_back("--show-sensitive");
            const RunResult shown = runTool(shownArgs, readExample(example));
            for (const std::string& data : kCardData) {
                EXPECT_EQ(masked.out.find(data), std::string::npos) << masked.out;
                EXPECT_EQ(masked.err.find(data), std::string::npos) << masked.err;
                EXPECT_NE((shown.out + shown.err).find(data), std::string::npos) << shown.out;
            }
        }
    }
}

TEST(DecodeCommandTest, CleansPastedInputBeforeDecoding) {
    const std::string expected = "9F02  Amount, Authorised (Numeric)    1  FF\n";
    const ToolCase cases[] = {
        {"lower case on stdin", {"decode"}, "9f0201ff", 0, expected, ""},
        {"0x prefix, blanks and newlines", {"decode"}, "  0x9F 02\n01\tFF\r\n", 0, expected, ""},
        {"split over several arguments", {"decode", "9F02", "01", "FF"}, "", 0, expected, ""},
        {"prefix in an argument", {"decode", "0X9F0201FF"}, "", 0, expected, ""},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(DecodeCommandTest, RefusesBadHexWithOneErrorLine) {
    const ToolCase cases[] = {
        {"odd digit count", {"decode", "9F020"}, "", 1, "", "odd number of digits (5)"},
        {"non-hex character", {"decode", "9F0G"}, "", 1, "", "'G' at position 4 is not a hex"},
        {"0x in the middle", {"decode", "9F0x02"}, "", 1, "", "'x' at position 4"},
        {"nothing on stdin", {"decode"}, "", 1, "", "vastrel: error: no hex data given"},
        {"only blanks", {"decode"}, " \n\t", 1, "", "no hex data given"},
        {"unknown option", {"decode", "--tree"}, "", 2, "", "--tree"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(DecodeCommandTest, WarnsWhenNothingCouldBeDecoded) {
    expectCase({"zero byte where a tag is due",
                {"decode", "00"},
                "",
                0,
                "",
                "vastrel: warning: no TLV element could be decoded"});
    const RunResult json = runTool({"decode", "--json", "00"});
    EXPECT_EQ(json.out, "[]\n");
}

TEST(DecodeCommandTest, ShowsTheLibraryLogOnlyWhenVerbose) {
    EXPECT_EQ(runTool({"decode", "9F02060000000010005F2A020840"}).err, "");
    const RunResult verbose = runTool({"decode", "--verbose", "9F02060000000010005F2A020840"});
    EXPECT_EQ(verbose.status, 0);
    EXPECT_NE(verbose.err.find("vastrel: log: "), std::string::npos) << verbose.err;
    EXPECT_NE(verbose.err.find("Amount, Authorised (Numeric)"), std::string::npos);
    EXPECT_EQ(runTool({"-v", "decode", "5A021234"}).status, 0);
}

}  // namespace
}  // namespace vastrel::tool::testing
