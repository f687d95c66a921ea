#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/Address.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Model/CommercialCardData.hpp"
#include "vastrel/Model/Customer.hpp"
#include "vastrel/Model/TerminalCapabilities.hpp"
#include "vastrel/Model/TerminalInfo.hpp"
#include "vastrel/Platform/Bytes.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// Everything a gateway adapter sends for one authorisation, sale, refund, void or
// reversal. Records are stored as copies, except commercialCardData (see below).
class GatewayRequest {
  public:
    const std::optional<Decimal>& subTotalAmount() const { return subTotalAmount_; }
    void setSubTotalAmount(std::optional<Decimal> v) { subTotalAmount_ = v; }
    const std::optional<Decimal>& taxAmount() const { return taxAmount_; }
    void setTaxAmount(std::optional<Decimal> v) { taxAmount_ = v; }
    const std::optional<Decimal>& tipAmount() const { return tipAmount_; }
    void setTipAmount(std::optional<Decimal> v) { tipAmount_ = v; }
    const std::optional<Decimal>& totalAmount() const { return totalAmount_; }
    void setTotalAmount(std::optional<Decimal> v) { totalAmount_ = v; }
    const std::optional<std::string>& posReferenceNumber() const { return posReferenceNumber_; }
    void setPosReferenceNumber(std::optional<std::string> v) { posReferenceNumber_ = std::move(v); }
    const std::optional<std::string>& operatingUserId() const { return operatingUserId_; }
    void setOperatingUserId(std::optional<std::string> v) { operatingUserId_ = std::move(v); }
    const std::optional<std::string>& gatewayTransactionId() const { return gatewayTransactionId_; }
    void setGatewayTransactionId(std::optional<std::string> v) {
        gatewayTransactionId_ = std::move(v);
    }
    // Spelt forceAuthCode here and forcedAuthCode in TransactionRequest; both are published.
    const std::optional<std::string>& forceAuthCode() const { return forceAuthCode_; }
    void setForceAuthCode(std::optional<std::string> v) { forceAuthCode_ = std::move(v); }
    const std::optional<std::string>& invoiceNumber() const { return invoiceNumber_; }
    void setInvoiceNumber(std::optional<std::string> v) { invoiceNumber_ = std::move(v); }
    // The encoded image bytes, held unread.
    const std::optional<Bytes>& signature() const { return signature_; }
    void setSignature(std::optional<Bytes> v) { signature_ = std::move(v); }
    ReversalReason reversalReason() const { return reversalReason_; }
    void setReversalReason(ReversalReason v) { reversalReason_ = v; }
    TenderType tenderType() const { return tenderType_; }
    void setTenderType(TenderType v) { tenderType_ = v; }
    // Signed, unlike the other enumerations here; negative values are kept.
    CVMResult cvmResult() const { return cvmResult_; }
    void setCvmResult(CVMResult v) { cvmResult_ = v; }
    AvsType avsType() const { return avsType_; }
    void setAvsType(AvsType v) { avsType_ = v; }
    GatewayAction gatewayAction() const { return gatewayAction_; }
    void setGatewayAction(GatewayAction v) { gatewayAction_ = v; }
    std::uint64_t operatingEnvironment() const { return operatingEnvironment_; }
    void setOperatingEnvironment(std::uint64_t v) { operatingEnvironment_ = v; }
    std::uint64_t authenticationCapability() const { return authenticationCapability_; }
    void setAuthenticationCapability(std::uint64_t v) { authenticationCapability_ = v; }
    std::uint64_t outputCapability() const { return outputCapability_; }
    void setOutputCapability(std::uint64_t v) { outputCapability_ = v; }
    std::uint64_t inputCapability() const { return inputCapability_; }
    void setInputCapability(std::uint64_t v) { inputCapability_ = v; }
    TaxCategory taxCategory() const { return taxCategory_; }
    void setTaxCategory(TaxCategory v) { taxCategory_ = v; }
    const std::optional<TerminalCapabilities>& terminalCapabilities() const {
        return terminalCapabilities_;
    }
    void setTerminalCapabilities(const std::optional<TerminalCapabilities>& v) {
        terminalCapabilities_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<TerminalInfo>& terminalInfo() const { return terminalInfo_; }
    void setTerminalInfo(const std::optional<TerminalInfo>& v) {
        terminalInfo_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<Customer>& customer() const { return customer_; }
    void setCustomer(const std::optional<Customer>& v) {
        customer_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<Address>& cardholderAddress() const { return cardholderAddress_; }
    void setCardholderAddress(const std::optional<Address>& v) {
        cardholderAddress_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<CardData>& cardData() const { return cardData_; }
    void setCardData(const std::optional<CardData>& v) {
        cardData_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<std::string>& hostTransactionId() const { return hostTransactionId_; }
    void setHostTransactionId(std::optional<std::string> v) { hostTransactionId_ = std::move(v); }
    // Shared, not copied: the caller's later changes to the record show through. The only
    // record here held that way; callers rely on it.
    const std::shared_ptr<CommercialCardData>& commercialCardData() const {
        return commercialCardData_;
    }
    void setCommercialCardData(std::shared_ptr<CommercialCardData> v) {
        commercialCardData_ = std::move(v);
    }

  private:
    std::optional<Decimal> subTotalAmount_;
    std::optional<Decimal> taxAmount_;
    std::optional<Decimal> tipAmount_;
    std::optional<Decimal> totalAmount_;
    std::optional<std::string> posReferenceNumber_;
    std::optional<std::string> operatingUserId_;
    std::optional<std::string> gatewayTransactionId_;
    std::optional<std::string> forceAuthCode_;
    std::optional<std::string> invoiceNumber_;
    std::optional<Bytes> signature_;
    ReversalReason reversalReason_{};
    TenderType tenderType_{};
    CVMResult cvmResult_{};
    AvsType avsType_{};
    GatewayAction gatewayAction_{};
    std::uint64_t operatingEnvironment_ = 0;
    std::uint64_t authenticationCapability_ = 0;
    std::uint64_t outputCapability_ = 0;
    std::uint64_t inputCapability_ = 0;
    TaxCategory taxCategory_{};
    std::optional<TerminalCapabilities> terminalCapabilities_;
    std::optional<TerminalInfo> terminalInfo_;
    std::optional<Customer> customer_;
    std::optional<Address> cardholderAddress_;
    std::optional<CardData> cardData_;
    std::optional<std::string> hostTransactionId_;
    std::shared_ptr<CommercialCardData> commercialCardData_;
};

}  // namespace vastrel
