#include "vastrel/Tags/SensitiveData.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Codec/CodecRules.hpp"

namespace vastrel {
namespace {

constexpr std::array<std::string_view, 11> kSensitiveTags = {
    "5A",                                            // card number
    "56",   "57",   "9F6B", "DF13", "DF14", "DF15",  // track data
    "5F20", "9F0B",                                  // cardholder name
    "99",   "DF16",                                  // PIN block
};

constexpr std::size_t kLongestSensitiveTag =
    std::ranges::max(kSensitiveTags, {}, [](std::string_view tag) { return tag.size(); }).size();
static_assert(kLongestSensitiveTag < sizeof(std::uint64_t), "a packed tag keeps its length");

// A tag text no longer than the longest listed one, folded to upper case and packed, with its
// length, into one number, so that a tag is matched against the list with a few integer
// compares; 0 for longer text, which no listed tag matches.
constexpr std::uint64_t packedTag(std::string_view tag) {
    if (tag.size() > kLongestSensitiveTag) return 0;
    std::uint64_t packed = tag.size();
    for (const char c : tag)
        packed = packed << 8 | static_cast<unsigned char>(codec::asciiUpper(c));
    return packed;
}

constexpr std::array<std::uint64_t, kSensitiveTags.size()> kPackedSensitiveTags = [] {
    std::array<std::uint64_t, kSensitiveTags.size()> packed{};
    for (std::size_t i = 0; i < kSensitiveTags.size(); ++i)
        packed[i] = packedTag(kSensitiveTags[i]);
    return packed;
}();

constexpr std::string_view kCardNumberTag = "5A";
constexpr std::size_t kShownLeadingDigits = 6;
constexpr std::size_t kShownTrailingDigits = 4;

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

void SensitiveData::maskCardNumber(std::span<char> digits) noexcept {
    if (digits.size() <= kShownLeadingDigits + kShownTrailingDigits) return;
    std::fill(digits.begin() + kShownLeadingDigits, digits.end() - kShownTrailingDigits, '*');
}

}  // namespace vastrel
