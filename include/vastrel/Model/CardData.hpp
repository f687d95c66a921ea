#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/Address.hpp"

namespace vastrel {

// Everything read from or keyed for one card: tracks, encrypted blocks, chip data, PIN
// block, keyed fields and how the card was read. Nothing is checked.
//
// emvTLVData holds the elements by value, the form the TLV utilities and the receipt
// builders take; decodedTLVDictionary maps tag hex to value hex.
class CardData {
  public:
    const std::optional<std::string>& track1() const { return track1_; }
    void setTrack1(std::optional<std::string> v) { track1_ = std::move(v); }
    const std::optional<std::string>& track2() const { return track2_; }
    void setTrack2(std::optional<std::string> v) { track2_ = std::move(v); }
    const std::optional<std::string>& track3() const { return track3_; }
    void setTrack3(std::optional<std::string> v) { track3_ = std::move(v); }
    const std::optional<std::string>& encryptedData() const { return encryptedData_; }
    void setEncryptedData(std::optional<std::string> v) { encryptedData_ = std::move(v); }
    const std::optional<std::string>& packedEncryptedData() const { return packedEncryptedData_; }
    void setPackedEncryptedData(std::optional<std::string> v) {
        packedEncryptedData_ = std::move(v);
    }
    const std::optional<std::string>& ksn() const { return ksn_; }
    void setKsn(std::optional<std::string> v) { ksn_ = std::move(v); }
    const std::optional<std::vector<TLVObject>>& emvTLVData() const { return emvTLVData_; }
    void setEmvTLVData(std::optional<std::vector<TLVObject>> v) { emvTLVData_ = std::move(v); }
    const std::optional<std::string>& pinBlock() const { return pinBlock_; }
    void setPinBlock(std::optional<std::string> v) { pinBlock_ = std::move(v); }
    const std::optional<std::string>& pinKSN() const { return pinKSN_; }
    void setPinKSN(std::optional<std::string> v) { pinKSN_ = std::move(v); }
    const std::optional<std::string>& pan() const { return pan_; }
    void setPan(std::optional<std::string> v) { pan_ = std::move(v); }
    const std::optional<std::string>& expirationDate() const { return expirationDate_; }
    void setExpirationDate(std::optional<std::string> v) { expirationDate_ = std::move(v); }
    const std::optional<std::string>& cvv2() const { return cvv2_; }
    void setCvv2(std::optional<std::string> v) { cvv2_ = std::move(v); }
    const std::optional<std::string>& postalCode() const { return postalCode_; }
    void setPostalCode(std::optional<std::string> v) { postalCode_ = std::move(v); }
    const std::optional<std::string>& cardholderName() const { return cardholderName_; }
    void setCardholderName(std::optional<std::string> v) { cardholderName_ = std::move(v); }
    const std::optional<std::string>& cardNumber() const { return cardNumber_; }
    void setCardNumber(std::optional<std::string> v) { cardNumber_ = std::move(v); }
    const std::optional<Address>& cardholderAddress() const { return cardholderAddress_; }
    void setCardholderAddress(const std::optional<Address>& v) {
        cardholderAddress_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<std::map<std::string, std::string>>& decodedTLVDictionary() const {
        return decodedTLVDictionary_;
    }
    void setDecodedTLVDictionary(std::optional<std::map<std::string, std::string>> v) {
        decodedTLVDictionary_ = std::move(v);
    }
    AvsType avsType() const { return avsType_; }
    void setAvsType(AvsType v) { avsType_ = v; }
    CardDataSourceType cardDataSourceType() const { return cardDataSourceType_; }
    void setCardDataSourceType(CardDataSourceType v) { cardDataSourceType_ = v; }
    FallbackReason fallbackReason() const { return fallbackReason_; }
    void setFallbackReason(FallbackReason v) { fallbackReason_ = v; }
    EncryptionType encryptionType() const { return encryptionType_; }
    void setEncryptionType(EncryptionType v) { encryptionType_ = v; }
    LastChipRead lastChipRead() const { return lastChipRead_; }
    void setLastChipRead(LastChipRead v) { lastChipRead_ = v; }
    CardType cardType() const { return cardType_; }
    void setCardType(CardType v) { cardType_ = v; }
    // Signed, unlike the other enumerations here; negative values are kept.
    CVMResult cvmResult() const { return cvmResult_; }
    void setCvmResult(CVMResult v) { cvmResult_ = v; }

    // A plain CardData holding the same values: the address goes through Address::copy,
    // the containers are copied, every other field is a value.
    CardData copy() const;

  private:
    std::optional<std::string> track1_;
    std::optional<std::string> track2_;
    std::optional<std::string> track3_;
    std::optional<std::string> encryptedData_;
    std::optional<std::string> packedEncryptedData_;
    std::optional<std::string> ksn_;
    std::optional<std::vector<TLVObject>> emvTLVData_;
    std::optional<std::string> pinBlock_;
    std::optional<std::string> pinKSN_;
    std::optional<std::string> pan_;
    std::optional<std::string> expirationDate_;
    std::optional<std::string> cvv2_;
    std::optional<std::string> postalCode_;
    std::optional<std::string> cardholderName_;
    std::optional<std::string> cardNumber_;
    std::optional<Address> cardholderAddress_;
    std::optional<std::map<std::string, std::string>> decodedTLVDictionary_;
    AvsType avsType_{};
    CardDataSourceType cardDataSourceType_{};
    FallbackReason fallbackReason_{};
    EncryptionType encryptionType_{};
    LastChipRead lastChipRead_{};
    CardType cardType_{};
    CVMResult cvmResult_{};
};

}  // namespace vastrel
