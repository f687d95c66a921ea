#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// A question the card reader raises during a transaction, such as choosing among card
// applications (applicationNames, the names shown for each) or confirming the amount.
class TerminalInteractionRequest {
  public:
    TerminalInteractionRequest() = default;
    // initWithTermianlInteractionType: stores the type unchecked; everything else absent.
    explicit TerminalInteractionRequest(TerminalInteractionType terminalInteractionType)
        : terminalInteractionType_(terminalInteractionType) {}

    TerminalInteractionType terminalInteractionType() const { return terminalInteractionType_; }
    void setTerminalInteractionType(TerminalInteractionType v) { terminalInteractionType_ = v; }
    const std::optional<std::vector<std::string>>& applicationNames() const {
        return applicationNames_;
    }
    void setApplicationNames(std::optional<std::vector<std::string>> v) {
        applicationNames_ = std::move(v);
    }
    const std::optional<CardData>& cardData() const { return cardData_; }
    void setCardData(const std::optional<CardData>& v) {
        cardData_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    const std::optional<Decimal>& finalAmount() const { return finalAmount_; }
    void setFinalAmount(std::optional<Decimal> v) { finalAmount_ = v; }

  private:
    TerminalInteractionType terminalInteractionType_{};
    std::optional<std::vector<std::string>> applicationNames_;
    std::optional<CardData> cardData_;
    std::optional<Decimal> finalAmount_;
};

}  // namespace vastrel
