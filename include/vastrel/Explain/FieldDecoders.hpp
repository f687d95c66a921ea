#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel {

// What one element's value means, one plain sentence per field or set bit.
using Findings = std::vector<std::string>;

// What a decoder may need besides the value: taken from the other elements of the same data.
struct DecodeContext {
    PaymentScheme scheme = PaymentScheme::Any;  // of the AID (4F, 84 or 9F06)
    std::optional<std::uint16_t> currency;      // 5F2A, as its ISO 4217 number
    std::optional<int> currencyExponent;        // 5F36
    bool showSensitive = false;                 // card numbers in full
};

// Pure functions from an element's value to its findings: every bit of the bit maps (TVR,
// TSI, AIP, AUC, the terminal capabilities, TTQ, CTQ, the action codes), the CVM list and
// results, the coded one-byte fields, dates, times, amounts, ISO codes, track 2 data, text
// and AIDs, and the usual layouts of the issuer application data. Any value length is
// accepted: a value of the wrong length gets a finding saying so, never a crash.
class FieldDecoders {
  public:
    // True when tag has a decoder under the scheme.
    [[nodiscard]] static bool has(std::uint32_t tag, PaymentScheme scheme = PaymentScheme::Any);

    // The findings for the value of tag; empty when the tag has no decoder.
    [[nodiscard]] static Findings decode(std::uint32_t tag, std::span<const std::uint8_t> value,
                                         const DecodeContext& context = {});
};

}  // namespace vastrel
