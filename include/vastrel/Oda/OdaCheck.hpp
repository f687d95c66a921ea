#pragma once

#include <optional>
#include <string>

namespace vastrel {

// One check of offline data authentication or of a CA public key, with its result: passed,
// failed, or not made (ok empty) because what it needs is not at hand. The detail says what
// was found, in words; it never holds card data unmasked.
struct OdaCheck {
    std::string name;        // "header", "hash", "checksum"
    std::optional<bool> ok;  // empty: not checked
    std::string detail;      // "6A", "recomputed hash differs", "no transaction date"

    friend bool operator==(const OdaCheck&, const OdaCheck&) = default;
};

}  // namespace vastrel
