#include "vastrel/Tags/SensitiveData.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/Vectors.hpp"

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
    EXPECT_FALSE(
        SensitiveData::isSensitive(std::string_view("\0"
                                                    "5A",
                                                    3)));
}

TEST(SensitiveDataTest, MasksCardDataAndTemplatesOnly) {
    for (const auto& vector : testing::readVectors("tests/Tags/masking-vectors.txt")) {
        EXPECT_EQ(SensitiveData::maskedValue(vector.get("tag"), vector.get("value")),
                  vector.get("shown"))
            << vector.where() << ": " << vector.get("why");
    }
}

}  // namespace
}  // namespace vastrel
