#include "vastrel/Model/EMVCAPK.hpp"

#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vastrel {
namespace {

EMVCAPK productionKey() {
    EMVCAPK key;
    key.setProductionKey(true);
    key.setRid("A000000003");
    key.setCaPublicKeyIndex("92");
    key.setPublicKey("996AF56F569187D09293C14810450ED8EE3357397B18A2458EFAA92DA3B6DF65");
    key.setExponentOfPublicKey("03");
    key.setChecksum("429C954A3859CEF91295F663C963E582ED6EB253");
    return key;
}

std::string archive(const EMVCAPK& key) {
    KeyedArchiver archiver;
    key.encodeWithCoder(archiver);
    return archiver.data();
}

TEST(EMVCAPKTest, EncodeWritesFourKeysAndNeverTheRidOrTheModulus) {
    EXPECT_EQ(archive(productionKey()),
              R"({"production_key":true,"ca_public_key_index":"92",)"
              R"("exponent_of_public_key":"03",)"
              R"("checksum":"429C954A3859CEF91295F663C963E582ED6EB253"})");
    EXPECT_EQ(archive(EMVCAPK()), R"({"production_key":false,"ca_public_key_index":null,)"
                                  R"("exponent_of_public_key":null,"checksum":null})");
}

TEST(EMVCAPKTest, DecodingKeepsNothingNotEvenTheProductionFlag) {
    KeyedUnarchiver unarchiver(archive(productionKey()));
    const EMVCAPK decoded(unarchiver);
    EXPECT_FALSE(decoded.productionKey());
    EXPECT_EQ(decoded.caPublicKeyIndex(), std::nullopt);
    EXPECT_EQ(decoded.exponentOfPublicKey(), std::nullopt);
    EXPECT_EQ(decoded.checksum(), std::nullopt);
}

}  // namespace
}  // namespace vastrel
