#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// The class bits of a tag's first byte, as the bits themselves.
enum class TagClass : std::uint64_t {
    Universal = 0,
    Application = 64,
    ContextSpecific = 128,
    Private = 192,
};

// The constructed bit of a tag's first byte, as the bit itself. The readers store it
// inverted (Constructed for a primitive tag); see Tag::tagIsPrimitive.
enum class TagType : std::uint64_t {
    Primitive = 0,
    Constructed = 32,
};

// One BER tag's bytes, with the class and type its reader recorded. Two tags are equal
// when their value bytes are; the numbers take no part in equality or hashing.
class Tag {
  public:
    // Empty value; class, type and identifier 0.
    Tag() = default;

    TagClass tagClass() const { return tagClass_; }
    void setTagClass(TagClass v) { tagClass_ = v; }
    TagType tagType() const { return tagType_; }
    void setTagType(TagType v) { tagType_ = v; }
    // Nothing in the library sets it, so it stays 0.
    std::uint64_t tagIdentifier() const { return tagIdentifier_; }
    void setTagIdentifier(std::uint64_t v) { tagIdentifier_ = v; }
    // The tag's bytes, first byte first.
    const Bytes& value() const { return value_; }
    void setValue(Bytes v) { value_ = std::move(v); }

    friend bool operator==(const Tag& lhs, const Tag& rhs) { return lhs.value_ == rhs.value_; }

    // Byte rules of the flat readers (TLVParser::splitTLVData, TLVUtility::tagFromTLVString).

    // Private (192) when both bits 0xC0 are set, else Application (64) for bit 0x40, else
    // ContextSpecific (128) for bit 0x80, else Universal (0).
    static constexpr TagClass tagClassFromChar(std::uint8_t b) {
        if ((b & 0xC0) == 0xC0) return TagClass::Private;
        if ((b & 0x40) != 0) return TagClass::Application;
        if ((b & 0x80) != 0) return TagClass::ContextSpecific;
        return TagClass::Universal;
    }
    // True when the constructed bit 0x20 is set: the name says the opposite of the answer.
    // The readers' stored tagType depends on it; keep it.
    static constexpr bool tagIsPrimitive(std::uint8_t b) { return (b & 0x20) != 0; }
    // b & 0x1F for a first byte, b & 0x7F for a following one.
    static constexpr int tagIdentifier(std::uint8_t b, bool firstByte) {
        return firstByte ? (b & 0x1F) : (b & 0x7F);
    }
    // True when bit 0x80 is clear (no tag byte follows).
    static constexpr bool tagIdentifierIsLastByte(std::uint8_t b) { return (b & 0x80) == 0; }

    // Byte rules of the nested decoder (TLVDecoder), on byte numbers.

    // True for any b but 0 (a 00 where a tag is due ends a level).
    static constexpr bool isValid(std::int32_t b) { return b != 0; }
    static constexpr std::int32_t getEncoding(std::int32_t b) { return b & 0x20; }
    static constexpr bool isConstructed(std::int32_t b) { return getEncoding(b) == 32; }
    // True when the low five bits are all set (a further tag byte follows).
    static constexpr bool isMultiByte(std::int32_t b) { return (b & 0x1F) == 0x1F; }
    // True when b >> 7 is 0 (bit 0x80 clear, for byte values; false for negative b).
    static constexpr bool isLast(std::int32_t b) { return (b >> 7) == 0; }

    // The display name of the tag written as uppercase hex ("9F02"), from the tag-name
    // table of Tags/; "Unknown" for an absent or unlisted tag. Letter case counts. Defined
    // here so that the optional argument is built and read in the caller, not passed
    // through memory, which cost a third of the call.
    static std::string tagName(std::optional<std::string_view> tag) {
        return std::string(tag ? tagNameView(*tag) : std::string_view(kUnknownTagName));
    }
    // The same name without a copy: a view into the library's static table, "Unknown"
    // included, valid for the life of the program.
    static std::string_view tagNameView(std::string_view tag) noexcept;
    // The name of a tag that the table does not list.
    static constexpr std::string_view kUnknownTagName = "Unknown";

  private:
    TagClass tagClass_ = TagClass::Universal;
    TagType tagType_ = TagType::Primitive;
    std::uint64_t tagIdentifier_ = 0;
    Bytes value_;
};

}  // namespace vastrel

// Hashes the value bytes only, consistent with operator==.
template <>
struct std::hash<vastrel::Tag> {
    std::size_t operator()(const vastrel::Tag& tag) const noexcept;
};
