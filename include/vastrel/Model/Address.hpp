#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

// A cardholder's postal address.
class Address {
  public:
    const std::optional<std::string>& addressLine1() const { return addressLine1_; }
    void setAddressLine1(std::optional<std::string> v) { addressLine1_ = std::move(v); }
    const std::optional<std::string>& addressLine2() const { return addressLine2_; }
    void setAddressLine2(std::optional<std::string> v) { addressLine2_ = std::move(v); }
    const std::optional<std::string>& postalCode() const { return postalCode_; }
    void setPostalCode(std::optional<std::string> v) { postalCode_ = std::move(v); }
    const std::optional<std::string>& city() const { return city_; }
    void setCity(std::optional<std::string> v) { city_ = std::move(v); }
    const std::optional<std::string>& state() const { return state_; }
    void setState(std::optional<std::string> v) { state_ = std::move(v); }

    // A field-by-field copy, so that records holding an address by copy can store one.
    Address copy() const { return *this; }

  private:
    std::optional<std::string> addressLine1_;
    std::optional<std::string> addressLine2_;
    std::optional<std::string> postalCode_;
    std::optional<std::string> city_;
    std::optional<std::string> state_;
};

}  // namespace vastrel
