#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel {

// What the payment kit hands back when a transaction is finished. A new response has
// every enumeration at 0 (its 0 member, not an "unknown") and every other field absent.
class TransactionResponse {
  public:
    TransactionResultType transactionResultType() const { return transactionResultType_; }
    void setTransactionResultType(TransactionResultType v) { transactionResultType_ = v; }
    CardType cardType() const { return cardType_; }
    void setCardType(CardType v) { cardType_ = v; }
    TenderType tenderType() const { return tenderType_; }
    void setTenderType(TenderType v) { tenderType_ = v; }
    TransactionType transactionType() const { return transactionType_; }
    void setTransactionType(TransactionType v) { transactionType_ = v; }
    CardDataSourceType cardDataSourceType() const { return cardDataSourceType_; }
    void setCardDataSourceType(CardDataSourceType v) { cardDataSourceType_ = v; }
    const std::optional<std::string>& gatewayTransactionId() const { return gatewayTransactionId_; }
    void setGatewayTransactionId(std::optional<std::string> v) {
        gatewayTransactionId_ = std::move(v);
    }
    const std::optional<std::string>& posReferenceNumber() const { return posReferenceNumber_; }
    void setPosReferenceNumber(std::optional<std::string> v) { posReferenceNumber_ = std::move(v); }
    const std::optional<std::string>& gatewayAuthCode() const { return gatewayAuthCode_; }
    void setGatewayAuthCode(std::optional<std::string> v) { gatewayAuthCode_ = std::move(v); }
    const std::optional<std::string>& maskedPan() const { return maskedPan_; }
    void setMaskedPan(std::optional<std::string> v) { maskedPan_ = std::move(v); }
    const std::optional<std::string>& hostTransactionId() const { return hostTransactionId_; }
    void setHostTransactionId(std::optional<std::string> v) { hostTransactionId_ = std::move(v); }
    const std::optional<Decimal>& approvedAmount() const { return approvedAmount_; }
    void setApprovedAmount(std::optional<Decimal> v) { approvedAmount_ = v; }
    const std::optional<Decimal>& tipAmount() const { return tipAmount_; }
    void setTipAmount(std::optional<Decimal> v) { tipAmount_ = v; }
    // Stored through TransactionReceipt::copy, so the stored receipt carries the time it
    // was set, not the caller's date.
    const std::optional<TransactionReceipt>& receipt() const { return receipt_; }
    void setReceipt(const std::optional<TransactionReceipt>& v) {
        receipt_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    // Keys and texts as the payment kit fills them.
    const std::optional<std::map<std::string, std::string>>& responseMessages() const {
        return responseMessages_;
    }
    void setResponseMessages(std::optional<std::map<std::string, std::string>> v) {
        responseMessages_ = std::move(v);
    }

  private:
    TransactionResultType transactionResultType_{};
    CardType cardType_{};
    TenderType tenderType_{};
    TransactionType transactionType_{};
    CardDataSourceType cardDataSourceType_{};
    std::optional<std::string> gatewayTransactionId_;
    std::optional<std::string> posReferenceNumber_;
    std::optional<std::string> gatewayAuthCode_;
    std::optional<std::string> maskedPan_;
    std::optional<std::string> hostTransactionId_;
    std::optional<Decimal> approvedAmount_;
    std::optional<Decimal> tipAmount_;
    std::optional<TransactionReceipt> receipt_;
    std::optional<std::map<std::string, std::string>> responseMessages_;
};

}  // namespace vastrel
