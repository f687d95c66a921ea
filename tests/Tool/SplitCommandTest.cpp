// `vastrel split`: the flat splitter, one named element per line.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(SplitCommandTest, PrintsEachTopLevelElementBesideItsName) {
    const RunResult result = runTool({"split", "9f0206000000001000 5f2a020840"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "9F02  Amount, Authorised (Numeric)  9F0206000000001000\n"
              "5F2A  Transaction Currency Code     5F2A020840\n");
    EXPECT_EQ(result.err, "");
}

TEST(SplitCommandTest, KeepsTemplatesWhole) {
    const RunResult result = runTool({"split"}, readExample("chip-templates.hex"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2) << result.out;
    EXPECT_EQ(result.out.rfind("77  Response Message Template Format 2  7737", 0), 0u);
}

TEST(SplitCommandTest, JsonListsTagNameAndElement) {
    const RunResult result = runTool({"split", "--json", "5A021234"});
    ASSERT_EQ(result.status, 0);
    const std::string expected =
        "[{\"tag\":\"5A\",\"name\":\"Application Primary Account Number (PAN)\","
        "\"tlv\":\"5A02<2 bytes>\"}]";
    EXPECT_EQ(nlohmann::ordered_json::parse(result.out).dump(), expected);
}

TEST(SplitCommandTest, SaysWhereAndWhyItStopped) {
    const ToolCase cases[] = {
        {"long-form length: elements before it are kept",
         {"split", "5F2A0208405A81021234"},
         "",
         0,
         "5F2A020840",
         "splitter does not read"},
        {"tag without length at the end",
         {"split", "5A0212349F"},
         "",
         0,
         "5A02<2 bytes>",
         "the last 1 byte(s) do not make a whole element"},
        {"value past the end",
         {"split", "5A0812"},
         "",
         1,
         "",
         "vastrel: error: the data ends inside an element"},
        {"odd hex", {"split", "5A021"}, "", 1, "", "odd number of digits"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
