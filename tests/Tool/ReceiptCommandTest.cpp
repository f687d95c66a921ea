// `vastrel receipt`: example transactions through the receipt builders, printed for a
// 40-column printer or as JSON, and the refusal of malformed transactions.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <sstream>
#include <string>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

std::string printReceipt(const std::string& example, const std::string& options = "") {
    const RunResult result = runCommand("receipt " + options + examplePath(example));
    EXPECT_EQ(result.status, 0) << example << ": " << result.err;
    EXPECT_EQ(result.err, "") << example;
    return result.out;
}

TEST(ReceiptCommandTest, PrintsWhatEachKindOfTransactionNeedsInFortyColumns) {
    struct Case {
        const char* example;
        const char* shown;
        const char* absent;
    };
    const Case cases[] = {
        {"chip-pin-sale.json",
         "SALE                 2025-03-15 13:45:02\nINVOICE                           004417\n\n"
         "VISA                    476173XXXXXX0010\n"
         "CARDHOLDER               CARDHOLDER/VISA\n"
         "ENTRY MODE                           EMV\n\n"
         "TOTAL                          USD 42.80\n",
         "X ____"},
        {"contactless-sale.json", "CVM                     NO CVM REQUESTED\n", "X ____"},
        {"chip-signature-sale.json",
         "CVM                   SIGNATURE REQUIRED\n\n\nX ______________________________________\n",
         "PIN VERIFIED"},
        {"swipe-sale.json", "ENTRY MODE                           MSR\n", "AID"},
        // No amount was approved, so no TOTAL line comes before the rule.
        {"declined-sale.json",
         "EMV\n\n----------------------------------------\n                DECLINED\n"
         "         51 INSUFFICIENT FUNDS\n",
         "AUTH CODE"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.example);
        const std::string receipt = printReceipt(c.example);
        EXPECT_NE(receipt.find(c.shown), std::string::npos) << receipt;
        EXPECT_EQ(receipt.find(c.absent), std::string::npos) << receipt;
        std::istringstream lines(receipt);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 40U) << line;
    }
    // Without a file the bundled chip sale is printed.
    EXPECT_EQ(runCommand("receipt").out, printReceipt("chip-pin-sale.json"));
}

TEST(ReceiptCommandTest, JsonHoldsTheReceiptRecordAsTheBuilderFilledIt) {
    const auto json = [](const char* example) {
        return nlohmann::ordered_json::parse(printReceipt(example, "--json "));
    };
    const auto chip = json("chip-pin-sale.json");
    EXPECT_EQ(chip["builder"], "emv");
    const auto& receipt = chip["receipt"];
    EXPECT_EQ(receipt.size(), 30U);
    EXPECT_EQ(receipt.begin().key(), "transactionType");
    EXPECT_EQ(receipt["cvmResult"].dump(), R"({"value":1,"name":"PIN ONLINE"})");
    EXPECT_EQ(receipt["transactionAmount"], "42.8");
    EXPECT_EQ(receipt["transactionDateTime"], "2025-03-15T13:45:02Z");
    EXPECT_EQ(receipt["cashBackAmount"], nullptr);
    EXPECT_EQ(json("swipe-sale.json")["builder"], "msr");
    // The builder writes the absent approved amount as the platform's "(null)".
    EXPECT_EQ(json("declined-sale.json")["receipt"]["transactionAmount"], "(null)");
}

TEST(ReceiptCommandTest, WarnsOfTheBuildersComplaintsAndRefusesMalformedTransactions) {
    const ToolCase cases[] = {
        {"label missing", "receipt -", 0, "ENTRY MODE",
         "vastrel: warning: Application Label missing from EMV tags.\n",
         R"({"cardData": {"emvTLVData": "4F07A0000000031010"}})"},
        {"swipe without gateway response", "receipt -", 0, "",
         "vastrel: warning: Unable to populate required MSR receipt fields", R"({"cardData": {}})"},
        {"missing file", "receipt /nonexistent/sale.json", 1, "", "cannot read /nonexistent/"},
    };
    std::ranges::for_each(cases, expectCase);

    const std::pair<const char*, const char*> refusals[] = {
        {R"({"cardData":)", "standard input: not valid JSON: parse error at line 1, column 13"},
        {R"({"gatewayResponse":{"approvedAmount":1e999}})", "not valid JSON: number overflow"},
        {R"({"cardData":{"cardholdername":"A"}})", "cardData.cardholdername is not a known key"},
        {R"({"gatewayResponse":{"isApproved":"yes"}})", "isApproved must be true or false"},
        {R"({"gatewayResponse":{"approvedAmount":"12,50"}})",
         "must be an amount such as \"12.50\""},
        {R"({"cardData":{"cardDataSourceType":"CHIP"}})", "a CardDataSourceType display string"},
        {R"({"cardData":{"pan":"4XXX"}})", "a card number must start with six digits"},
        {R"({"cardData":{"emvTLVData":"4F0"}})", "emvTLVData has an odd number of digits"},
        {R"({"transactionDateTime":"2025-02-30T10:00:00Z"})",
         "is not a UTC time such as 2025-03-15T13:45:02Z"},
        {R"({"transactionDateTime":"1012-03-16T17:11:22Z"})", "is not a UTC time"},  // too early
    };
    for (const auto& [input, message] : refusals)
        expectCase({input, "receipt -", 1, "", message, input});
}

}  // namespace
}  // namespace vastrel::tool::testing
