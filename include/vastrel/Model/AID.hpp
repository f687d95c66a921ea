#pragma once

#include <optional>
#include <string>
#include <utility>

namespace vastrel {

class KeyedArchiver;
class KeyedUnarchiver;

// An application identifier split into its registered (rid) and proprietary (pix) parts,
// with the application's label and preferred name. Archivable; not copyable by contract.
class AID {
  public:
    AID() = default;

    // Reads "rid", "pix", "label" and "preferred_name" and keeps none of them: a decoded
    // AID has all four fields absent. Callers rely on this; keep it. Missing keys are fine.
    explicit AID(KeyedUnarchiver& coder);

    // Writes rid, pix, label and preferredName under "rid", "pix", "label" and
    // "preferred_name", in that order (absent fields as null).
    void encodeWithCoder(KeyedArchiver& coder) const;

    const std::optional<std::string>& rid() const { return rid_; }
    void setRid(std::optional<std::string> v) { rid_ = std::move(v); }
    const std::optional<std::string>& pix() const { return pix_; }
    void setPix(std::optional<std::string> v) { pix_ = std::move(v); }
    const std::optional<std::string>& label() const { return label_; }
    void setLabel(std::optional<std::string> v) { label_ = std::move(v); }
    const std::optional<std::string>& preferredName() const { return preferredName_; }
    void setPreferredName(std::optional<std::string> v) { preferredName_ = std::move(v); }

  private:
    std::optional<std::string> rid_;
    std::optional<std::string> pix_;
    std::optional<std::string> label_;
    std::optional<std::string> preferredName_;
};

}  // namespace vastrel
