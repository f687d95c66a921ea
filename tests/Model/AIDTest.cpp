#include "vastrel/Model/AID.hpp"

#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vastrel {
namespace {

AID visaCredit() {
    AID aid;
    aid.setRid("A000000003");
    aid.setPix("1010");
    aid.setLabel("VISA CREDIT");
    aid.setPreferredName("Visa");
    return aid;
}

TEST(AIDTest, EncodeWritesTheFourFieldsUnderTheirKeysInOrder) {
    KeyedArchiver archiver;
    visaCredit().encodeWithCoder(archiver);
    EXPECT_EQ(archiver.keys(), (std::vector<std::string>{"rid", "pix", "label", "preferred_name"}));
    EXPECT_EQ(archiver.data(),
              R"({"rid":"A000000003","pix":"1010","label":"VISA CREDIT","preferred_name":"Visa"})");
}

TEST(AIDTest, DecodingKeepsNoneOfTheArchivedFields) {
    KeyedArchiver archiver;
    visaCredit().encodeWithCoder(archiver);
    KeyedUnarchiver unarchiver(archiver.data());

    const AID decoded(unarchiver);
    EXPECT_EQ(decoded.rid(), std::nullopt);
    EXPECT_EQ(decoded.pix(), std::nullopt);
    EXPECT_EQ(decoded.label(), std::nullopt);
    EXPECT_EQ(decoded.preferredName(), std::nullopt);
}

TEST(AIDTest, DecodingAcceptsMissingKeysAndForeignValues) {
    for (const char* json : {"{}", R"({"rid":5,"pix":true,"label":[]})"}) {
        SCOPED_TRACE(json);
        KeyedUnarchiver unarchiver(json);
        const AID decoded(unarchiver);
        EXPECT_EQ(decoded.rid(), std::nullopt);
    }
}

}  // namespace
}  // namespace vastrel
