#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vastrel/Explain/PaymentScheme.hpp"

namespace vastrel {

// What an AID (4F, 84, 9F06) names: its registered application provider (the RID, the
// first five bytes) gives the scheme, and the RID with the start of the proprietary
// extension gives the product.
struct AidInfo {
    PaymentScheme scheme = PaymentScheme::Any;  // Any: the RID is not one we know
    std::string_view product;                   // empty when the product is not known
};

class ApplicationIdentifier {
  public:
    static constexpr std::size_t kRidLength = 5;

    [[nodiscard]] static AidInfo identify(std::span<const std::uint8_t> aid) noexcept;
};

}  // namespace vastrel
