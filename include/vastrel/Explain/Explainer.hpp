#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Explain/FieldDecoders.hpp"

namespace vastrel {

class CaKeyTable;

struct ExplainOptions {
    bool showSensitive = false;  // card data in full; masked by default
    std::uint32_t maxDepth = BerReader::kDefaultMaxDepth;
    // The kernel to read the data in when it carries no AID of its own: a session's
    // selected application.
    PaymentScheme scheme = PaymentScheme::Any;
    // The CA public keys a session's offline data authentication is checked with; the
    // built-in table when null.
    const CaKeyTable* caKeys = nullptr;
};

// One element of an explanation, in document order: a template is followed by its subtree,
// which ends at index subtreeEnd.
struct ExplainedElement {
    std::string tag;         // hex, "9F26"
    std::string_view name;   // from EmvDictionary, in the AID's scheme; "Unknown" if absent
    std::size_t length = 0;  // of the value, in bytes
    std::string value;       // hex, upper case; card data masked with '*' unless shown
    Findings meaning;        // what the value says, for the elements that have a decoder
    std::uint32_t depth = 0;
    std::uint32_t subtreeEnd = 0;
    bool constructed = false;
    bool decoded = false;  // a decoder read the value (meaning may still be a complaint)
};

struct ExplainedStatus {
    std::string word;     // "9000"
    std::string meaning;  // "9000: normal processing"
};

struct Explanation {
    std::vector<ExplainedElement> elements;
    std::optional<ExplainedStatus> status;  // the R-APDU's closing status word
    std::optional<BerError> error;          // where the strict read stopped
};

// Explains EMV data the way a payment engineer reads a trace: the strict reader's tree,
// every element named from the full dictionary and its value decoded, card data masked, a
// closing status word read as one, and the card number's range checked against the AID's
// scheme. Whatever was read before an error is kept.
class Explainer {
  public:
    // data is an R-APDU or plain TLV data. When the bytes before the last two read without
    // error and the last two are a status word, those two are read as the status word.
    [[nodiscard]] static Explanation explain(std::span<const std::uint8_t> data,
                                             const ExplainOptions& options = {});

    // The explanation as one JSON object: {"elements": [...], "status": null or {"sw",
    // "meaning"}, "error": null or {"offset", "reason"}}. Each element is {"tag", "name",
    // "length", "value"}, with "children" for templates and "meaning" for decoded values.
    [[nodiscard]] static std::string toJson(const Explanation& explanation);
};

}  // namespace vastrel
