// `vastrel receipt`: example transactions through the receipt builders, printed for a
// 40-column printer or as JSON, and the refusal of malformed transactions.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

const std::vector<std::string> kExamples = {
    "chip-pin-sale.json", "contactless-sale.json", "chip-signature-sale.json",
    "swipe-sale.json",    "declined-sale.json",
};

std::string printReceipt(const std::string& example) {
    const RunResult result = runTool({"receipt", examplePath(example)});
    EXPECT_EQ(result.status, 0) << example << ": " << result.err;
    EXPECT_EQ(result.err, "") << example;
    return result.out;
}

nlohmann::ordered_json receiptJson(const std::string& example) {
    const RunResult result = runTool({"receipt", "--json", examplePath(example)});
    EXPECT_EQ(result.status, 0) << example << ": " << result.err;
    return nlohmann::ordered_json::parse(result.out);
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(ReceiptCommandTest, PrintsTheBundledChipSaleWithoutAFile) {
    const RunResult result = runTool({"receipt"});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, printReceipt("chip-pin-sale.json"));
    EXPECT_EQ(result.out,
              "========================================\n"
              "             CORNER GROCERY\n"
              "            12 MARKET STREET\n"
              "         SPRINGFIELD, IL 62701\n"
              "========================================\n"
              "SALE                 2025-03-15 13:45:02\n"
              "INVOICE                           004417\n"
              "\n"
              "VISA                    476173XXXXXX0010\n"
              "CARDHOLDER               CARDHOLDER/VISA\n"
              "ENTRY MODE                           EMV\n"
              "\n"
              "TOTAL                          USD 42.80\n"
              "----------------------------------------\n"
              "                APPROVED\n"
              "AUTH CODE                         083561\n"
              "TRANSACTION ID               GW-7F3A20C1\n"
              "----------------------------------------\n"
              "APPLICATION                  VISA CREDIT\n"
              "AID                       A0000000031010\n"
              "TVR                           0000008000\n"
              "AIP                                 3C00\n"
              "ATC                                 0042\n"
              "PAN SEQ                               01\n"
              "CRYPTOGRAM              8E19C4A2F01B3D77\n"
              "CID                                   80\n"
              "UN                              6A3F91C2\n"
              "IAD                       06010A03A00000\n"
              "CVM                           PIN ONLINE\n"
              "\n"
              "              PIN VERIFIED\n"
              "\n"
              "             CUSTOMER COPY\n"
              "========================================\n");
}

TEST(ReceiptCommandTest, EveryLineFitsAFortyColumnPrinter) {
    for (const auto& example : kExamples) {
        std::istringstream lines(printReceipt(example));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 40u) << example << ": " << line;
        }
    }
}

TEST(ReceiptCommandTest, ShowsWhatEachKindOfTransactionNeeds) {
    const std::string contactless = printReceipt("contactless-sale.json");
    EXPECT_TRUE(contains(contactless, "CVM                     NO CVM REQUESTED\n"));
    EXPECT_FALSE(contains(contactless, "X ____"));

    const std::string signature = printReceipt("chip-signature-sale.json");
    EXPECT_TRUE(contains(signature, "CVM                   SIGNATURE REQUIRED\n"));
    EXPECT_TRUE(contains(signature, "X ______________________________________\n"));
    EXPECT_FALSE(contains(signature, "PIN VERIFIED"));

    const std::string swipe = printReceipt("swipe-sale.json");
    EXPECT_TRUE(contains(swipe, "ENTRY MODE                           MSR\n"));
    EXPECT_FALSE(contains(swipe, "AID"));

    const std::string declined = printReceipt("declined-sale.json");
    EXPECT_TRUE(contains(declined, "                DECLINED\n         51 INSUFFICIENT FUNDS\n"));
    EXPECT_FALSE(contains(declined, "TOTAL"));  // no amount was approved
    EXPECT_FALSE(contains(declined, "AUTH CODE"));
}

TEST(ReceiptCommandTest, JsonHoldsTheReceiptRecordAsTheBuilderFilledIt) {
    const auto chip = receiptJson("chip-pin-sale.json");
    EXPECT_EQ(chip["builder"], "emv");
    const auto& receipt = chip["receipt"];
    EXPECT_EQ(receipt.size(), 30u);
    EXPECT_EQ(receipt.begin().key(), "transactionType");
    EXPECT_EQ(receipt["cvmResult"].dump(), "{\"value\":1,\"name\":\"PIN ONLINE\"}");
    EXPECT_EQ(receipt["pinStatementType"]["name"], "PIN VERIFIED");
    EXPECT_EQ(receipt["transactionAmount"], "42.8");
    EXPECT_EQ(receipt["applicationLabel"], "VISA CREDIT");
    EXPECT_EQ(receipt["transactionDateTime"], "2025-03-15T13:45:02Z");
    EXPECT_EQ(receipt["cashBackAmount"], nullptr);

    const auto swipe = receiptJson("swipe-sale.json");
    EXPECT_EQ(swipe["builder"], "msr");
    EXPECT_EQ(swipe["receipt"]["aid"], nullptr);

    // The builder writes the absent approved amount as the platform's "(null)".
    EXPECT_EQ(receiptJson("declined-sale.json")["receipt"]["transactionAmount"], "(null)");
}

TEST(ReceiptCommandTest, ExampleChipDataMatchesItsHexFile) {
    for (const auto& example : kExamples) {
        const auto json = nlohmann::json::parse(readExample(example));
        const auto& card = json["cardData"];
        if (!card.contains("emvTLVData")) continue;
        SCOPED_TRACE(example);
        const std::string hexFile = example.substr(0, example.size() - 5) + ".hex";
        EXPECT_EQ(card["emvTLVData"].get<std::string>() + "\n", readExample(hexFile));
    }
}

TEST(ReceiptCommandTest, PassesTheBuildersComplaintsOnAsWarnings) {
    const std::string onlyAid = R"({"cardData": {"emvTLVData": "4F07A0000000031010"}})";
    expectCase({"label missing",
                {"receipt", "-"},
                onlyAid,
                0,
                "ENTRY MODE",
                "vastrel: warning: Application Label missing from EMV tags."});
    expectCase({"no gateway response for a swipe",
                {"receipt", "-"},
                R"({"cardData": {}})",
                0,
                "",
                "vastrel: warning: Unable to populate required MSR receipt fields"});
}

TEST(ReceiptCommandTest, RefusesMalformedTransactions) {
    const ToolCase cases[] = {
        {"not JSON", {"receipt", "-"}, "{\"cardData\":", 1, "", "standard input: not valid JSON"},
        {"number out of range",
         {"receipt", "-"},
         R"({"gatewayResponse": {"approvedAmount": 1e999}})",
         1,
         "",
         "standard input: not valid JSON: number overflow"},
        {"misspelt key",
         {"receipt", "-"},
         R"({"cardData": {"cardholdername": "A"}})",
         1,
         "",
         "cardData.cardholdername is not a known key"},
        {"wrong kind",
         {"receipt", "-"},
         R"({"gatewayResponse": {"isApproved": "yes"}})",
         1,
         "",
         "gatewayResponse.isApproved must be true or false"},
        {"amount with a comma",
         {"receipt", "-"},
         R"({"gatewayResponse": {"approvedAmount": "12,50"}})",
         1,
         "",
         "approvedAmount must be an amount such as \"12.50\""},
        {"unknown entry mode",
         {"receipt", "-"},
         R"({"cardData": {"cardDataSourceType": "CHIP"}})",
         1,
         "",
         "must be a CardDataSourceType display string or number"},
        {"masked start of the card number",
         {"receipt", "-"},
         R"({"cardData": {"pan": "4XXX"}})",
         1,
         "",
         "a card number must start with six digits"},
        {"bad chip data",
         {"receipt", "-"},
         R"({"cardData": {"emvTLVData": "4F0"}})",
         1,
         "",
         "cardData.emvTLVData has an odd number of digits"},
        {"impossible date",
         {"receipt", "-"},
         R"({"transactionDateTime": "2025-02-30T10:00:00Z"})",
         1,
         "",
         "is not a UTC time"},
        {"date the clock cannot hold",
         {"receipt", "-"},
         R"({"transactionDateTime": "1012-03-16T17:11:22Z"})",
         1,
         "",
         "is not a UTC time"},
        {"missing file",
         {"receipt", "/nonexistent/sale.json"},
         "",
         1,
         "",
         "cannot read /nonexistent/sale.json"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
