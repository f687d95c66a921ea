#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Enums/Error.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// The gateway's answer to one request: approval, amounts, identifiers, response codes,
// the issuer data for the card and masked card details.
class GatewayResponse {
  public:
    const std::optional<Decimal>& approvedAmount() const { return approvedAmount_; }
    void setApprovedAmount(std::optional<Decimal> v) { approvedAmount_ = v; }
    const std::optional<Decimal>& tipAmount() const { return tipAmount_; }
    void setTipAmount(std::optional<Decimal> v) { tipAmount_ = v; }
    const std::optional<std::string>& gatewayTransactionId() const { return gatewayTransactionId_; }
    void setGatewayTransactionId(std::optional<std::string> v) {
        gatewayTransactionId_ = std::move(v);
    }
    const std::optional<std::string>& authCode() const { return authCode_; }
    void setAuthCode(std::optional<std::string> v) { authCode_ = std::move(v); }
    const std::optional<std::string>& cvvResponseCode() const { return cvvResponseCode_; }
    void setCvvResponseCode(std::optional<std::string> v) { cvvResponseCode_ = std::move(v); }
    const std::optional<std::string>& avsResponseCode() const { return avsResponseCode_; }
    void setAvsResponseCode(std::optional<std::string> v) { avsResponseCode_ = std::move(v); }
    const std::optional<std::string>& gatewayResponseText() const { return gatewayResponseText_; }
    void setGatewayResponseText(std::optional<std::string> v) {
        gatewayResponseText_ = std::move(v);
    }
    const std::optional<std::string>& emvIssuerAuthCode() const { return emvIssuerAuthCode_; }
    void setEmvIssuerAuthCode(std::optional<std::string> v) { emvIssuerAuthCode_ = std::move(v); }
    const std::optional<std::string>& emvIssuerAuthenticationData() const {
        return emvIssuerAuthenticationData_;
    }
    void setEmvIssuerAuthenticationData(std::optional<std::string> v) {
        emvIssuerAuthenticationData_ = std::move(v);
    }
    const std::optional<std::string>& emvIssuerScripts() const { return emvIssuerScripts_; }
    void setEmvIssuerScripts(std::optional<std::string> v) { emvIssuerScripts_ = std::move(v); }
    const std::optional<std::string>& maskedPan() const { return maskedPan_; }
    void setMaskedPan(std::optional<std::string> v) { maskedPan_ = std::move(v); }
    const std::optional<std::string>& authResponse() const { return authResponse_; }
    void setAuthResponse(std::optional<std::string> v) { authResponse_ = std::move(v); }
    const std::optional<std::string>& stin() const { return stin_; }
    void setStin(std::optional<std::string> v) { stin_ = std::move(v); }
    const std::optional<std::string>& posReferenceId() const { return posReferenceId_; }
    void setPosReferenceId(std::optional<std::string> v) { posReferenceId_ = std::move(v); }
    const std::optional<std::string>& cardholderName() const { return cardholderName_; }
    void setCardholderName(std::optional<std::string> v) { cardholderName_ = std::move(v); }
    const std::optional<std::string>& cardExpirationDate() const { return cardExpirationDate_; }
    void setCardExpirationDate(std::optional<std::string> v) { cardExpirationDate_ = std::move(v); }
    // Not owned: it reads absent (expired) once the caller's last shared_ptr to the error is
    // gone, in copies too. Callers rely on this; keep it.
    const std::weak_ptr<const Error>& gatewayError() const { return gatewayError_; }
    void setGatewayError(std::weak_ptr<const Error> v) { gatewayError_ = std::move(v); }
    bool isPartialApproval() const { return isPartialApproval_; }
    void setIsPartialApproval(bool v) { isPartialApproval_ = v; }
    bool isApproved() const { return isApproved_; }
    void setIsApproved(bool v) { isApproved_ = v; }
    bool isGatewayTimeOut() const { return isGatewayTimeOut_; }
    void setIsGatewayTimeOut(bool v) { isGatewayTimeOut_ = v; }
    CardDataSourceType cardDataSourceType() const { return cardDataSourceType_; }
    void setCardDataSourceType(CardDataSourceType v) { cardDataSourceType_ = v; }
    CardType cardType() const { return cardType_; }
    void setCardType(CardType v) { cardType_ = v; }
    CommercialCard commercialCard() const { return commercialCard_; }
    void setCommercialCard(CommercialCard v) { commercialCard_ = v; }
    GatewayAction gatewayAction() const { return gatewayAction_; }
    void setGatewayAction(GatewayAction v) { gatewayAction_ = v; }

    // A plain GatewayResponse holding the same values; gatewayError stays a weak reference
    // to the same error.
    GatewayResponse copy() const { return *this; }

  private:
    std::optional<Decimal> approvedAmount_;
    std::optional<Decimal> tipAmount_;
    std::optional<std::string> gatewayTransactionId_;
    std::optional<std::string> authCode_;
    std::optional<std::string> cvvResponseCode_;
    std::optional<std::string> avsResponseCode_;
    std::optional<std::string> gatewayResponseText_;
    std::optional<std::string> emvIssuerAuthCode_;
    std::optional<std::string> emvIssuerAuthenticationData_;
    std::optional<std::string> emvIssuerScripts_;
    std::optional<std::string> maskedPan_;
    std::optional<std::string> authResponse_;
    std::optional<std::string> stin_;
    std::optional<std::string> posReferenceId_;
    std::optional<std::string> cardholderName_;
    std::optional<std::string> cardExpirationDate_;
    std::weak_ptr<const Error> gatewayError_;
    bool isPartialApproval_ = false;
    bool isApproved_ = false;
    bool isGatewayTimeOut_ = false;
    CardDataSourceType cardDataSourceType_{};
    CardType cardType_{};
    CommercialCard commercialCard_{};
    GatewayAction gatewayAction_{};
};

}  // namespace vastrel
