#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/AID.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// A question put to the cardholder or merchant through the application's screens:
// choose an application, confirm the amount, or enter commercial-card fields.
class CardholderInteractionRequest {
  public:
    CardholderInteractionType cardholderInteractionType() const {
        return cardholderInteractionType_;
    }
    void setCardholderInteractionType(CardholderInteractionType v) {
        cardholderInteractionType_ = v;
    }
    // The caller's list of applications, shared read-only rather than copied: the caller's
    // later changes to it show through. Callers rely on this; keep it.
    const std::shared_ptr<const std::vector<AID>>& supportedApplication() const {
        return supportedApplication_;
    }
    void setSupportedApplication(std::shared_ptr<const std::vector<AID>> v) {
        supportedApplication_ = std::move(v);
    }
    const std::optional<Decimal>& finalTransactionAmount() const { return finalTransactionAmount_; }
    void setFinalTransactionAmount(std::optional<Decimal> v) { finalTransactionAmount_ = v; }
    const std::optional<std::vector<CommercialCardDataField>>& commercialCardDataFields() const {
        return commercialCardDataFields_;
    }
    void setCommercialCardDataFields(std::optional<std::vector<CommercialCardDataField>> v) {
        commercialCardDataFields_ = std::move(v);
    }

  private:
    CardholderInteractionType cardholderInteractionType_{};
    std::shared_ptr<const std::vector<AID>> supportedApplication_;
    std::optional<Decimal> finalTransactionAmount_;
    std::optional<std::vector<CommercialCardDataField>> commercialCardDataFields_;
};

}  // namespace vastrel
