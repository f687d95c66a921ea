#include "CardDataMask.hpp"

#include <algorithm>
#include <string_view>

#include "vastrel/Tags/SensitiveData.hpp"

namespace vastrel::explain {
namespace {

constexpr std::size_t kExpiryAndServiceCode = 7;

constexpr std::uint32_t kPan = 0x5A;
constexpr std::uint32_t kTrack2 = 0x57;
constexpr std::uint32_t kKernelTrack2 = 0x9F6B;  // Card CVM Limit for Visa

// Hidden whole: track 1 and its kernel forms, discretionary data, names, PIN data, and the
// readers' proprietary track and PIN block tags.
constexpr std::uint32_t kHiddenWhole[] = {
    0x56, 0x99, 0x5F20, 0x9F0B, 0x9F1F, 0x9F20, 0xDF13, 0xDF14, 0xDF15, 0xDF16, 0xDF812A, 0xDF812B,
};

void star(std::span<char> digits) { std::fill(digits.begin(), digits.end(), '*'); }

std::size_t withoutPadding(std::span<const char> hex) {
    std::size_t end = hex.size();
    while (end > 0 && hex[end - 1] == 'F')
        --end;
    return end;
}

void maskTrack2(std::span<char> hex) {
    const std::size_t end = withoutPadding(hex);
    const auto separator = static_cast<std::size_t>(
        std::find(hex.begin(), hex.begin() + static_cast<std::ptrdiff_t>(end), 'D') - hex.begin());
    if (separator == end) {
        star(hex.first(end));  // not track 2 after all: hide it whole
        return;
    }
    SensitiveData::maskCardNumber(hex.first(separator));
    const std::size_t shownEnd = std::min(end, separator + 1 + kExpiryAndServiceCode);
    star(hex.subspan(shownEnd, end - shownEnd));
}

}  // namespace

void maskCardData(std::uint32_t tag, PaymentScheme scheme, std::span<char> valueHex) {
    if (tag == kPan) {
        SensitiveData::maskCardNumber(valueHex.first(withoutPadding(valueHex)));
    } else if (tag == kTrack2 || (tag == kKernelTrack2 && scheme != PaymentScheme::Visa)) {
        maskTrack2(valueHex);
    } else if (std::find(std::begin(kHiddenWhole), std::end(kHiddenWhole), tag) !=
               std::end(kHiddenWhole)) {
        star(valueHex);
    }
}

}  // namespace vastrel::explain
