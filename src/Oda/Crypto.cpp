#include "Crypto.hpp"

#include <mbedtls/bignum.h>
#include <mbedtls/version.h>

namespace vastrel::oda {
namespace {

// Mbed TLS 3 dropped the _ret suffix that 2.28 (Debian 12) still uses.
#if MBEDTLS_VERSION_MAJOR >= 3
int sha1Starts(mbedtls_sha1_context* c) { return mbedtls_sha1_starts(c); }
int sha1Update(mbedtls_sha1_context* c, const unsigned char* d, std::size_t n) {
    return mbedtls_sha1_update(c, d, n);
}
int sha1Finish(mbedtls_sha1_context* c, unsigned char* out) { return mbedtls_sha1_finish(c, out); }
#else
int sha1Starts(mbedtls_sha1_context* c) { return mbedtls_sha1_starts_ret(c); }
int sha1Update(mbedtls_sha1_context* c, const unsigned char* d, std::size_t n) {
    return mbedtls_sha1_update_ret(c, d, n);
}
int sha1Finish(mbedtls_sha1_context* c, unsigned char* out) {
    return mbedtls_sha1_finish_ret(c, out);
}
#endif

// An Mbed TLS big number that frees itself.
class BigNumber {
  public:
    BigNumber() { mbedtls_mpi_init(&value_); }
    ~BigNumber() { mbedtls_mpi_free(&value_); }
    BigNumber(const BigNumber&) = delete;
    BigNumber& operator=(const BigNumber&) = delete;

    bool read(std::span<const std::uint8_t> bytes) {
        return mbedtls_mpi_read_binary(&value_, bytes.data(), bytes.size()) == 0;
    }
    mbedtls_mpi* get() { return &value_; }

  private:
    mbedtls_mpi value_;
};

}  // namespace

// SHA-1 over memory cannot fail in Mbed TLS (no hardware offload is configured in Debian's
// build), so the return codes are not checked.
Sha1::Sha1() {
    mbedtls_sha1_init(&context_);
    sha1Starts(&context_);
}

Sha1::~Sha1() { mbedtls_sha1_free(&context_); }

Sha1& Sha1::update(std::span<const std::uint8_t> part) {
    if (!part.empty()) sha1Update(&context_, part.data(), part.size());
    return *this;
}

Sha1Digest Sha1::finish() {
    Sha1Digest digest{};
    sha1Finish(&context_, digest.data());
    return digest;
}

Sha1Digest sha1(std::span<const std::uint8_t> data) { return Sha1().update(data).finish(); }

std::optional<Bytes> rsaPublic(std::span<const std::uint8_t> modulus,
                               std::span<const std::uint8_t> exponent,
                               std::span<const std::uint8_t> input) {
    if (modulus.empty() || (modulus.back() & 1) == 0 || input.size() != modulus.size()) {
        return std::nullopt;
    }
    BigNumber n, e, x, result;
    if (!n.read(modulus) || !e.read(exponent) || !x.read(input)) return std::nullopt;
    if (mbedtls_mpi_cmp_mpi(x.get(), n.get()) >= 0) return std::nullopt;
    if (mbedtls_mpi_exp_mod(result.get(), x.get(), e.get(), n.get(), nullptr) != 0) {
        return std::nullopt;
    }
    Bytes out(modulus.size());
    if (mbedtls_mpi_write_binary(result.get(), out.data(), out.size()) != 0) return std::nullopt;
    return out;
}

}  // namespace vastrel::oda
