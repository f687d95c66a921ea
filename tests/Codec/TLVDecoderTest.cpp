#include "vastrel/Codec/TLVDecoder.hpp"

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>

#include "support/Vectors.hpp"
#include "vastrel/Codec/TLVDepth.hpp"
#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel {
namespace {

using testing::LogCapture;
using testing::render;
using Lines = std::vector<std::string>;

// Turns off the masking of card data in log lines while alive, for tests of the summary's
// shape that use card-number tags.
struct UnmaskedLog {
    UnmaskedLog() { log::setMaskSensitiveData(false); }
    ~UnmaskedLog() { log::setMaskSensitiveData(true); }
};

TEST(TLVDecoderTest, HexToIntScansLikeScanHexInt) {
    for (const auto& vector : testing::readVectors("tests/Codec/hextoint-vectors.txt")) {
        EXPECT_EQ(TLVDecoder::hexToInt(vector.get("text")), std::stoul(vector.get("value")))
            << vector.where();
    }
}

TEST(TLVDecoderTest, DecodesElementsAndMalformedShapes) {
    LogCapture quiet;
    for (const auto& vector : testing::readVectors("tests/Codec/decoder-vectors.txt")) {
        SCOPED_TRACE(vector.where() + ": " + vector.get("why"));
        EXPECT_EQ(render(TLVDecoder::decodeWithTLVString(vector.get("hex"))),
                  vector.all("element"));
    }
}

TEST(TLVDecoderTest, BadInputLogsAndReturnsAbsent) {
    LogCapture log;
    EXPECT_EQ(TLVDecoder::decodeWithTLVString(std::nullopt), std::nullopt);
    EXPECT_EQ(TLVDecoder::decodeWithTLVString("5A011"), std::nullopt);
    EXPECT_EQ(TLVDecoder::decodeWithTLVString(""), std::nullopt);
    EXPECT_EQ(TLVDecoder::decodeTlv({}), std::nullopt);
    EXPECT_EQ(log.lines(), (Lines{"TLV is nil", "Invalid TLV"}));
}

TEST(TLVDecoderTest, NumbersOutsideAByteAreWrittenAsLongHex) {
    const std::int32_t bytes[] = {0x5A, 1, -1};
    EXPECT_EQ(render(TLVDecoder::decodeTlv(bytes)), Lines{"5A:1:FFFFFFFFFFFFFFFF"});
}

// One entry of a level's summary as the log line shows it.
std::string entry(const char* tag, int length, const char* name, const char* value) {
    return std::string("    ") + tag + " =     {\n        length = " + std::to_string(length) +
           ";\n        name = \"" + name + "\";\n        value = " + value + ";\n    };\n";
}

constexpr const char* kPan = "Application Primary Account Number (PAN)";

// Each level's summary is sorted by tag, keeps the last element of a tag, and leaves out the
// level's last element; one line per level, innermost first.
TEST(TLVDecoderTest, EachLevelLogsItsSummaryOnce) {
    const UnmaskedLog unmasked;
    LogCapture log;
    TLVDecoder::decodeWithTLVString("700861045A0111009A0000");
    TLVDecoder::decodeWithTLVString("9F01005A01119F01005A01225F2A020840");
    TLVDecoder::decodeWithTLVString("5F2A020840");
    EXPECT_EQ(log.lines(),
              (Lines{"{\n" + entry("5A", 1, kPan, "11") + "}",
                     "{\n" + entry("61", 4, "Application Template", "5A011100") + "}",
                     "{\n" + entry("70", 8, "EMV Proprietary Template", "61045A0111009A00") + "}",
                     "{\n" + entry("5A", 1, kPan, "22") +
                         entry("9F01", 0, "Acquirer Identifier", "\"\"") + "}",
                     "{\n}"}));
}

// A long level repeats few tags: its summary still has one entry per tag, the last one.
TEST(TLVDecoderTest, SummaryOfALongLevelKeepsTheLastOfEachTag) {
    const UnmaskedLog unmasked;
    std::string hex;
    for (int i = 0; i < 300; ++i)
        hex += std::string(i % 2 == 0 ? "9A01" : "9F0201") + (i < 298 ? "00" : "77");
    hex += "5F2A020840";  // the level's last element, which is never listed
    LogCapture log;
    TLVDecoder::decodeWithTLVString(hex);
    EXPECT_EQ(log.lines(), (Lines{"{\n" + entry("9A", 1, "Transaction Date", "77") +
                                  entry("9F02", 1, "Amount, Authorised (Numeric)", "77") + "}"}));
}

// A level with far more distinct tags than usual, each listed twice and arriving out of
// order, names each once, in tag order, with its last value.
TEST(TLVDecoderTest, SummaryOfManyDistinctTagsNamesEachOnce) {
    const UnmaskedLog unmasked;
    std::vector<std::string> tags;  // DF20 to DF7F, none of them named
    for (int i = 0; i < 96; ++i) {
        const auto second = static_cast<std::uint8_t>(0x20 + (i * 37) % 96);
        tags.push_back("DF" + TLVUtility::dataToHexString(std::vector<std::uint8_t>{second}));
    }
    std::string hex;
    for (const char* value : {"00", "01"}) {
        for (const std::string& tag : tags)
            hex += tag + "01" + value;
    }
    hex += "5F2A020840";
    std::sort(tags.begin(), tags.end());
    std::string expected = "{\n";
    for (const std::string& tag : tags) {
        expected += "    " + tag +
                    " =     {\n        length = 1;\n        name = Unknown;\n        value = "
                    "01;\n    };\n";
    }
    LogCapture log;
    TLVDecoder::decodeWithTLVString(hex);
    EXPECT_EQ(log.lines(), Lines{expected + "}"});
}

// A card number shows only its ends; a template, whose value holds its children whole, only
// its size.
TEST(TLVDecoderTest, SummaryMasksCardDataByDefault) {
    LogCapture log;
    TLVDecoder::decodeWithTLVString("700E5A0847617390010100105F3401019F340101");
    EXPECT_EQ(log.lines(),
              (Lines{"{\n" + entry("5A", 8, kPan, "\"476173******0010\"") + "}",
                     "{\n" + entry("70", 14, "EMV Proprietary Template", "\"<14 bytes>\"") + "}"}));
}

// Templates nested `templates` deep around `inside`, each followed by a 00 that keeps it from
// being its level's last element, so that every level is expanded.
std::vector<std::int32_t> nestedTemplates(int templates,
                                          std::vector<std::int32_t> inside = {0x5A, 0x01, 0x11}) {
    std::vector<std::int32_t> bytes = std::move(inside);
    for (int level = 0; level < templates; ++level) {
        const auto length = static_cast<std::int32_t>(bytes.size());
        bytes.insert(bytes.begin(), {0xE0, 0x82, length >> 8, length & 0xFF});
        bytes.push_back(0);
    }
    return bytes;
}

struct DepthCase {
    int templates;
    int expandedLevels;  // levels with children, from the top
    bool logsTooDeep;
};

// Up to the limit every template is expanded; past it the template at the deepest level is
// kept whole, and one line says so. Decoding and destroying run on a 256 KiB stack.
TEST(TLVDecoderTest, ExpandsTemplatesDownToTheDepthLimit) {
    const int limit = static_cast<int>(kMaxTLVDepth);
    const DepthCase cases[] = {
        {limit - 1, limit - 1, false},
        {limit, limit - 1, true},
        {5000, limit - 1, true},
    };
    // Two templates at the deepest level: still one line.
    {
        LogCapture log;
        TLVDecoder::decodeTlv(nestedTemplates(
            limit - 1, {0xE0, 0x03, 0x5A, 0x01, 0x11, 0xE0, 0x03, 0x5A, 0x01, 0x11, 0x00}));
        EXPECT_EQ(std::count(log.lines().begin(), log.lines().end(), "TLV nesting too deep"), 1);
    }
    for (const DepthCase& c : cases) {
        SCOPED_TRACE(c.templates);
        struct Job {
            std::vector<std::int32_t> bytes;
            int expanded = 0;
            std::string deepestValue;
        } job{nestedTemplates(c.templates), 0, {}};
        const auto run = [](void* argument) -> void* {
            auto& job = *static_cast<Job*>(argument);
            const auto result = TLVDecoder::decodeTlv(job.bytes);
            const TLVObject* element = &result->front();
            for (; element->innerTlvs(); element = &element->innerTlvs()->front())
                ++job.expanded;
            job.deepestValue = *element->value();
            return nullptr;
        };
        LogCapture log;
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, 256 * 1024);
        pthread_t thread;
        ASSERT_EQ(pthread_create(&thread, &attributes, +run, &job), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);

        EXPECT_EQ(job.expanded, c.expandedLevels);
        const auto tooDeep =
            std::count(log.lines().begin(), log.lines().end(), "TLV nesting too deep");
        EXPECT_EQ(tooDeep, c.logsTooDeep ? 1 : 0);
        // The deepest element keeps its whole value: 11, or the subtree of the template.
        const std::size_t keptBytes = nestedTemplates(c.templates - limit).size();
        EXPECT_EQ(job.deepestValue.size(), c.logsTooDeep ? 2 * keptBytes : 2u);
    }
}

}  // namespace
}  // namespace vastrel
