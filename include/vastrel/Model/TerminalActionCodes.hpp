#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

// The three Terminal Action Codes of one card application, as hex strings. It has no
// copy operation: holders share it (see AIDConfiguration).
class TerminalActionCodes {
  public:
    const std::optional<std::string>& defaultTac() const { return defaultTac_; }
    void setDefaultTac(std::optional<std::string> v) { defaultTac_ = std::move(v); }
    const std::optional<std::string>& denialTac() const { return denialTac_; }
    void setDenialTac(std::optional<std::string> v) { denialTac_ = std::move(v); }
    const std::optional<std::string>& onlineTac() const { return onlineTac_; }
    void setOnlineTac(std::optional<std::string> v) { onlineTac_ = std::move(v); }

  private:
    std::optional<std::string> defaultTac_;
    std::optional<std::string> denialTac_;
    std::optional<std::string> onlineTac_;
};

}  // namespace vastrel
