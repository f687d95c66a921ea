#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Oda/CaKeyTable.hpp"
#include "vastrel/Oda/OdaCheck.hpp"
#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// A response of the session, by the exchange that carried it (0 is the first).
struct OdaResponse {
    Bytes data;  // without the status word
    std::size_t exchange = 0;
};

struct OdaRecord {
    std::uint8_t sfi = 0;
    std::uint8_t number = 0;
    OdaResponse response;  // the record as read: a 70 template
};

struct OdaGenerateAc {
    Bytes commandData;                         // the CDOL-related data the terminal sent
    std::optional<Bytes> unpredictableNumber;  // 9F37 within it
    bool cdaRequested = false;
    OdaResponse response;
};

struct OdaInternalAuthenticate {
    Bytes commandData;  // the DDOL-related data
    OdaResponse response;
};

// What a session shows that offline data authentication needs. The session explainer fills
// it; tests and other readers of traces may build it themselves.
struct OdaInput {
    Bytes aid;  // of the application selected: its RID names the CA
    std::optional<OdaResponse> processingOptions;  // the GET PROCESSING OPTIONS response
    std::vector<OdaRecord> records;                // every record read, in order
    std::optional<Bytes> pdolData;                 // the value of 83 in GET PROCESSING OPTIONS
    std::optional<Bytes> transactionDate;          // 9A, YYMMDD, from the terminal's command data
    std::vector<OdaGenerateAc> generateAcs;
    std::optional<OdaInternalAuthenticate> internalAuthenticate;
    std::optional<Bytes> terminalVerificationResults;  // the last TVR the terminal sent
    bool showSensitive = false;  // card numbers recovered from certificates, unmasked
};

struct OdaField {
    std::string name;
    std::string value;

    friend bool operator==(const OdaField&, const OdaField&) = default;
};

// One object recovered with a public key: the certificate or signature, the CA key the chain
// starts from, every field read from it and every check made on it.
struct OdaStep {
    // "issuer certificate", "icc certificate", "signed static data", "signed dynamic data"
    std::string object;
    std::string keyRid;  // the CA key's RID and index, as hex
    std::string keyIndex;
    std::vector<OdaField> fields;
    std::vector<OdaCheck> checks;
    std::size_t exchange = 0;  // where the object appeared

    [[nodiscard]] bool passed() const;
    // "issuer certificate: hash"; empty when every check passed or was not made.
    [[nodiscard]] std::string firstFailure() const;
};

enum class OdaVerdict : std::uint8_t { Passed, Failed, NotPossible };

// "passed", "failed", "not possible"
[[nodiscard]] std::string_view describe(OdaVerdict verdict) noexcept;

// The verdict on one method, and its detail: for Failed the step and check that failed
// ("issuer certificate: hash"), for NotPossible why (a key missing, records missing, no
// signature in the trace).
struct OdaMethod {
    std::string method;  // "SDA", "DDA", "CDA"; "none" when the AIP names none
    OdaVerdict verdict = OdaVerdict::NotPossible;
    std::string detail;

    friend bool operator==(const OdaMethod&, const OdaMethod&) = default;
};

struct OdaReport {
    std::vector<OdaMethod> methods;
    std::vector<OdaStep> steps;
    // What the terminal's TVR says of offline data authentication (its first byte), to be set
    // beside the verdicts; empty when the trace holds no TVR.
    std::vector<std::string> terminalFindings;
};

// Offline data authentication replayed from a session, for RSA keys (EMV Book 2): the
// issuer and ICC public key certificates recovered and checked, the static data to be
// authenticated built from the records the AFL marks, and the signed static and dynamic data
// verified. ECC (XDA) certificates are named and left unchecked.
class OdaVerifier {
  public:
    [[nodiscard]] static OdaReport verify(const OdaInput& input,
                                          const CaKeyTable& keys = CaKeyTable::builtIn());
};

}  // namespace vastrel
