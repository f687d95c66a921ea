#pragma once

#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// What the point-of-sale application hands over to start one payment. The amounts are
// carried as stated; the request does no arithmetic on them.
class TransactionRequest {
  public:
    // TenderType 0, TransactionType 0, TaxCategory 1 and a present zero cashBack; every
    // other field absent.
    TransactionRequest();

    // The defaults above, then total, tip, tax and cardData as given (absent stays absent).
    // cardData is stored as passed rather than through CardData::copy.
    TransactionRequest(std::optional<Decimal> transactionAmount, std::optional<Decimal> tipAmount,
                       std::optional<Decimal> taxAmount, const CardData* cardData);

    TenderType tenderType() const { return tenderType_; }
    void setTenderType(TenderType v) { tenderType_ = v; }
    TransactionType transactionType() const { return transactionType_; }
    void setTransactionType(TransactionType v) { transactionType_ = v; }
    TaxCategory taxCategory() const { return taxCategory_; }
    void setTaxCategory(TaxCategory v) { taxCategory_ = v; }
    const std::optional<CardData>& cardData() const { return cardData_; }
    void setCardData(const std::optional<CardData>& v) {
        cardData_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<Decimal>& total() const { return total_; }
    void setTotal(std::optional<Decimal> v) { total_ = v; }
    const std::optional<Decimal>& tax() const { return tax_; }
    void setTax(std::optional<Decimal> v) { tax_ = v; }
    const std::optional<Decimal>& tip() const { return tip_; }
    void setTip(std::optional<Decimal> v) { tip_ = v; }
    const std::optional<Decimal>& cashBack() const { return cashBack_; }
    void setCashBack(std::optional<Decimal> v) { cashBack_ = v; }
    const std::optional<std::string>& gatewayTransactionId() const { return gatewayTransactionId_; }
    void setGatewayTransactionId(std::optional<std::string> v) {
        gatewayTransactionId_ = std::move(v);
    }
    const std::optional<std::string>& posReferenceNumber() const { return posReferenceNumber_; }
    void setPosReferenceNumber(std::optional<std::string> v) { posReferenceNumber_ = std::move(v); }
    // Spelt forcedAuthCode here and forceAuthCode in GatewayRequest; both are published.
    const std::optional<std::string>& forcedAuthCode() const { return forcedAuthCode_; }
    void setForcedAuthCode(std::optional<std::string> v) { forcedAuthCode_ = std::move(v); }
    const std::optional<std::string>& invoiceNumber() const { return invoiceNumber_; }
    void setInvoiceNumber(std::optional<std::string> v) { invoiceNumber_ = std::move(v); }
    const std::optional<std::string>& operatingUserId() const { return operatingUserId_; }
    void setOperatingUserId(std::optional<std::string> v) { operatingUserId_ = std::move(v); }

  private:
    TenderType tenderType_{};
    TransactionType transactionType_{};
    TaxCategory taxCategory_{};
    std::optional<CardData> cardData_;
    std::optional<Decimal> total_;
    std::optional<Decimal> tax_;
    std::optional<Decimal> tip_;
    std::optional<Decimal> cashBack_;
    std::optional<std::string> gatewayTransactionId_;
    std::optional<std::string> posReferenceNumber_;
    std::optional<std::string> forcedAuthCode_;
    std::optional<std::string> invoiceNumber_;
    std::optional<std::string> operatingUserId_;
};

}  // namespace vastrel
