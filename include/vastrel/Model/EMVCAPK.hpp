#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

class KeyedArchiver;
class KeyedUnarchiver;

// One certification-authority public key of a card scheme. The key material is public
// data, held as plain strings. Archivable; not copyable by contract.
class EMVCAPK {
  public:
    EMVCAPK() = default;

    // Reads "production_key" (as an object, not a bool), "ca_public_key_index",
    // "exponent_of_public_key" and "checksum", and keeps none of them: a decoded key has
    // productionKey false and every string absent. Callers rely on this; keep it.
    explicit EMVCAPK(KeyedUnarchiver& coder);

    // Writes productionKey as a bool under "production_key", then caPublicKeyIndex,
    // exponentOfPublicKey and checksum under "ca_public_key_index",
    // "exponent_of_public_key" and "checksum". rid and publicKey are never written.
    void encodeWithCoder(KeyedArchiver& coder) const;

    bool productionKey() const { return productionKey_; }
    void setProductionKey(bool v) { productionKey_ = v; }
    const std::optional<std::string>& rid() const { return rid_; }
    void setRid(std::optional<std::string> v) { rid_ = std::move(v); }
    const std::optional<std::string>& caPublicKeyIndex() const { return caPublicKeyIndex_; }
    void setCaPublicKeyIndex(std::optional<std::string> v) { caPublicKeyIndex_ = std::move(v); }
    const std::optional<std::string>& publicKey() const { return publicKey_; }
    void setPublicKey(std::optional<std::string> v) { publicKey_ = std::move(v); }
    const std::optional<std::string>& exponentOfPublicKey() const { return exponentOfPublicKey_; }
    void setExponentOfPublicKey(std::optional<std::string> v) {
        exponentOfPublicKey_ = std::move(v);
    }
    const std::optional<std::string>& checksum() const { return checksum_; }
    void setChecksum(std::optional<std::string> v) { checksum_ = std::move(v); }

  private:
    bool productionKey_ = false;
    std::optional<std::string> rid_;
    std::optional<std::string> caPublicKeyIndex_;
    std::optional<std::string> publicKey_;
    std::optional<std::string> exponentOfPublicKey_;
    std::optional<std::string> checksum_;
};

}  // namespace vastrel
