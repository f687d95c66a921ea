#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vastrel {

// One parsed BER-TLV element. All texts are hex except tagName (a display name) and
// length (the value's byte count as decimal text, "6" for six bytes).
class TLVObject {
  public:
    // Tag, name, length and value are "", innerTlvs is absent.
    TLVObject();

    // An element whose tag is the given hex text and whose tagName is that tag's name.
    // Nothing else is parsed.
    explicit TLVObject(std::string_view tag);

    // An element with its four texts given and no children, built in one step.
    TLVObject(std::string tag, std::string tagName, std::string length, std::string value);

    // Copying and destruction take no stack frame per level of nesting: a tree may be built
    // as deep as its owner likes.
    TLVObject(const TLVObject& other);
    TLVObject(TLVObject&&) noexcept = default;
    TLVObject& operator=(const TLVObject& other);
    TLVObject& operator=(TLVObject&&) noexcept = default;
    ~TLVObject();

    const std::optional<std::string>& tagName() const { return tagName_; }
    void setTagName(std::optional<std::string> v) { tagName_ = std::move(v); }
    const std::optional<std::string>& tag() const { return tag_; }
    void setTag(std::optional<std::string> v) { tag_ = std::move(v); }
    const std::optional<std::string>& length() const { return length_; }
    void setLength(std::optional<std::string> v) { length_ = std::move(v); }
    const std::optional<std::string>& value() const { return value_; }
    void setValue(std::optional<std::string> v) { value_ = std::move(v); }
    const std::optional<std::vector<TLVObject>>& innerTlvs() const { return innerTlvs_; }
    void setInnerTlvs(std::optional<std::vector<TLVObject>> v) { innerTlvs_ = std::move(v); }

    // The element's BER-TLV encoding as hex: tag, the length field encoded from the
    // decimal length text (00 when absent), then value. Absent for a null object.
    static std::optional<std::string> generateHexStringFromTLVObject(const TLVObject* object);

  private:
    std::optional<std::string> tagName_;
    std::optional<std::string> tag_;
    std::optional<std::string> length_;
    std::optional<std::string> value_;
    std::optional<std::vector<TLVObject>> innerTlvs_;
};

}  // namespace vastrel
