#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Tags/PaymentScheme.hpp"

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

    // The scheme of the first AID among nodes (4F, then 84, then 9F06) whose RID is known;
    // Any when there is none. Later responses of a session do not repeat the AID, so data
    // without one says nothing about its kernel.
    [[nodiscard]] static PaymentScheme schemeOf(std::span<const BerNode> nodes) noexcept;

    // The same for BER-TLV data given as hex, read strictly; Any when it cannot be read.
    [[nodiscard]] static PaymentScheme schemeOfHex(std::string_view hex);
};

}  // namespace vastrel
