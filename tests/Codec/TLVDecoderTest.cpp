#include "vastrel/Codec/TLVDecoder.hpp"

#include <gtest/gtest.h>
#include <pthread.h>

#include "support/TestSupport.hpp"
#include "vastrel/Codec/TLVDepth.hpp"

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
    struct Case {
        const char* text;
        std::uint32_t expected;
    };
    // U+00A0 and U+3000 are white space to the scanner as well.
    const Case cases[] = {
        {"9F", 159},
        {"0x1A", 26},
        {"", 0},
        {" \t\n0X1a", 26},
        {"1G", 1},
        {"G1", 0},
        {"-1", 0},
        {"0xG", 0},
        {"FFFFFFFF", ~0U},
        {"100000000", ~0U},
        {"0000000001", 1},
        {"\u00A01A", 26},
        {"\u30007", 7},
        // The prefix is skipped only before a digit, once; the shortest prefixed text.
        {"0x1", 1},
        {"0x", 0},
        {"x1", 0},
        {"00x1", 0},
        {"0x0x1", 0},
        // Each kind of scanner space: two-byte, three-byte, the ends of U+2000..U+200A.
        {"\u00851A", 26},
        {"\u16801A", 26},
        {"\u20001A", 26},
        {"\u200A1A", 26},
        {"\u200B1A", 0},
        {"\u20281A", 26},
        {"\u20291A", 26},
        {"\u202F1A", 26},
        {"\u205F1A", 26},
        {"\u2060", 0},
        {"\u3001", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(TLVDecoder::hexToInt(c.text), c.expected);
    }
}

TEST(TLVDecoderTest, DecodesElementsAndMalformedShapes) {
    struct Case {
        const char* hex;
        Lines elements;
        const char* reason;
    };
    const Case cases[] = {
        {"9F02060000000010005F2A020840", {"9F02:6:000000001000", "5F2A:2:0840"}, "two elements"},
        {"700A5A0811111111111111119F0100",
         {"70:10:5A081111111111111111{5A:8:1111111111111111}"},
         "constructed and not last: expanded; zero-length last element dropped"},
        {"70035A0111", {"70:3:5A0111"}, "the last element is never expanded"},
        {"5A0112005A0111", {"5A:1:12"}, "00 where a tag is due ends the level"},
        {"9F", {}, "tag cut short"},
        {"DF8F", {}, "second tag byte announces a third that is missing"},
        {"DF8F8101AA9F010000", {"DF8F81:1:AA", "9F01:0:"}, "third byte's continuation ignored"},
        {"5A8400000002ABCD5F2A020840", {"5A:2:ABCD", "5F2A:2:0840"}, "four length bytes"},
        {"5A02AABB", {"5A:2:AABB"}, "value ends exactly at the end"},
        {"5A02AA", {"5A:2:", "02:0:"}, "one byte short: no value, length re-read as a tag"},
        {"5A02AABB00", {"5A:2:AABB"}, "one byte past: a 00 ends the level"},
        {"70045A02AABB00", {"70:4:5A02AABB{5A:2:AABB}"}, "template followed by a byte: expanded"},
        {"70045A02AABB", {"70:4:5A02AABB"}, "template ending exactly at the end: kept whole"},
        {"5A8201", {}, "length bytes cut short: dropped"},
        {"5A0011", {"5A:0:"}, "zero length, then a tag without length"},
        {"5A80", {"5A:0:"}, "invalid length 80 gives length 0, then 80 is read as a tag"},
        {"5A850111", {"5A:0:", "85:1:11"}, "invalid length byte re-read as a tag"},
        {"5A050102", {"5A:5:", "05:1:02"}, "too long: no value; length byte re-read as tag"},
        {"5A84FFFFFFFF01", {"5A:-1:"}, "negative length counts as too long"},
        {"5A011G", {"5A:1:01"}, "pairs read with hexToInt: stops at G"},
        {"5A01-1", {"5A:1:00"}, "pairs read with hexToInt: no sign"},
        {"700861045A0111009A0000", {"70:8:61045A0111009A00{61:4:5A011100{5A:1:11}}"}, "nested"},
    };
    LogCapture quiet;
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.reason) + ": " + c.hex);
        EXPECT_EQ(render(TLVDecoder::decodeWithTLVString(c.hex)), c.elements);
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

// A card number shows only its ends; a template, whose value holds its children whole, only
// its size.
TEST(TLVDecoderTest, SummaryMasksCardDataByDefault) {
    LogCapture log;
    TLVDecoder::decodeWithTLVString("700E5A0847617390010100105F3401019F340101");
    EXPECT_EQ(log.lines(),
              (Lines{"{\n" + entry("5A", 8, kPan, "\"476173******0010\"") + "}",
                     "{\n" + entry("70", 14, "EMV Proprietary Template", "\"<14 bytes>\"") + "}"}));
}

// Templates nested `templates` deep around 5A0111, each followed by a 00 that keeps it from
// being its level's last element, so that every level is expanded.
std::vector<std::int32_t> nestedTemplates(int templates) {
    std::vector<std::int32_t> bytes = {0x5A, 0x01, 0x11};
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
