#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// What the connected card reader reports about itself. Holds the values unchecked.
class TerminalInfo {
  public:
    const std::optional<std::string>& serialNumber() const { return serialNumber_; }
    void setSerialNumber(std::optional<std::string> v) { serialNumber_ = std::move(v); }
    const std::optional<std::string>& appName() const { return appName_; }
    void setAppName(std::optional<std::string> v) { appName_ = std::move(v); }
    const std::optional<std::string>& appVersion() const { return appVersion_; }
    void setAppVersion(std::optional<std::string> v) { appVersion_ = std::move(v); }
    const std::optional<std::string>& terminalName() const { return terminalName_; }
    void setTerminalName(std::optional<std::string> v) { terminalName_ = std::move(v); }
    std::int64_t batteryLevel() const { return batteryLevel_; }
    void setBatteryLevel(std::int64_t v) { batteryLevel_ = v; }
    std::int64_t batteryPercentage() const { return batteryPercentage_; }
    void setBatteryPercentage(std::int64_t v) { batteryPercentage_ = v; }
    ConnectionType connectionType() const { return connectionType_; }
    void setConnectionType(ConnectionType v) { connectionType_ = v; }
    TerminalType terminalType() const { return terminalType_; }
    void setTerminalType(TerminalType v) { terminalType_ = v; }

    // A field-by-field copy; every field is a value, so nothing is shared with the source.
    TerminalInfo copy() const { return *this; }

  private:
    std::optional<std::string> serialNumber_;
    std::optional<std::string> appName_;
    std::optional<std::string> appVersion_;
    std::optional<std::string> terminalName_;
    std::int64_t batteryLevel_ = 0;
    std::int64_t batteryPercentage_ = 0;
    ConnectionType connectionType_{};
    TerminalType terminalType_{};
};

}  // namespace vastrel
