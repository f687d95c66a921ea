#pragma once

// The two cryptographic operations offline data authentication needs, over Mbed TLS: the RSA
// public-key operation that recovers a certificate, and SHA-1. Kept behind this header so that
// no public header names the crypto library.

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include <mbedtls/sha1.h>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel::oda {

using Sha1Digest = std::array<std::uint8_t, 20>;

// SHA-1 over parts given one after another.
class Sha1 {
  public:
    Sha1();
    ~Sha1();
    Sha1(const Sha1&) = delete;
    Sha1& operator=(const Sha1&) = delete;

    Sha1& update(std::span<const std::uint8_t> part);
    [[nodiscard]] Sha1Digest finish();

  private:
    mbedtls_sha1_context context_;
};

[[nodiscard]] Sha1Digest sha1(std::span<const std::uint8_t> data);

// input^exponent mod modulus, as many bytes as the modulus. Nothing when input is not exactly
// as long as the modulus, is not below it, or the modulus is even or empty.
[[nodiscard]] std::optional<Bytes> rsaPublic(std::span<const std::uint8_t> modulus,
                                             std::span<const std::uint8_t> exponent,
                                             std::span<const std::uint8_t> input);

}  // namespace vastrel::oda
