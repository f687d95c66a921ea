#include "vastrel/Model/CardData.hpp"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vastrel {
namespace {

struct StringField {
    const char* name;
    const std::optional<std::string>& (CardData::*get)() const;
    void (CardData::*set)(std::optional<std::string>);
};

constexpr StringField kStrings[] = {
    {"track1", &CardData::track1, &CardData::setTrack1},
    {"track2", &CardData::track2, &CardData::setTrack2},
    {"track3", &CardData::track3, &CardData::setTrack3},
    {"encryptedData", &CardData::encryptedData, &CardData::setEncryptedData},
    {"packedEncryptedData", &CardData::packedEncryptedData, &CardData::setPackedEncryptedData},
    {"ksn", &CardData::ksn, &CardData::setKsn},
    {"pinBlock", &CardData::pinBlock, &CardData::setPinBlock},
    {"pinKSN", &CardData::pinKSN, &CardData::setPinKSN},
    {"pan", &CardData::pan, &CardData::setPan},
    {"expirationDate", &CardData::expirationDate, &CardData::setExpirationDate},
    {"cvv2", &CardData::cvv2, &CardData::setCvv2},
    {"postalCode", &CardData::postalCode, &CardData::setPostalCode},
    {"cardholderName", &CardData::cardholderName, &CardData::setCardholderName},
    {"cardNumber", &CardData::cardNumber, &CardData::setCardNumber},
};

TEST(CardDataTest, CopyKeepsEveryFieldIncludingANegativeCvmResult) {
    CardData source;
    for (const StringField& field : kStrings)
        (source.*field.set)(field.name);
    TLVObject cryptogram;
    cryptogram.setTag("9F26");
    source.setEmvTLVData(std::vector<TLVObject>{cryptogram});
    Address address;
    address.setCity("Springfield");
    source.setCardholderAddress(address);
    source.setDecodedTLVDictionary(std::map<std::string, std::string>{{"9F34", "1E0300"}});
    source.setAvsType(AvsType{4});
    source.setCardDataSourceType(CardDataSourceType::ContactlessEmv);
    source.setFallbackReason(FallbackReason{2});
    source.setEncryptionType(EncryptionType{7});
    source.setLastChipRead(LastChipRead{1});
    source.setCardType(CardType::Amex);
    source.setCvmResult(CVMResult{-1});

    const CardData copy = source.copy();

    for (const StringField& field : kStrings) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ((copy.*field.get)(), field.name);
    }
    ASSERT_EQ(copy.emvTLVData().value_or(std::vector<TLVObject>{}).size(), 1u);
    EXPECT_EQ(copy.emvTLVData()->front().tag(), "9F26");
    ASSERT_TRUE(copy.cardholderAddress().has_value());
    EXPECT_EQ(copy.cardholderAddress()->city(), "Springfield");
    EXPECT_EQ(copy.decodedTLVDictionary(), source.decodedTLVDictionary());
    EXPECT_EQ(copy.avsType(), AvsType{4});
    EXPECT_EQ(copy.cardDataSourceType(), CardDataSourceType::ContactlessEmv);
    EXPECT_EQ(copy.fallbackReason(), FallbackReason{2});
    EXPECT_EQ(copy.encryptionType(), EncryptionType{7});
    EXPECT_EQ(copy.lastChipRead(), LastChipRead{1});
    EXPECT_EQ(copy.cardType(), CardType::Amex);
    EXPECT_EQ(copy.cvmResult(), CVMResult{-1});
}

}  // namespace
}  // namespace vastrel
