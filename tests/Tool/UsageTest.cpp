// The command line as a whole: help, version, usage errors and their exit status.
#include <gtest/gtest.h>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(UsageTest, HelpListsEverySubcommandAndTheInputCleaning) {
    const RunResult result = runTool({"--help"});
    EXPECT_EQ(result.status, 0);
    for (const char* name : {"decode", "split", "tag", "tags", "cvm", "brand", "enum", "icc",
                             "receipt", "--verbose"}) {
        EXPECT_NE(result.out.find(name), std::string::npos) << name;
    }
    EXPECT_NE(result.out.find("blanks, newlines and a leading 0x are removed"), std::string::npos);
    EXPECT_NE(runTool({"decode", "--help"}).out.find("leading 0x are removed"), std::string::npos);
}

TEST(UsageTest, VersionNamesTheTool) {
    const RunResult result = runTool({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.rfind("vastrel ", 0), 0u) << result.out;
}

TEST(UsageTest, WrongCommandLinesExitWithStatusTwo) {
    const ToolCase cases[] = {
        {"no subcommand", {}, "", 2, "", "vastrel: error: A subcommand is required"},
        {"unknown subcommand",
         {"decod"},
         "",
         2,
         "",
         "unknown subcommand 'decod'; choose one of decode, split"},
        {"unknown option", {"decode", "--colour", "5A00"}, "", 2, "", "--colour"},
        {"extra argument", {"brand", "4111", "5555"}, "", 2, "", "5555"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
