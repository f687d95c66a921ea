#include "vastrel/Model/GatewayConfiguration.hpp"

namespace vastrel {

namespace {

constexpr std::int32_t kDefaultTimeOut = 90;
constexpr std::int32_t kDefaultMaxRetryAttempts = 3;

}  // namespace

GatewayConfiguration::GatewayConfiguration()
    : GatewayConfiguration("1.0", "POS App", nullptr, GatewayType::GatewayTypeDemoMode) {
    timeOut_ = kDefaultTimeOut;
    maxRetryAttempts_ = kDefaultMaxRetryAttempts;
}

GatewayConfiguration::GatewayConfiguration(std::optional<std::string> posAppVersion,
                                           std::optional<std::string> posAppName,
                                           std::shared_ptr<const Credentials> credentials,
                                           GatewayType gatewayProvider)
    : gatewayType_(gatewayProvider),
      posAppName_(std::move(posAppName)),
      posAppVersion_(std::move(posAppVersion)),
      credentials_(std::move(credentials)) {}

}  // namespace vastrel
