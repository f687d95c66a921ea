// `vastrel receipt`: each example transaction through the receipt builders, printed for a
// 40-column printer and as JSON, compared whole with the golden files in receipts/.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(ReceiptCommandTest, ExamplesPrintAsTheGoldenReceipts) {
    for (const std::string name : {"chip-pin-sale", "contactless-sale", "chip-signature-sale",
                                   "swipe-sale", "declined-sale"}) {
        for (const std::string format : {"txt", "json"}) {
            SCOPED_TRACE(name + "." + format);
            const RunResult result =
                runCommand(std::string("receipt ") + (format == "json" ? "--json " : "") +
                           examplePath(name + ".json"));
            EXPECT_EQ(result.status, 0);
            EXPECT_EQ(result.err, "");
            EXPECT_EQ(result.out, vastrel::testing::readSourceFile("tests/Tool/receipts/" + name +
                                                                   "." + format));
            if (format != "txt") continue;
            std::istringstream lines(result.out);
            for (std::string line; std::getline(lines, line);)
                EXPECT_LE(line.size(), 40U) << line;
        }
    }
    // Without a file the bundled chip sale is printed.
    EXPECT_EQ(runCommand("receipt").out,
              vastrel::testing::readSourceFile("tests/Tool/receipts/chip-pin-sale.txt"));
}

// A value that fits beside its label with one blank between them stays on the label's line;
// one character more and it goes below, flush right.
TEST(ReceiptCommandTest, ValuesTooLongForTheirLabelsLineGoBelowIt) {
    const std::string sale = vastrel::testing::readSourceFile("examples/swipe-sale.json");
    const std::string name = "DOE/JOHN";
    for (const std::size_t length : {29U, 30U}) {
        std::string input = sale;
        const std::string longName = "DOE/" + std::string(length - 4, 'J');
        input.replace(input.find(name), name.size(), longName);
        const std::string expected =
            length == 29 ? "CARDHOLDER " + longName + "\n"
                         : "CARDHOLDER\n" + std::string(40 - length, ' ') + longName + "\n";
        EXPECT_NE(runCommand("receipt -", input).out.find(expected), std::string::npos) << length;
    }
}

}  // namespace
}  // namespace vastrel::tool::testing
