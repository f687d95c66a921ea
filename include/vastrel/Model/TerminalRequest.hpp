#pragma once

#include <optional>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/TerminalConfiguration.hpp"
#include "vastrel/Platform/Decimal.hpp"

namespace vastrel {

// An instruction to the card reader: the action to take, with the amounts and the
// configuration it needs.
class TerminalRequest {
  public:
    TerminalRequest() = default;
    // Stores the action unchecked; everything else zero or absent.
    explicit TerminalRequest(TerminalAction terminalAction) : terminalAction_(terminalAction) {}

    const std::optional<Decimal>& totalAmount() const { return totalAmount_; }
    void setTotalAmount(std::optional<Decimal> v) { totalAmount_ = v; }
    const std::optional<Decimal>& tipAmount() const { return tipAmount_; }
    void setTipAmount(std::optional<Decimal> v) { tipAmount_ = v; }
    const std::optional<Decimal>& cashBackAmount() const { return cashBackAmount_; }
    void setCashBackAmount(std::optional<Decimal> v) { cashBackAmount_ = v; }
    // Stored through TerminalConfiguration::copy, so the stored configuration has no capks.
    const std::optional<TerminalConfiguration>& terminalConfiguration() const {
        return terminalConfiguration_;
    }
    void setTerminalConfiguration(const std::optional<TerminalConfiguration>& v) {
        terminalConfiguration_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    TenderType tenderType() const { return tenderType_; }
    void setTenderType(TenderType v) { tenderType_ = v; }
    TransactionType transactionType() const { return transactionType_; }
    void setTransactionType(TransactionType v) { transactionType_ = v; }
    TerminalAction terminalAction() const { return terminalAction_; }
    void setTerminalAction(TerminalAction v) { terminalAction_ = v; }

  private:
    std::optional<Decimal> totalAmount_;
    std::optional<Decimal> tipAmount_;
    std::optional<Decimal> cashBackAmount_;
    std::optional<TerminalConfiguration> terminalConfiguration_;
    TenderType tenderType_{};
    TransactionType transactionType_{};
    TerminalAction terminalAction_{};
};

}  // namespace vastrel
