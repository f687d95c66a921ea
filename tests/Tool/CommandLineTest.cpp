// The vastrel command line: every subcommand's answers and refusals, from the vectors in
// cli-vectors.txt.
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
