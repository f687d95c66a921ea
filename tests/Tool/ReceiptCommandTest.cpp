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
// one character more and it goes below, flush right; past the paper's 40 columns it is cut
// into lines of 40, each flush right.
TEST(ReceiptCommandTest, ValuesTooLongForTheirLabelsLineGoBelowIt) {
    const std::string sale = vastrel::testing::readSourceFile("examples/swipe-sale.json");
    const std::string name = "DOE/JOHN";
    const auto nameOf = [](std::size_t length) { return "DOE/" + std::string(length - 4, 'J'); };
    const struct {
        std::size_t length;
        std::string printed;
    } cases[] = {
        {29, "CARDHOLDER " + nameOf(29) + "\n"},
        {30, "CARDHOLDER\n" + std::string(10, ' ') + nameOf(30) + "\n"},
        {45, "CARDHOLDER\n" + nameOf(40) + "\n" + std::string(35, ' ') + "JJJJJ\n"},
    };
    for (const auto& c : cases) {
        std::string input = sale;
        input.replace(input.find(name), name.size(), nameOf(c.length));
        EXPECT_NE(runCommand("receipt -", input).out.find(c.printed), std::string::npos)
            << c.length;
    }
}

}  // namespace
}  // namespace vastrel::tool::testing
