#include "vastrel/Model/CardData.hpp"

#include "Model/StringProperties.hpp"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace vastrel {
namespace {

using test::StringProperty;

static_assert(!std::is_polymorphic_v<CardData>);

constexpr std::array<StringProperty<CardData>, 14> kStrings{{
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
}};

TLVObject element(const char* tag, const char* value) {
    TLVObject object;
    object.setTag(tag);
    object.setValue(value);
    return object;
}

CardData fullCardData() {
    CardData card;
    test::fillStrings<CardData>(card, kStrings);
    card.setEmvTLVData(std::vector<TLVObject>{element("4F", "A0000000031010"),
                                              element("9F26", "1122334455667788")});
    Address address;
    address.setCity("Springfield");
    card.setCardholderAddress(address);
    card.setDecodedTLVDictionary(std::map<std::string, std::string>{{"9F34", "1E0300"}});
    card.setAvsType(AvsType{4});
    card.setCardDataSourceType(CardDataSourceType::ContactlessEmv);
    card.setFallbackReason(FallbackReason{2});
    card.setEncryptionType(EncryptionType{7});
    card.setLastChipRead(LastChipRead{1});
    card.setCardType(CardType::Amex);
    card.setCvmResult(CVMResult{-1});
    return card;
}

TEST(CardDataTest, CopyKeepsEveryFieldIncludingANegativeCvmResult) {
    const CardData copy = fullCardData().copy();

    test::expectFilledStrings<CardData>(copy, kStrings);
    ASSERT_TRUE(copy.emvTLVData().has_value());
    ASSERT_EQ(copy.emvTLVData()->size(), 2u);
    EXPECT_EQ(copy.emvTLVData()->at(1).tag(), "9F26");
    EXPECT_EQ(copy.emvTLVData()->at(1).value(), "1122334455667788");
    ASSERT_TRUE(copy.cardholderAddress().has_value());
    EXPECT_EQ(copy.cardholderAddress()->city(), "Springfield");
    EXPECT_EQ(copy.decodedTLVDictionary(),
              (std::map<std::string, std::string>{{"9F34", "1E0300"}}));
    EXPECT_EQ(copy.avsType(), AvsType{4});
    EXPECT_EQ(copy.cardDataSourceType(), CardDataSourceType::ContactlessEmv);
    EXPECT_EQ(copy.fallbackReason(), FallbackReason{2});
    EXPECT_EQ(copy.encryptionType(), EncryptionType{7});
    EXPECT_EQ(copy.lastChipRead(), LastChipRead{1});
    EXPECT_EQ(copy.cardType(), CardType::Amex);
    EXPECT_EQ(copy.cvmResult(), CVMResult{-1});
}

TEST(CardDataTest, CopyAndStoredAddressIgnoreLaterChangesByTheCaller) {
    Address address;
    address.setPostalCode("12345");
    CardData source;
    source.setCardholderAddress(address);
    address.setPostalCode("99999");
    EXPECT_EQ(source.cardholderAddress()->postalCode(), "12345");

    const CardData copy = source.copy();
    source.setCardholderAddress(address);
    source.setPan("4111");
    EXPECT_EQ(copy.cardholderAddress()->postalCode(), "12345");
    EXPECT_EQ(copy.pan(), std::nullopt);
}

TEST(CardDataTest, CopyOfADerivedRecordIsAPlainCardData) {
    struct ReaderCardData : CardData {
        int readerSlot = 3;
    };
    ReaderCardData source;
    source.setKsn("FFFF9876543210E00001");
    static_assert(std::is_same_v<decltype(source.copy()), CardData>);
    EXPECT_EQ(source.copy().ksn(), "FFFF9876543210E00001");
}

}  // namespace
}  // namespace vastrel
