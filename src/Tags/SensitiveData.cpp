#include "vastrel/Tags/SensitiveData.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "CardDataTable.hpp"
#include "Codec/CodecRules.hpp"

namespace vastrel {
namespace {

// The decoder's log masks the rows of the card-data table marked for it.
constexpr std::size_t kSensitiveTagCount = static_cast<std::size_t>(std::ranges::count_if(
    tags::kCardData, [](const CardDataTag& row) { return row.inDecoderLog; }));

// Tag texts are matched as packed numbers: the text's length, then its characters folded to
// upper case, one byte each, so that a tag is checked with a few integer compares. The
// longest listed tag has four digits; longer text, which none matches, packs to 0.
constexpr std::size_t kLongestSensitiveTag = 4;
static_assert(std::ranges::all_of(tags::kCardData, [](const CardDataTag& row) {
    return !row.inDecoderLog || row.tag <= 0xFFFF;
}));

constexpr std::uint64_t packedTag(std::string_view tag) {
    if (tag.size() > kLongestSensitiveTag) return 0;
    std::uint64_t packed = tag.size();
    for (const char c : tag)
        packed = packed << 8 | static_cast<unsigned char>(codec::asciiUpper(c));
    return packed;
}

// The packed form of a tag number's hex text: 0x9F6B as "9F6B".
constexpr std::uint64_t packedTag(std::uint32_t tag) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    char text[kLongestSensitiveTag] = {};
    std::size_t size = 0;
    for (int shift = tag > 0xFF ? 12 : 4; shift >= 0; shift -= 4)
        text[size++] = kDigits[(tag >> shift) & 0xF];
    return packedTag(std::string_view(text, size));
}

constexpr std::array<std::uint64_t, kSensitiveTagCount> kPackedSensitiveTags = [] {
    std::array<std::uint64_t, kSensitiveTagCount> packed{};
    std::size_t i = 0;
    for (const CardDataTag& row : tags::kCardData) {
        if (row.inDecoderLog) packed[i++] = packedTag(row.tag);
    }
    return packed;
}();

constexpr std::string_view kCardNumberTag = "5A";
constexpr std::size_t kShownLeadingDigits = 6;
constexpr std::size_t kShownTrailingDigits = 4;

// More than ten digits keep their first six and last four, with '*' in between.
void maskCardNumber(std::span<char> digits) noexcept {
    if (digits.size() <= kShownLeadingDigits + kShownTrailingDigits) return;
    std::fill(digits.begin() + kShownLeadingDigits, digits.end() - kShownTrailingDigits, '*');
}

void appendLengthOnly(std::string& out, std::string_view value) {
    const std::size_t bytes = value.size() / 2;
    out += '<';
    out += std::to_string(bytes);
    out += bytes == 1 ? " byte>" : " bytes>";
}

}  // namespace

bool SensitiveData::isSensitive(std::string_view tag) {
    const std::uint64_t packed = packedTag(tag);
    return packed != 0 && std::find(kPackedSensitiveTags.begin(), kPackedSensitiveTags.end(),
                                    packed) != kPackedSensitiveTags.end();
}

std::string SensitiveData::maskedValue(std::string_view tag, std::string_view value) {
    std::string masked;
    appendMaskedValue(masked, tag, value);
    return masked;
}

void SensitiveData::appendMaskedValue(std::string& out, std::string_view tag,
                                      std::string_view value) {
    if (codec::equalsIgnoringCase(tag, kCardNumberTag) &&
        value.size() > kShownLeadingDigits + kShownTrailingDigits) {
        const std::size_t start = out.size();
        out += value;
        maskCardNumber(std::span<char>(out).subspan(start));
    } else if (!value.empty() && (isSensitive(tag) || codec::isConstructedTag(tag))) {
        appendLengthOnly(out, value);
    } else {
        out += value;  // nothing to hide, or nothing at all
    }
}

}  // namespace vastrel
