#include "vastrel/Codec/TLVParser.hpp"

#include <gtest/gtest.h>

#include "support/TestSupport.hpp"
#include "vastrel/Codec/TLVSplit.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::LogCapture;
using Pieces = std::vector<std::string>;

TEST(TLVParserTest, SplitsShortFormElementsAndStopsAtOtherLengths) {
    using Stop = TLVSplit::Stop;
    struct Case {
        std::string hex;
        Pieces pieces;
        Stop stop;  // "unimplemented" is logged exactly for UnreadLength
        const char* reason;
    };
    const Case cases[] = {
        {"9F02060000000010005F2A020840",
         {"9F0206000000001000", "5F2A020840"},
         Stop::Complete,
         "two elements"},
        {"9f0201ff", {"9F0201FF"}, Stop::Complete, "output is uppercase"},
        {"00005A00", {"0000", "5A00"}, Stop::Complete, "00 is a one-byte tag, not padding"},
        {"FF81800101AA", {"FF81800101AA"}, Stop::Complete, "tags of any length"},
        {"70035A0111", {"70035A0111"}, Stop::Complete, "constructed values are not opened"},
        {"5A7F" + std::string(254, 'E'),
         {"5A7F" + std::string(254, 'E')},
         Stop::Complete,
         "longest short form"},
        {"7081000000", {}, Stop::UnreadLength, "long form: logged at the byte after it"},
        {"5A01127081", {"5A0112"}, Stop::Incomplete, "long-form byte last: no line"},
        {"5A0112708000", {"5A0112"}, Stop::UnreadLength, "indefinite form"},
        {"5A01129F01", {"5A0112"}, Stop::Incomplete, "tail ends before its length byte"},
        {"5A01129F", {"5A0112"}, Stop::Incomplete, "tail ends inside a tag"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        LogCapture log;
        const TLVSplit split = TLVSplit::of(c.hex);
        EXPECT_EQ(split.pieces, c.pieces);
        EXPECT_EQ(split.stop, c.stop);
        EXPECT_EQ(log.lines(), Pieces(c.stop == Stop::UnreadLength ? 1 : 0, "unimplemented"));
        EXPECT_EQ(TLVParser::splitTLVData(c.hex), c.pieces);
    }
}

TEST(TLVParserTest, SplitThrowsForValuePastEndOrBadHex) {
    EXPECT_THROW(TLVParser::splitTLVData("5A0812"), RangeError);
    EXPECT_THROW(TLVParser::splitTLVData("5A01125A0212"), RangeError);  // no partial result
    EXPECT_THROW(TLVParser::splitTLVData("5A01128"), AssertionFailure);
    EXPECT_THROW(TLVParser::splitTLVData("5A80ZZ"), AssertionFailure);  // hex checked first
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
