#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

// How to reach the cardholder. Both fields start absent, not empty.
class Customer {
  public:
    const std::optional<std::string>& emailAddress() const { return emailAddress_; }
    void setEmailAddress(std::optional<std::string> v) { emailAddress_ = std::move(v); }
    const std::optional<std::string>& phone() const { return phone_; }
    void setPhone(std::optional<std::string> v) { phone_ = std::move(v); }

    // A field-by-field copy, so that records holding a customer by copy can store one.
    Customer copy() const { return *this; }

  private:
    std::optional<std::string> emailAddress_;
    std::optional<std::string> phone_;
};

}  // namespace vastrel
