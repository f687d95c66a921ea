#include "vastrel/Tags/SensitiveData.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "Codec/CodecRules.hpp"

namespace vastrel {
namespace {

constexpr std::array<std::string_view, 11> kSensitiveTags = {
    "5A",                                            // card number
    "56",   "57",   "9F6B", "DF13", "DF14", "DF15",  // track data
    "5F20", "9F0B",                                  // cardholder name
    "99",   "DF16",                                  // PIN block
};

constexpr std::string_view kCardNumberTag = "5A";
constexpr std::size_t kShownLeadingDigits = 6;
constexpr std::size_t kShownTrailingDigits = 4;

std::string lengthOnly(std::string_view value) {
    const std::size_t bytes = value.size() / 2;
    // Built in steps: GCC 12 reports a false -Wrestrict on the chained operator+ at -O3.
    std::string text = "<";
    text += std::to_string(bytes);
    text += bytes == 1 ? " byte>" : " bytes>";
    return text;
}

}  // namespace

bool SensitiveData::isSensitive(std::string_view tag) {
    return std::any_of(
        kSensitiveTags.begin(), kSensitiveTags.end(),
        [tag](std::string_view sensitive) { return codec::equalsIgnoringCase(tag, sensitive); });
}

std::string SensitiveData::maskedValue(std::string_view tag, std::string_view value) {
    if (value.empty()) return {};  // nothing to hide
    if (codec::equalsIgnoringCase(tag, kCardNumberTag) &&
        value.size() > kShownLeadingDigits + kShownTrailingDigits) {
        std::string masked(value);
        maskCardNumber(masked);
        return masked;
    }
    if (isSensitive(tag) || codec::isConstructedTag(tag)) return lengthOnly(value);
    return std::string(value);
}

void SensitiveData::maskCardNumber(std::span<char> digits) noexcept {
    if (digits.size() <= kShownLeadingDigits + kShownTrailingDigits) return;
    std::fill(digits.begin() + kShownLeadingDigits, digits.end() - kShownTrailingDigits, '*');
}

}  // namespace vastrel
