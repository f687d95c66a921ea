#include "vastrel/Tags/SensitiveData.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

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

constexpr char asciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool equalsIgnoringCase(std::string_view text, std::string_view upper) {
    return text.size() == upper.size() &&
           std::equal(text.begin(), text.end(), upper.begin(),
                      [](char a, char b) { return asciiUpper(a) == b; });
}

int hexDigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    c = asciiUpper(c);
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// True when the tag's first byte has the constructed bit (0x20) set.
bool isConstructed(std::string_view tag) {
    if (tag.size() < 2) return false;
    const int high = hexDigitValue(tag[0]);
    const int low = hexDigitValue(tag[1]);
    return high >= 0 && low >= 0 && ((high << 4 | low) & 0x20) != 0;
}

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
        [tag](std::string_view sensitive) { return equalsIgnoringCase(tag, sensitive); });
}

std::string SensitiveData::maskedValue(std::string_view tag, std::string_view value) {
    if (value.empty()) return {};  // nothing to hide
    if (equalsIgnoringCase(tag, kCardNumberTag) &&
        value.size() > kShownLeadingDigits + kShownTrailingDigits) {
        std::string masked(value);
        std::fill(masked.begin() + kShownLeadingDigits, masked.end() - kShownTrailingDigits, '*');
        return masked;
    }
    if (isSensitive(tag) || isConstructed(tag)) return lengthOnly(value);
    return std::string(value);
}

}  // namespace vastrel
