#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vastrel/Oda/CaPublicKey.hpp"

namespace vastrel {

// One key of a key file, with the line it was read from.
struct CaKeyLine {
    std::size_t line = 0;
    CaPublicKey key;
};

// A key file read strictly: every key up to the first line that cannot be read, and why that
// line was refused (the reason names the field, never its content).
struct CaKeyFileRead {
    std::vector<CaKeyLine> keys;
    std::optional<std::size_t> errorLine;
    std::string error;
};

// The CA public keys a terminal knows, found by RID and index. The built-in table holds the
// schemes' published keys, live and test: those whose published checksum verifies, marked
// verified, and those published without one, marked unverified; keys whose checksum fails are
// left out when the library is built.
class CaKeyTable {
  public:
    CaKeyTable() = default;
    // Every key as given, several of one RID and index included.
    explicit CaKeyTable(std::vector<CaPublicKey> keys) : keys_(std::move(keys)) {}

    [[nodiscard]] static const CaKeyTable& builtIn();

    // Keys one a line, fields separated by tabs (or, in a line without tabs, by blanks): rid,
    // index, exponent, modulus, then optionally the published SHA-1 (empty or "-" when none
    // was published), the scheme and the source. A first line starting with "rid" is a header;
    // blank lines and lines starting with '#' are skipped. Keys read are marked Supplied.
    [[nodiscard]] static CaKeyFileRead parse(std::string_view text);

    // Adds key; keys already held with its RID and index are replaced.
    void add(CaPublicKey key);

    // Every key held under rid and index, in the order added.
    [[nodiscard]] std::vector<const CaPublicKey*> find(std::span<const std::uint8_t> rid,
                                                       std::uint8_t index) const;

    [[nodiscard]] const std::vector<CaPublicKey>& keys() const noexcept { return keys_; }

  private:
    std::vector<CaPublicKey> keys_;
};

}  // namespace vastrel
