#pragma once

#include <cstdint>
#include <optional>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/GatewayResponse.hpp"

namespace vastrel {

// The payment kit's answer to a TerminalInteractionRequest.
class TerminalInteractionResult {
  public:
    // Index into the request's applicationNames.
    std::int32_t selectedApplicationIndex() const { return selectedApplicationIndex_; }
    void setSelectedApplicationIndex(std::int32_t v) { selectedApplicationIndex_ = v; }
    bool finalAmountConfirmed() const { return finalAmountConfirmed_; }
    void setFinalAmountConfirmed(bool v) { finalAmountConfirmed_ = v; }
    // Stored through GatewayResponse::copy; its gatewayError stays weak.
    const std::optional<GatewayResponse>& gatewayResponse() const { return gatewayResponse_; }
    void setGatewayResponse(const std::optional<GatewayResponse>& v) {
        gatewayResponse_ = v ? std::optional(v->copy()) : std::nullopt;
    }
    TerminalInteractionType terminalInteractionType() const { return terminalInteractionType_; }
    void setTerminalInteractionType(TerminalInteractionType v) { terminalInteractionType_ = v; }

  private:
    std::int32_t selectedApplicationIndex_ = 0;
    bool finalAmountConfirmed_ = false;
    std::optional<GatewayResponse> gatewayResponse_;
    TerminalInteractionType terminalInteractionType_{};
};

}  // namespace vastrel
