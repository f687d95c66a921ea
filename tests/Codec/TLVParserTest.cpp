#include "vastrel/Codec/TLVParser.hpp"

#include <gtest/gtest.h>

#include <random>

#include "support/TestSupport.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel {
namespace {

using testing::hex;
using testing::LogCapture;
using Pieces = std::vector<std::string>;

TEST(TLVParserTest, SplitsShortFormElementsAndStopsAtOtherLengths) {
    struct Case {
        std::string hex;
        Pieces pieces;
        std::size_t unimplemented;  // log lines
        const char* reason;
    };
    const Case cases[] = {
        {"9F02060000000010005F2A020840", {"9F0206000000001000", "5F2A020840"}, 0, "two elements"},
        {"9f0201ff", {"9F0201FF"}, 0, "output is uppercase"},
        {"00005A00", {"0000", "5A00"}, 0, "00 is a one-byte tag, not padding"},
        {"FF81800101AA", {"FF81800101AA"}, 0, "tags of any length"},
        {"70035A0111", {"70035A0111"}, 0, "constructed values are not opened"},
        {"5A7F" + std::string(254, 'E'), {"5A7F" + std::string(254, 'E')}, 0, "longest short form"},
        {"7081000000", {}, 1, "long form: logged at the byte after it"},
        {"5A0112708000", {"5A0112"}, 1, "indefinite form"},
        {"5A01129F01", {"5A0112"}, 0, "tail ends before its length byte"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        LogCapture log;
        EXPECT_EQ(TLVParser::splitTLVData(c.hex), c.pieces);
        EXPECT_EQ(log.lines(), Pieces(c.unimplemented, "unimplemented"));
    }
}

TEST(TLVParserTest, SplitThrowsForValuePastEndOrBadHex) {
    EXPECT_THROW(TLVParser::splitTLVData("5A0812"), RangeError);
    EXPECT_THROW(TLVParser::splitTLVData("5A01125A0212"), RangeError);  // no partial result
    EXPECT_THROW(TLVParser::splitTLVData("5A01128"), AssertionFailure);
    EXPECT_THROW(TLVParser::splitTLVData("5A80ZZ"), AssertionFailure);  // hex checked first
}

// The splitter as a single pass over the bytes with four cursors (tag start, tag
// continuation, length index, length end), written out literally as the reference the
// front-consuming reader must agree with.
struct Reference {
    Pieces pieces;
    std::size_t unimplemented = 0;
    bool rangeError = false;
};

Reference fourCursorSplit(const Bytes& data) {
    Reference out;
    std::size_t tagStart = 0, tagContinuation = 0, lengthIndex = 0, lengthEnd = 0;
    for (std::size_t i = 0; i < data.size(); ++i) {
        const std::uint8_t b = data[i];
        if (i == tagStart) {
            if ((b & 0x1F) < 31) {
                lengthIndex = i + 1;
            } else {
                tagContinuation = tagStart + 1;
            }
        } else if (i == tagContinuation) {
            if ((b & 0x80) == 0) {
                lengthIndex = i + 1;
            } else {
                ++tagContinuation;
            }
        } else if (i == lengthIndex) {
            lengthEnd = i;
            if (b == 0x80) {
                ++out.unimplemented;
            } else if (b > 0x7F) {
                lengthEnd = i + 1;
            } else if (i + b >= data.size()) {
                out.rangeError = true;
                return out;
            } else {
                out.pieces.push_back(hex(std::span(data).subspan(tagStart, i + b + 1 - tagStart)));
                tagStart = i + b + 1;
            }
        } else if (i == lengthEnd) {
            ++out.unimplemented;
        }
    }
    return out;
}

TEST(TLVParserTest, SplitAgreesWithTheFourCursorPassOnRandomInput) {
    const std::uint8_t alphabet[] = {0x00, 0x01, 0x02, 0x03, 0x1F, 0x5A, 0x70,
                                     0x7F, 0x80, 0x81, 0x9F, 0xBF, 0xFF};
    std::mt19937 random(20240601);
    for (int round = 0; round < 5000; ++round) {
        Bytes data(random() % 24);
        for (std::uint8_t& b : data) {
            b = random() % 4 == 0 ? static_cast<std::uint8_t>(random())
                                  : alphabet[random() % std::size(alphabet)];
        }
        const Reference expected = fourCursorSplit(data);
        SCOPED_TRACE(hex(data));
        LogCapture log;
        try {
            EXPECT_EQ(TLVParser::splitTLVData(hex(data)), expected.pieces);
            EXPECT_FALSE(expected.rangeError);
        } catch (const RangeError&) {
            EXPECT_TRUE(expected.rangeError);
        }
        EXPECT_EQ(log.lines().size(), expected.unimplemented);
        if (::testing::Test::HasFailure()) break;
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
