#include "vastrel/Model/EMVCAPK.hpp"

#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(EMVCAPKTest, EncodeWritesFourKeysAndNeverTheRidOrTheModulus) {
    KeyedArchiver archiver;
    productionKey().encodeWithCoder(archiver);
    EXPECT_EQ(archiver.keys(), (std::vector<std::string>{"production_key", "ca_public_key_index",
                                                         "exponent_of_public_key", "checksum"}));
    EXPECT_EQ(archiver.data(), R"({"production_key":true,"ca_public_key_index":"92",)"
                               R"("exponent_of_public_key":"03",)"
                               R"("checksum":"429C954A3859CEF91295F663C963E582ED6EB253"})");
}

TEST(EMVCAPKTest, EncodeWritesATestKeyAsFalse) {
    KeyedArchiver archiver;
    EMVCAPK().encodeWithCoder(archiver);
    EXPECT_EQ(archiver.data(), R"({"production_key":false,"ca_public_key_index":null,)"
                               R"("exponent_of_public_key":null,"checksum":null})");
}

TEST(EMVCAPKTest, DecodingKeepsNothingNotEvenTheProductionFlag) {
    KeyedArchiver archiver;
    productionKey().encodeWithCoder(archiver);
    KeyedUnarchiver unarchiver(archiver.data());

    const EMVCAPK decoded(unarchiver);
    EXPECT_FALSE(decoded.productionKey());
    EXPECT_EQ(decoded.rid(), std::nullopt);
    EXPECT_EQ(decoded.caPublicKeyIndex(), std::nullopt);
    EXPECT_EQ(decoded.publicKey(), std::nullopt);
    EXPECT_EQ(decoded.exponentOfPublicKey(), std::nullopt);
    EXPECT_EQ(decoded.checksum(), std::nullopt);
}

}  // namespace
}  // namespace vastrel
