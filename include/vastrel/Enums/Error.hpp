#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// An error reported to the layers above Vastrel: a domain, a code and user information.
class Error {
  public:
    Error(std::string domain, std::int64_t code, std::map<std::string, std::string> userInfo)
        : domain_(std::move(domain)), code_(code), userInfo_(std::move(userInfo)) {}

    [[nodiscard]] const std::string& domain() const { return domain_; }
    [[nodiscard]] std::int64_t code() const { return code_; }
    [[nodiscard]] const std::map<std::string, std::string>& userInfo() const { return userInfo_; }

    // An error whose domain is the type's display string ("GENERAL_ERROR"), whose code is
    // the type's value, and whose user information maps that same display string to the
    // message. Throws std::invalid_argument for a type without a display string (above 11)
    // or an absent message.
    static std::shared_ptr<const Error> emvErrorType(EMVErrorType type,
                                                     std::optional<std::string_view> message);

  private:
    std::string domain_;
    std::int64_t code_;
    std::map<std::string, std::string> userInfo_;
};

}  // namespace vastrel
