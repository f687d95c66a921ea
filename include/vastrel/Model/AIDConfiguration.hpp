#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Model/AID.hpp"
#include "vastrel/Model/TerminalActionCodes.hpp"

namespace vastrel {

// The reader settings of one card application. aid and terminalActionCodes are shared
// with whoever set them: later changes to those records show through.
class AIDConfiguration {
  public:
    const std::shared_ptr<AID>& aid() const { return aid_; }
    void setAid(std::shared_ptr<AID> v) { aid_ = std::move(v); }
    const std::shared_ptr<TerminalActionCodes>& terminalActionCodes() const {
        return terminalActionCodes_;
    }
    void setTerminalActionCodes(std::shared_ptr<TerminalActionCodes> v) {
        terminalActionCodes_ = std::move(v);
    }
    const std::optional<std::string>& terminalAppVersion() const { return terminalAppVersion_; }
    void setTerminalAppVersion(std::optional<std::string> v) { terminalAppVersion_ = std::move(v); }
    const std::optional<std::string>& lowestSupportedICCAppVersion() const {
        return lowestSupportedICCAppVersion_;
    }
    void setLowestSupportedICCAppVersion(std::optional<std::string> v) {
        lowestSupportedICCAppVersion_ = std::move(v);
    }
    const std::optional<std::string>& applicationSelectionFlags() const {
        return applicationSelectionFlags_;
    }
    void setApplicationSelectionFlags(std::optional<std::string> v) {
        applicationSelectionFlags_ = std::move(v);
    }
    // The misspelt name is published; callers use it as is.
    const std::optional<std::string>& temrinalCapabilities() const { return temrinalCapabilities_; }
    void setTemrinalCapabilities(std::optional<std::string> v) {
        temrinalCapabilities_ = std::move(v);
    }
    const std::optional<std::string>& tlvData() const { return tlvData_; }
    void setTlvData(std::optional<std::string> v) { tlvData_ = std::move(v); }
    std::int64_t floorLimit() const { return floorLimit_; }
    void setFloorLimit(std::int64_t v) { floorLimit_ = v; }
    std::int64_t cvmLimit() const { return cvmLimit_; }
    void setCvmLimit(std::int64_t v) { cvmLimit_ = v; }
    std::int64_t transactionLimit() const { return transactionLimit_; }
    void setTransactionLimit(std::int64_t v) { transactionLimit_ = v; }
    std::int64_t priorityIndex() const { return priorityIndex_; }
    void setPriorityIndex(std::int64_t v) { priorityIndex_ = v; }

  private:
    std::shared_ptr<AID> aid_;
    std::shared_ptr<TerminalActionCodes> terminalActionCodes_;
    std::optional<std::string> terminalAppVersion_;
    std::optional<std::string> lowestSupportedICCAppVersion_;
    std::optional<std::string> applicationSelectionFlags_;
    std::optional<std::string> temrinalCapabilities_;
    std::optional<std::string> tlvData_;
    std::int64_t floorLimit_ = 0;
    std::int64_t cvmLimit_ = 0;
    std::int64_t transactionLimit_ = 0;
    std::int64_t priorityIndex_ = 0;
};

}  // namespace vastrel
