#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// Where a CA public key came from, and so how far it can be trusted.
enum class CaKeyOrigin : std::uint8_t {
    Verified,    // built in: its published checksum verifies
    Unverified,  // built in: no checksum was published for it
    Supplied,    // given by the user (a file or the command line)
};

// A certification-authority public key as the schemes publish it: the RID and index that name
// it, the modulus and exponent, and the SHA-1 checksum published with it, if any.
struct CaPublicKey {
    static constexpr std::size_t kRidLength = 5;
    static constexpr std::size_t kChecksumLength = 20;

    std::array<std::uint8_t, kRidLength> rid{};
    std::uint8_t index = 0;
    Bytes modulus;
    Bytes exponent;
    std::optional<std::array<std::uint8_t, kChecksumLength>> checksum;
    std::string scheme;  // as the source names it; may be empty
    CaKeyOrigin origin = CaKeyOrigin::Supplied;

    // "A000000003 92"
    [[nodiscard]] std::string name() const;
};

}  // namespace vastrel
