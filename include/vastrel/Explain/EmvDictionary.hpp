#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel {

// How a data element's value is written.
enum class DataFormat : std::uint8_t {
    Binary,               // b
    Numeric,              // n: BCD digits, right-aligned, leading zeros
    CompressedNumeric,    // cn: BCD digits, left-aligned, padded with F
    Alphanumeric,         // an
    AlphanumericSpecial,  // ans
};

// Who puts the element in the data.
enum class DataSource : std::uint8_t { Card, Terminal, Issuer };

[[nodiscard]] std::string_view formatCode(DataFormat format) noexcept;  // "b", "cn", "ans"
[[nodiscard]] std::string_view sourceName(DataSource source) noexcept;  // "card", "terminal"

// One data element of the dictionary.
struct TagInfo {
    static constexpr std::uint16_t kNoLimit = 0xFFFF;

    std::uint32_t tag = 0;  // the tag's bytes big-endian: 0x9F26
    std::string_view name;
    DataFormat format = DataFormat::Binary;
    DataSource source = DataSource::Card;
    std::string_view templates;   // where it appears: "77, 80"; empty when anywhere or alone
    std::uint16_t minLength = 0;  // bytes
    std::uint16_t maxLength = kNoLimit;
    // Any for the meaning all kernels share; otherwise the scheme whose kernel or
    // specification gives the tag this meaning.
    PaymentScheme scheme = PaymentScheme::Any;
};

// The EMV data elements of the contact books and of the contactless kernels, with the
// proprietary tags whose meaning the schemes publish. A constant table, searched in O(log n)
// without allocating. The contract's tag-name list (Tag::tagName) is a different, shorter
// list and stays as it is.
class EmvDictionary {
  public:
    // The entry for tag. Where the tag's meaning depends on the kernel, scheme (the one of
    // the AID in the same data) selects it; the shared meaning is the fallback. nullptr for a
    // tag that is not in the dictionary.
    [[nodiscard]] static const TagInfo* find(std::uint32_t tag,
                                             PaymentScheme scheme = PaymentScheme::Any) noexcept;

    // Every entry, ordered by tag and then by scheme.
    [[nodiscard]] static std::span<const TagInfo> entries() noexcept;
};

}  // namespace vastrel
