#pragma once

// A payment PKI of the tests' own: a CA, an issuer and a card key pair made with Mbed TLS from
// a fixed seed, so that every run signs the same certificates, and the plain forms of the four
// signed objects that tests alter before signing.

#include <mbedtls/ctr_drbg.h>
#include <mbedtls/rsa.h>
#include <mbedtls/sha1.h>
#include <mbedtls/version.h>

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string_view>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel::testing {

inline Bytes sha1Of(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    Bytes digest(20);
#if MBEDTLS_VERSION_MAJOR >= 3
    mbedtls_sha1(all.data(), all.size(), digest.data());
#else
    mbedtls_sha1_ret(all.data(), all.size(), digest.data());
#endif
    return digest;
}

inline Bytes concat(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// An RSA key pair made from a seed: the same seed gives the same key.
class RsaKeyPair {
  public:
    RsaKeyPair(unsigned bits, std::string_view seed) : state_(0x9E3779B97F4A7C15ULL) {
        for (const char c : seed)
            state_ = (state_ ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
#if MBEDTLS_VERSION_MAJOR >= 3
        mbedtls_rsa_init(&rsa_);
#else
        mbedtls_rsa_init(&rsa_, MBEDTLS_RSA_PKCS_V15, 0);
#endif
        mbedtls_ctr_drbg_init(&drbg_);
        if (mbedtls_ctr_drbg_seed(&drbg_, &RsaKeyPair::entropy, this, nullptr, 0) != 0 ||
            mbedtls_rsa_gen_key(&rsa_, mbedtls_ctr_drbg_random, &drbg_, bits, 3) != 0) {
            throw std::runtime_error("RSA key generation failed");
        }
        modulus_.resize(mbedtls_rsa_get_len(&rsa_));
        mbedtls_mpi n;
        mbedtls_mpi_init(&n);
        mbedtls_rsa_export(&rsa_, &n, nullptr, nullptr, nullptr, nullptr);
        mbedtls_mpi_write_binary(&n, modulus_.data(), modulus_.size());
        mbedtls_mpi_free(&n);
    }
    ~RsaKeyPair() {
        mbedtls_rsa_free(&rsa_);
        mbedtls_ctr_drbg_free(&drbg_);
    }
    RsaKeyPair(const RsaKeyPair&) = delete;
    RsaKeyPair& operator=(const RsaKeyPair&) = delete;

    [[nodiscard]] const Bytes& modulus() const { return modulus_; }
    [[nodiscard]] Bytes exponent() const { return {0x03}; }

    // The private-key operation on plain, which must be as long as the modulus and below it.
    [[nodiscard]] Bytes sign(const Bytes& plain) {
        Bytes out(modulus_.size());
        if (plain.size() != out.size() ||
            mbedtls_rsa_private(&rsa_, mbedtls_ctr_drbg_random, &drbg_, plain.data(), out.data()) !=
                0) {
            throw std::runtime_error("RSA private operation failed");
        }
        return out;
    }

  private:
    static int entropy(void* self, unsigned char* out, std::size_t size) {
        auto& state = static_cast<RsaKeyPair*>(self)->state_;
        for (std::size_t i = 0; i < size; ++i) {
            state ^= state << 13;
            state ^= state >> 7;
            state ^= state << 17;
            out[i] = static_cast<unsigned char>(state);
        }
        return 0;
    }

    std::uint64_t state_;
    mbedtls_rsa_context rsa_;
    mbedtls_ctr_drbg_context drbg_;
    Bytes modulus_;
};

}  // namespace vastrel::testing
