#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// How the payment layer reaches its gateway. The credentials dictionary (keyed by the
// credential key constants) is shared with the caller, read-only: the caller's later
// changes to it show through.
class GatewayConfiguration {
  public:
    using Credentials = std::map<std::string, std::string>;

    // Version "1.0", name "POS App", no credentials, GatewayTypeDemoMode, timeOut 90 and
    // maxRetryAttempts 3.
    GatewayConfiguration();

    // Stores the arguments as given, with timeOut and maxRetryAttempts 0: the defaults 90
    // and 3 belong to the default constructor only. Callers rely on this; keep it.
    GatewayConfiguration(std::optional<std::string> posAppVersion,
                         std::optional<std::string> posAppName,
                         std::shared_ptr<const Credentials> credentials,
                         GatewayType gatewayProvider);

    GatewayType gatewayType() const { return gatewayType_; }
    void setGatewayType(GatewayType v) { gatewayType_ = v; }
    GatewayMode gatewayMode() const { return gatewayMode_; }
    void setGatewayMode(GatewayMode v) { gatewayMode_ = v; }
    const std::optional<std::string>& posAppName() const { return posAppName_; }
    void setPosAppName(std::optional<std::string> v) { posAppName_ = std::move(v); }
    const std::optional<std::string>& posAppVersion() const { return posAppVersion_; }
    void setPosAppVersion(std::optional<std::string> v) { posAppVersion_ = std::move(v); }
    const std::shared_ptr<const Credentials>& credentials() const { return credentials_; }
    void setCredentials(std::shared_ptr<const Credentials> v) { credentials_ = std::move(v); }
    std::int32_t timeOut() const { return timeOut_; }
    void setTimeOut(std::int32_t v) { timeOut_ = v; }
    std::int32_t maxRetryAttempts() const { return maxRetryAttempts_; }
    void setMaxRetryAttempts(std::int32_t v) { maxRetryAttempts_ = v; }

  private:
    GatewayType gatewayType_{};
    GatewayMode gatewayMode_{};
    std::optional<std::string> posAppName_;
    std::optional<std::string> posAppVersion_;
    std::shared_ptr<const Credentials> credentials_;
    std::int32_t timeOut_ = 0;
    std::int32_t maxRetryAttempts_ = 0;
};

}  // namespace vastrel
