// `vastrel tag` and `vastrel tags`: names from the tag dictionary.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(TagCommandsTest, NamesEachTagInAlignedColumns) {
    const RunResult result = runTool({"tag", "9f34", "5F20", "0x50", "9F6E"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "9F34  Cardholder Verification Method (CVM) Results\n"
              "5F20  Cardholder Name\n"
              "50    Application Label\n"
              "9F6E  Unknown\n");
}

TEST(TagCommandsTest, RefusesTagsThatAreNotHexBytes) {
    const ToolCase cases[] = {
        {"odd digits", {"tag", "9F3"}, "", 1, "", "tag '9F3' has an odd number of digits"},
        {"not hex", {"tag", "PAN"}, "", 1, "", "'P' at position 1"},
        {"no tag at all", {"tag"}, "", 2, "", "TAG is required"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(TagCommandsTest, ListsTheWholeDictionaryInHexOrder) {
    const RunResult result = runTool({"tags"});
    ASSERT_EQ(result.status, 0);
    std::vector<std::string> tags;
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);)
        tags.push_back(line.substr(0, line.find(' ')));
    EXPECT_EQ(tags.size(), 136u);
    EXPECT_TRUE(std::is_sorted(tags.begin(), tags.end()));
    EXPECT_EQ(tags.front(), "42");
    EXPECT_EQ(tags.back(), "E3");
    EXPECT_NE(result.out.find("\n9F0D  Issuer Action Code (Defaul)t\n"), std::string::npos);
    EXPECT_NE(result.out.find("\nDF18  Risk Management\n"), std::string::npos);
}

TEST(TagCommandsTest, JsonDictionaryHasOneEntryPerTag) {
    const auto json = nlohmann::ordered_json::parse(runTool({"tags", "--json"}).out);
    EXPECT_EQ(json.size(), 136u);
    const std::string expected = "{\"tag\":\"42\",\"name\":\"Issuer Identification Number (IIN)\"}";
    EXPECT_EQ(json[0].dump(), expected);
}

}  // namespace
}  // namespace vastrel::tool::testing
