#include "vastrel/Model/AID.hpp"

#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <gtest/gtest.h>

namespace vastrel {
namespace {

constexpr const char* kVisaCreditArchive =
    R"({"rid":"A000000003","pix":"1010","label":"VISA CREDIT","preferred_name":"Visa"})";

TEST(AIDTest, EncodeWritesTheFourFieldsUnderTheirKeysInOrder) {
    AID aid;
    aid.setRid("A000000003");
    aid.setPix("1010");
    aid.setLabel("VISA CREDIT");
    aid.setPreferredName("Visa");
    KeyedArchiver archiver;
    aid.encodeWithCoder(archiver);
    EXPECT_EQ(archiver.data(), kVisaCreditArchive);
}

TEST(AIDTest, DecodingKeepsNothingWhateverTheArchiveHolds) {
    for (const char* json : {kVisaCreditArchive, "{}", R"({"rid":5,"pix":true,"label":[]})"}) {
        SCOPED_TRACE(json);
        KeyedUnarchiver unarchiver(json);
        const AID decoded(unarchiver);
        EXPECT_EQ(decoded.rid(), std::nullopt);
        EXPECT_EQ(decoded.pix(), std::nullopt);
        EXPECT_EQ(decoded.label(), std::nullopt);
        EXPECT_EQ(decoded.preferredName(), std::nullopt);
    }
}

}  // namespace
}  // namespace vastrel
