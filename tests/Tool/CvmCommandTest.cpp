// `vastrel cvm`: both readings of the CVM Results.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(CvmCommandTest, ShowsBothReadingsInColumns) {
    const RunResult result = runTool({"cvm", "1E0300"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "CVM Results                1E0300\n"
              "receipt CVMResult      94  SIGNATURE REQUIRED\n"
              "authentication method   4  signature, or enciphered PIN verified by the card "
              "and signature\n");
}

TEST(CvmCommandTest, ReadsCodesAsTheLibraryDoes) {
    struct Row {
        const char* value;
        int cvmResult;
        const char* name;
        int method;
        const char* reason;
    };
    const Row rows[] = {
        {"010302", 1, "PIN ONLINE", 2, "01 is plaintext PIN by the card, read as online"},
        {"020000", 2, "PIN OFFLINE ENCR", 1, "02 is enciphered PIN online"},
        {"420300", 94, "SIGNATURE REQUIRED", 1, "apply-next 42 only counts for the method"},
        {"1F0302", 31, "NO CVM REQUESTED", 0, "31 keeps its own string, not the shared one"},
        {"5e0300", 94, "SIGNATURE REQUIRED", 4, "lower case is upper-cased for both readers"},
        {"3F0000", 94, "SIGNATURE REQUIRED", 9, "no CVM performed"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.reason);
        const RunResult result = runTool({"cvm", "--json", row.value});
        ASSERT_EQ(result.status, 0) << result.err;
        const auto json = nlohmann::ordered_json::parse(result.out);
        EXPECT_EQ(json["cvmResult"]["value"], row.cvmResult);
        EXPECT_EQ(json["cvmResult"]["name"], row.name);
        EXPECT_EQ(json["authenticationMethod"]["value"], row.method);
    }
}

TEST(CvmCommandTest, RefusesValuesThatAreNotHexBytes) {
    const ToolCase cases[] = {
        {"odd length", {"cvm", "1F030"}, "", 1, "", "CVM Results has an odd number of digits"},
        {"empty", {"cvm", ""}, "", 1, "", "no CVM Results given"},
        {"missing", {"cvm"}, "", 2, "", "VALUE is required"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
