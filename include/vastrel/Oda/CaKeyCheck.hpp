#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Model/EMVCAPK.hpp"
#include "vastrel/Oda/CaPublicKey.hpp"
#include "vastrel/Oda/OdaCheck.hpp"

namespace vastrel {

// A key's verdict: Unverified when nothing failed but no checksum was published to check.
enum class CaKeyVerdict : std::uint8_t { Passed, Failed, Unverified };

// "passed", "failed", "unverified"
[[nodiscard]] std::string_view describe(CaKeyVerdict verdict) noexcept;

// The checks a CA public key must pass before a terminal may use it. A wrong byte in a
// 2048-bit modulus passes everything but the checksum, and fails every card of that scheme.
//   checksum:       SHA-1 over RID, index, modulus and exponent equals the published one
//                   (not made when none is published; on a mismatch, says which common
//                   exponent the published checksum matches, if one does)
//   modulus:        a length the schemes use (768 to 1984 bits), odd, no leading zero byte
//   exponent:       3 or 65537
//   index:          no other key of the set has the same RID and index (checkAll only)
class CaKeyCheck {
  public:
    [[nodiscard]] static std::vector<OdaCheck> check(const CaPublicKey& key);

    // The same for the configuration record, whose fields are hex text: a field that is
    // absent or not strict hex of the right length fails the first check, "fields".
    [[nodiscard]] static std::vector<OdaCheck> check(const EMVCAPK& key);

    // Every key of a set, each with the index check against the others, which it names by
    // names[i] ("line 14") when given, else as "key i" counting from 1.
    [[nodiscard]] static std::vector<std::vector<OdaCheck>> checkAll(
        std::span<const CaPublicKey> keys, std::span<const std::string> names = {});

    // True when no check failed.
    [[nodiscard]] static bool passed(std::span<const OdaCheck> checks) noexcept;

    [[nodiscard]] static CaKeyVerdict verdict(std::span<const OdaCheck> checks) noexcept;

    // How many of checkAll's keys failed.
    [[nodiscard]] static std::size_t failures(std::span<const std::vector<OdaCheck>> checks);

    // checkAll's checks of keys as a JSON array: [{"rid", "index", "scheme", "source",
    // "verdict", "checks": [{"name", "ok" (null when not checked), "detail"}]}], source from
    // names.
    [[nodiscard]] static std::string toJson(std::span<const CaPublicKey> keys,
                                            std::span<const std::string> names,
                                            std::span<const std::vector<OdaCheck>> checks);

    // The key as the checks see it: the EMVCAPK record's hex fields read strictly; nothing
    // when one is absent or malformed.
    [[nodiscard]] static std::optional<CaPublicKey> fromRecord(const EMVCAPK& key);
};

}  // namespace vastrel
