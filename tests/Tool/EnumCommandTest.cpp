// `vastrel enum`: the fourteen string tables, by number or name.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(EnumCommandTest, ListsATableInNumericKeyOrder) {
    const RunResult result = runTool({"enum", "10"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "CardDataSourceType (EnumType 10)\n"
              "0  MSR\n1  EMV\n2  ContactlessMSR\n3  ContactlessEMV\n4  KEYED\n5  PHONE\n"
              "6  MAIL\n7  INTERNET\n8  FALLBACK\n9  NONE\n");
}

TEST(EnumCommandTest, MarksTheKeySharedByEveryValueFromSeventeenUp) {
    const RunResult result = runTool({"enum", "TerminalInteractionType"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("\n 16  DO_NOT_REMOVE_CARD\n17+  DEVICE_BUSY\n"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("every value from 17 up shares this string"), std::string::npos);
}

TEST(EnumCommandTest, LooksUpOneValue) {
    const ToolCase cases[] = {
        {"by number", {"enum", "6", "10"}, "", 0, "EMVErrorType 10: GENERAL_ERROR\n", ""},
        {"name in any case", {"enum", "cardtype", "5"}, "", 0, "CardType 5: DINERS CLUB", ""},
        {"hex value", {"enum", "CVMResult", "0x5E"}, "", 0, "SIGNATURE REQUIRED", ""},
        {"negative value is the shared key",
         {"enum", "9", "-1"},
         "",
         0,
         "(every value from 17 up shares this string)",
         ""},
        {"json",
         {"enum", "--json", "12", "0"},
         "",
         0,
         "{\n  \"enumType\": 12,\n  \"enumeration\": \"CurrencyCode\",\n  \"value\": 0,\n"
         "  \"string\": \"USD\"\n}\n",
         ""},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(EnumCommandTest, JsonTableKeepsTheLibraryKeys) {
    const auto json = nlohmann::ordered_json::parse(runTool({"enum", "--json", "9"}).out);
    EXPECT_EQ(json["enumeration"], "CVMResult");
    const std::string expected =
        "{\"0\":\"NOT AVAILABLE\",\"1\":\"PIN ONLINE\",\"2\":\"PIN OFFLINE ENCR"
        "\",\"3\":\"PIN OFFLINE PLAIN\",\"17\":\"SIGNATURE REQUIRED\"}";
    EXPECT_EQ(json["strings"].dump(), expected);
}

TEST(EnumCommandTest, RefusesUnknownTablesAndValues) {
    const ToolCase cases[] = {
        {"selector 0", {"enum", "0"}, "", 1, "", "unknown enumeration '0'; choose one of 1 "},
        {"selector 15", {"enum", "15"}, "", 1, "", "14 TransactionResultType"},
        {"unknown name", {"enum", "Brand"}, "", 1, "", "unknown enumeration 'Brand'"},
        {"value without string",
         {"enum", "6", "12"},
         "",
         1,
         "",
         "EMVErrorType has no display string for 12"},
        {"value not a number", {"enum", "8", "VISA"}, "", 1, "", "VALUE 'VISA' is not a number"},
        {"missing type", {"enum"}, "", 2, "", "TYPE is required"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
