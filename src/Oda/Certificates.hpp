#pragma once

// The four objects of RSA offline data authentication, each recovered with its public key and
// checked field by field: the issuer and ICC public key certificates, the signed static
// application data, and the signed dynamic application data of DDA and CDA.

#include <optional>
#include <span>
#include <string>

#include "Crypto.hpp"
#include "vastrel/Oda/OdaVerifier.hpp"

namespace vastrel::oda {

using ByteSpan = std::span<const std::uint8_t>;

struct PublicKey {
    Bytes modulus;
    Bytes exponent;
};

// A month counted from year 0, from EMV's two-digit year (00 to 49 are 2000 to 2049, 50 to 99
// are 1950 to 1999) and the month 1 to 12: year * 12 + month - 1.
[[nodiscard]] int monthNumber(int yy, int mm);

// What the checks compare the certificates with.
struct CardContext {
    std::string cardNumber;               // digits; empty when the trace shows none
    std::optional<int> transactionMonth;  // year * 12 + month - 1
    bool showSensitive = false;
};

// A step, and the public key its certificate certifies when the certificate's layout could be
// read (even if a check failed, so that later steps can still be shown).
struct Recovered {
    OdaStep step;
    std::optional<PublicKey> key;
    bool opened = false;  // the recovery gave header 6A and trailer BC: the right key
};

// An optional element: absent differs from empty.
using Element = std::optional<ByteSpan>;

[[nodiscard]] Recovered issuerCertificate(const PublicKey& ca, ByteSpan certificate,
                                          Element remainder, Element exponent,
                                          const CardContext& card);

// staticData: the static data to be authenticated; empty when the trace lacks records it
// needs, and the hash then goes unchecked.
[[nodiscard]] Recovered iccCertificate(const PublicKey& issuer, ByteSpan certificate,
                                       Element remainder, Element exponent, Element staticData,
                                       const CardContext& card);

[[nodiscard]] OdaStep signedStaticData(const PublicKey& issuer, ByteSpan signature,
                                       Element staticData);

// What a CDA signature is compared with: the GENERATE AC response it came in.
struct CdaExpectation {
    Sha1Digest transactionDataHash;
    std::optional<std::uint8_t> cid;  // 9F27 of the response
};

// DDA when cda is empty, else CDA. terminalData: the DDOL data (DDA) or the unpredictable
// number (CDA).
[[nodiscard]] OdaStep signedDynamicData(const PublicKey& icc, ByteSpan signature,
                                        ByteSpan terminalData,
                                        const std::optional<CdaExpectation>& cda);

}  // namespace vastrel::oda
