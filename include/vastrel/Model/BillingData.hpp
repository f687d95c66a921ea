#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

// The cardholder's billing name and address. Every field starts absent, not empty.
class BillingData {
  public:
    const std::optional<std::string>& firstName() const { return firstName_; }
    void setFirstName(std::optional<std::string> v) { firstName_ = std::move(v); }
    const std::optional<std::string>& lastName() const { return lastName_; }
    void setLastName(std::optional<std::string> v) { lastName_ = std::move(v); }
    const std::optional<std::string>& addressLine1() const { return addressLine1_; }
    void setAddressLine1(std::optional<std::string> v) { addressLine1_ = std::move(v); }
    const std::optional<std::string>& zip() const { return zip_; }
    void setZip(std::optional<std::string> v) { zip_ = std::move(v); }

  private:
    std::optional<std::string> firstName_;
    std::optional<std::string> lastName_;
    std::optional<std::string> addressLine1_;
    std::optional<std::string> zip_;
};

}  // namespace vastrel
