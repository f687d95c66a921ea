#include "vastrel/Tags/SensitiveData.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vastrel {
namespace {

TEST(SensitiveDataTest, KnowsExactlyTheCardDataTags) {
    for (const char* tag : {"5A", "56", "57", "9F6B", "DF13", "DF14", "DF15", "5F20", "9F0B", "99",
                            "DF16", "5a", "9f6b", "df16"}) {
        EXPECT_TRUE(SensitiveData::isSensitive(tag)) << tag;
    }
    // Neighbours of the card-data tags, and the expiry date, which receipts print.
    for (const char* tag : {"5B", "55", "58", "9F6C", "DF12", "DF17", "5F24", "9F0A", "98", "9F",
                            "5A5A", "", "70", "9F1F"}) {
        EXPECT_FALSE(SensitiveData::isSensitive(tag)) << tag;
    }
}

TEST(SensitiveDataTest, MasksCardDataAndTemplatesOnly) {
    struct Case {
        const char* tag;
        const char* value;
        const char* expected;
        const char* reason;
    };
    const Case cases[] = {
        {"5A", "4761739001010010", "476173******0010", "first six and last four digits"},
        {"5a", "4761739001010010", "476173******0010", "tag case does not matter"},
        {"5A", "5413330089020011FF", "541333********11FF", "padding counts as digits"},
        {"5A", "47617390010", "476173*0010", "eleven digits: one masked"},
        {"5A", "4761739001", "<5 bytes>", "ten digits would show whole: length only"},
        {"57", "4761739001010010D27122011143804400000F", "<19 bytes>", "track 2"},
        {"5F20", "43415244484F4C444552", "<10 bytes>", "cardholder name"},
        {"DF16", "AB", "<1 byte>", "one byte"},
        {"99", "", "", "nothing to hide"},
        {"70", "5A0847617390010100105F340101", "<14 bytes>", "template may nest a card number"},
        {"BF0C", "5A0111", "<3 bytes>", "constructed multi-byte tag"},
        {"9F02", "000000001000", "000000001000", "amount: shown"},
        {"9F1F", "3132", "3132", "not on the list: shown"},
        {"", "ABCD", "ABCD", "no tag"},
        {"ZZ", "ABCD", "ABCD", "tag that is not hex"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(SensitiveData::maskedValue(c.tag, c.value), c.expected);
    }
}

}  // namespace
}  // namespace vastrel
