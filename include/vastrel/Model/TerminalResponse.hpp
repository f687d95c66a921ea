#pragma once

#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CardData.hpp"

namespace vastrel {

// The card reader's answer to an action: its decision, a message and the card data read.
class TerminalResponse {
  public:
    TerminalResponse() = default;
    // Stores the action unchecked; everything else zero or absent.
    explicit TerminalResponse(TerminalAction terminalAction) : terminalAction_(terminalAction) {}

    TerminalAction terminalAction() const { return terminalAction_; }
    void setTerminalAction(TerminalAction v) { terminalAction_ = v; }
    TerminalDecisionType terminalDecisionType() const { return terminalDecisionType_; }
    void setTerminalDecisionType(TerminalDecisionType v) { terminalDecisionType_ = v; }
    const std::optional<std::string>& message() const { return message_; }
    void setMessage(std::optional<std::string> v) { message_ = std::move(v); }
    const std::optional<CardData>& cardData() const { return cardData_; }
    void setCardData(const std::optional<CardData>& v) {
        cardData_ = v ? std::optional(v->copy()) : std::nullopt;
    }

  private:
    TerminalAction terminalAction_{};
    TerminalDecisionType terminalDecisionType_{};
    std::optional<std::string> message_;
    std::optional<CardData> cardData_;
};

}  // namespace vastrel
