#include "vastrel/Codec/TLVParser.hpp"

#include <gtest/gtest.h>

#include <map>

#include "support/Vectors.hpp"
#include "vastrel/Codec/TLVSplit.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::LogCapture;
using Pieces = std::vector<std::string>;

TEST(TLVParserTest, SplitsShortFormElementsAndSaysWhyItStopped) {
    const std::map<std::string, TLVSplit::Stop> stops = {
        {"complete", TLVSplit::Stop::Complete},
        {"incomplete", TLVSplit::Stop::Incomplete},
        {"unread-length", TLVSplit::Stop::UnreadLength},
    };
    for (const auto& vector : testing::readVectors("tests/Codec/splitter-vectors.txt")) {
        SCOPED_TRACE(vector.where() + ": " + vector.get("why"));
        const std::string hex = vector.get("hex");
        LogCapture log;
        if (vector.get("error", "") == "range") {
            EXPECT_THROW(TLVSplit::of(hex), RangeError);
            EXPECT_THROW(TLVParser::splitTLVData(hex), RangeError);
            continue;
        }
        if (vector.get("error", "") == "assertion") {
            EXPECT_THROW(TLVParser::splitTLVData(hex), AssertionFailure);
            continue;
        }
        const TLVSplit split = TLVSplit::of(hex);
        EXPECT_EQ(split.pieces, vector.all("piece"));
        EXPECT_EQ(split.stop, stops.at(vector.get("stop")));
        EXPECT_EQ(log.lines(),
                  Pieces(split.stop == TLVSplit::Stop::UnreadLength ? 1 : 0, "unimplemented"));
        EXPECT_EQ(TLVParser::splitTLVData(hex), split.pieces);
    }
}

TEST(TLVParserTest, TlvObjectsIsAlwaysEmptyButStillSplits) {
    LogCapture log;
    EXPECT_TRUE(TLVParser::tlvObjectsFromTLVData("9F02060000000010005F2A020840").empty());
    EXPECT_TRUE(TLVParser::tlvObjectsFromTLVData("5A80").empty());
    EXPECT_EQ(log.lines(), Pieces{"unimplemented"});
    EXPECT_THROW(TLVParser::tlvObjectsFromTLVData("5A0812"), RangeError);
}

}  // namespace
}  // namespace vastrel
