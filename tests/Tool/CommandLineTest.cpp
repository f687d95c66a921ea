// The vastrel command line: every subcommand's answers and refusals, from the vectors in
// cli-vectors.txt, and the masking of card data in its output.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "LibraryLog.hpp"
#include "ToolRunner.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(CommandLineTest, EveryVectorAnswersAsWritten) {
    const auto vectors = vastrel::testing::readVectors("tests/Tool/cli-vectors.txt");
    ASSERT_GT(vectors.size(), 70u);
    for (const auto& vector : vectors)
        expectVector(vector);
}

// Card number, track 2 and cardholder name, at the top level (chip-pin-sale) and inside a
// template that the decoder leaves whole (chip-templates).
TEST(CommandLineTest, MasksCardDataUnlessAskedToShowIt) {
    const std::string kCardData[] = {"4761739001010010", "4761739001010010D2712201114380440",
                                     "43415244484F4C4445522F5649534"};
    for (const char* example : {"chip-pin-sale.hex", "chip-templates.hex"}) {
        for (const std::string command : {"decode", "decode --json", "split", "decode -v"}) {
            SCOPED_TRACE(command + " < " + example);
            const RunResult masked = runCommand(command, readExample(example));
            ASSERT_EQ(masked.status, 0) << masked.err;
            const RunResult shown = runCommand(command + " --show-sensitive", readExample(example));
            for (const std::string& data : kCardData) {
                EXPECT_EQ((masked.out + masked.err).find(data), std::string::npos) << data;
                EXPECT_NE((shown.out + shown.err).find(data), std::string::npos) << data;
            }
        }
    }
}

// Verbose runs show every line of a log message with the prefix, blank lines included.
TEST(CommandLineTest, VerboseLogPrefixesEveryLine) {
    std::ostringstream err;
    {
        LibraryLog log(true, err);
        log::write("first\n\nlast\n");
        log::write("");
        EXPECT_EQ(log.take().size(), 2u);
    }
    EXPECT_EQ(err.str(),
              "vastrel: log: first\nvastrel: log: \nvastrel: log: last\nvastrel: log: \n"
              "vastrel: log: \n");
}

}  // namespace
}  // namespace vastrel::tool::testing
