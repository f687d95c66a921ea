#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CommercialCardData.hpp"

namespace vastrel {

// The cardholder's or merchant's answer to a CardholderInteractionRequest.
class CardholderInteractionResult {
  public:
    CardholderInteractionType cardholderInteractionType() const {
        return cardholderInteractionType_;
    }
    void setCardholderInteractionType(CardholderInteractionType v) {
        cardholderInteractionType_ = v;
    }
    // Index into the request's supportedApplication.
    std::int32_t selectedAidIndex() const { return selectedAidIndex_; }
    void setSelectedAidIndex(std::int32_t v) { selectedAidIndex_ = v; }
    bool finalAmountConfirmed() const { return finalAmountConfirmed_; }
    void setFinalAmountConfirmed(bool v) { finalAmountConfirmed_ = v; }
    // Shared, not copied: the caller's later changes to the record show through.
    const std::shared_ptr<CommercialCardData>& commercialCardData() const {
        return commercialCardData_;
    }
    void setCommercialCardData(std::shared_ptr<CommercialCardData> v) {
        commercialCardData_ = std::move(v);
    }

  private:
    CardholderInteractionType cardholderInteractionType_{};
    std::int32_t selectedAidIndex_ = 0;
    bool finalAmountConfirmed_ = false;
    std::shared_ptr<CommercialCardData> commercialCardData_;
};

}  // namespace vastrel
