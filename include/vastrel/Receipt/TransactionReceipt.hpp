#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// What a card receipt prints: the gateway's approval data, the card's brand, name and
// redacted number, how it was read, and the EMV values that card schemes require. A new
// receipt has every enumeration at 0 and every string and the date absent.
class TransactionReceipt {
  public:
    using Date = std::chrono::system_clock::time_point;

    TransactionType transactionType() const { return transactionType_; }
    void setTransactionType(TransactionType v) { transactionType_ = v; }
    CurrencyCode currencyCode() const { return currencyCode_; }
    void setCurrencyCode(CurrencyCode v) { currencyCode_ = v; }
    CardType cardType() const { return cardType_; }
    void setCardType(CardType v) { cardType_ = v; }
    CVMResult cvmResult() const { return cvmResult_; }
    void setCvmResult(CVMResult v) { cvmResult_ = v; }
    CardDataSourceType posEntryMode() const { return posEntryMode_; }
    void setPosEntryMode(CardDataSourceType v) { posEntryMode_ = v; }
    CountryCode terminalCountryCode() const { return terminalCountryCode_; }
    void setTerminalCountryCode(CountryCode v) { terminalCountryCode_ = v; }
    PinStatementType pinStatementType() const { return pinStatementType_; }
    void setPinStatementType(PinStatementType v) { pinStatementType_ = v; }
    const std::optional<Date>& transactionDateTime() const { return transactionDateTime_; }
    void setTransactionDateTime(std::optional<Date> v) { transactionDateTime_ = v; }
    const std::optional<std::string>& invoiceNumber() const { return invoiceNumber_; }
    void setInvoiceNumber(std::optional<std::string> v) { invoiceNumber_ = std::move(v); }
    const std::optional<std::string>& transactionAmount() const { return transactionAmount_; }
    void setTransactionAmount(std::optional<std::string> v) { transactionAmount_ = std::move(v); }
    const std::optional<std::string>& authorizationCode() const { return authorizationCode_; }
    void setAuthorizationCode(std::optional<std::string> v) { authorizationCode_ = std::move(v); }
    const std::optional<std::string>& maskedPan() const { return maskedPan_; }
    void setMaskedPan(std::optional<std::string> v) { maskedPan_ = std::move(v); }
    const std::optional<std::string>& transactionId() const { return transactionId_; }
    void setTransactionId(std::optional<std::string> v) { transactionId_ = std::move(v); }
    const std::optional<std::string>& cardholderName() const { return cardholderName_; }
    void setCardholderName(std::optional<std::string> v) { cardholderName_ = std::move(v); }
    const std::optional<std::string>& aid() const { return aid_; }
    void setAid(std::optional<std::string> v) { aid_ = std::move(v); }
    const std::optional<std::string>& applicationLabel() const { return applicationLabel_; }
    void setApplicationLabel(std::optional<std::string> v) { applicationLabel_ = std::move(v); }
    const std::optional<std::string>& applicationExpiryDate() const {
        return applicationExpiryDate_;
    }
    void setApplicationExpiryDate(std::optional<std::string> v) {
        applicationExpiryDate_ = std::move(v);
    }
    const std::optional<std::string>& applicationEffectiveDate() const {
        return applicationEffectiveDate_;
    }
    void setApplicationEffectiveDate(std::optional<std::string> v) {
        applicationEffectiveDate_ = std::move(v);
    }
    const std::optional<std::string>& applicationInterchangeProfile() const {
        return applicationInterchangeProfile_;
    }
    void setApplicationInterchangeProfile(std::optional<std::string> v) {
        applicationInterchangeProfile_ = std::move(v);
    }
    const std::optional<std::string>& applicationVersionNumber() const {
        return applicationVersionNumber_;
    }
    void setApplicationVersionNumber(std::optional<std::string> v) {
        applicationVersionNumber_ = std::move(v);
    }
    const std::optional<std::string>& applicationTransactionCounter() const {
        return applicationTransactionCounter_;
    }
    void setApplicationTransactionCounter(std::optional<std::string> v) {
        applicationTransactionCounter_ = std::move(v);
    }
    const std::optional<std::string>& panSequenceNumber() const { return panSequenceNumber_; }
    void setPanSequenceNumber(std::optional<std::string> v) { panSequenceNumber_ = std::move(v); }
    const std::optional<std::string>& cryptogram() const { return cryptogram_; }
    void setCryptogram(std::optional<std::string> v) { cryptogram_ = std::move(v); }
    const std::optional<std::string>& issuerApplicationData() const {
        return issuerApplicationData_;
    }
    void setIssuerApplicationData(std::optional<std::string> v) {
        issuerApplicationData_ = std::move(v);
    }
    const std::optional<std::string>& terminalVerificationResult() const {
        return terminalVerificationResult_;
    }
    void setTerminalVerificationResult(std::optional<std::string> v) {
        terminalVerificationResult_ = std::move(v);
    }
    const std::optional<std::string>& unpredictableNumber() const { return unpredictableNumber_; }
    void setUnpredictableNumber(std::optional<std::string> v) {
        unpredictableNumber_ = std::move(v);
    }
    // Display text, not an amount.
    const std::optional<std::string>& cashBackAmount() const { return cashBackAmount_; }
    void setCashBackAmount(std::optional<std::string> v) { cashBackAmount_ = std::move(v); }
    // The reader model as text, not the TerminalType enumeration.
    const std::optional<std::string>& terminalType() const { return terminalType_; }
    void setTerminalType(std::optional<std::string> v) { terminalType_ = std::move(v); }
    const std::optional<std::string>& ifdSerialNumber() const { return ifdSerialNumber_; }
    void setIfdSerialNumber(std::optional<std::string> v) { ifdSerialNumber_ = std::move(v); }
    const std::optional<std::string>& cryptogramInformationData() const {
        return cryptogramInformationData_;
    }
    void setCryptogramInformationData(std::optional<std::string> v) {
        cryptogramInformationData_ = std::move(v);
    }

    // The same receipt stamped with the current time: transactionDateTime is now, not the
    // source's date, even when the source has none. Callers rely on this; keep it.
    TransactionReceipt copy() const;

  private:
    TransactionType transactionType_{};
    CurrencyCode currencyCode_{};
    CardType cardType_{};
    CVMResult cvmResult_{};
    CardDataSourceType posEntryMode_{};
    CountryCode terminalCountryCode_{};
    PinStatementType pinStatementType_{};
    std::optional<Date> transactionDateTime_;
    std::optional<std::string> invoiceNumber_;
    std::optional<std::string> transactionAmount_;
    std::optional<std::string> authorizationCode_;
    std::optional<std::string> maskedPan_;
    std::optional<std::string> transactionId_;
    std::optional<std::string> cardholderName_;
    std::optional<std::string> aid_;
    std::optional<std::string> applicationLabel_;
    std::optional<std::string> applicationExpiryDate_;
    std::optional<std::string> applicationEffectiveDate_;
    std::optional<std::string> applicationInterchangeProfile_;
    std::optional<std::string> applicationVersionNumber_;
    std::optional<std::string> applicationTransactionCounter_;
    std::optional<std::string> panSequenceNumber_;
    std::optional<std::string> cryptogram_;
    std::optional<std::string> issuerApplicationData_;
    std::optional<std::string> terminalVerificationResult_;
    std::optional<std::string> unpredictableNumber_;
    std::optional<std::string> cashBackAmount_;
    std::optional<std::string> terminalType_;
    std::optional<std::string> ifdSerialNumber_;
    std::optional<std::string> cryptogramInformationData_;
};

}  // namespace vastrel
