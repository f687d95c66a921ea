#include "vastrel/Tags/CardDataPolicy.hpp"

#include <algorithm>
#include <array>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

#include "CardDataTable.hpp"

namespace vastrel {
namespace {

constexpr std::size_t kShownLeadingDigits = 6;
constexpr std::size_t kShownTrailingDigits = 4;
constexpr std::size_t kExpiryAndServiceCode = 7;
constexpr std::uint8_t kConstructedBit = 0x20;

void star(std::span<char> digits) noexcept { std::fill(digits.begin(), digits.end(), '*'); }

// A BCD number padded to whole bytes with F digits: the padding tells nothing and stays.
std::size_t withoutPadding(std::span<const char> hex) noexcept {
    std::size_t end = hex.size();
    while (end > 0 && (hex[end - 1] == 'F' || hex[end - 1] == 'f'))
        --end;
    return end;
}

void maskCardNumber(std::span<char> digits) noexcept {
    if (digits.size() <= kShownLeadingDigits + kShownTrailingDigits) return;
    star(digits.subspan(kShownLeadingDigits,
                        digits.size() - kShownLeadingDigits - kShownTrailingDigits));
}

void maskTrack2(std::span<char> hex) noexcept {
    const std::size_t end = withoutPadding(hex);
    const auto digits = hex.first(end);
    const auto separator = static_cast<std::size_t>(
        std::find_if(digits.begin(), digits.end(), [](char c) { return c == 'D' || c == 'd'; }) -
        digits.begin());
    if (separator == end) {
        star(digits);  // not track 2 after all: hide it whole
        return;
    }
    maskCardNumber(digits.first(separator));
    const std::size_t shownEnd = std::min(end, separator + 1 + kExpiryAndServiceCode);
    star(digits.subspan(shownEnd));
}

}  // namespace

std::span<const CardDataTag> CardDataPolicy::tags() noexcept { return tags::kCardData; }

const CardDataTag* CardDataPolicy::find(std::uint32_t tag, PaymentScheme scheme) noexcept {
    const auto* row = std::find_if(tags::kCardData.begin(), tags::kCardData.end(),
                                   [tag](const CardDataTag& r) { return r.tag == tag; });
    if (row == tags::kCardData.end()) return nullptr;
    if (scheme != PaymentScheme::Any && row->notUnder == scheme) return nullptr;
    return row;
}

bool CardDataPolicy::maskValue(std::uint32_t tag, PaymentScheme scheme,
                               std::span<char> valueHex) noexcept {
    const CardDataTag* row = find(tag, scheme);
    if (row == nullptr) return false;
    switch (row->masking) {
        case CardDataMasking::CardNumber:
            maskCardNumber(valueHex.first(withoutPadding(valueHex)));
            break;
        case CardDataMasking::Track2:
            maskTrack2(valueHex);
            break;
        case CardDataMasking::Whole:
            star(valueHex);
            break;
    }
    return true;
}

std::string CardDataPolicy::maskedTlvHex(std::string_view hex, PaymentScheme scheme) {
    std::string masked(hex);
    Bytes data;
    if (HexDecoder::decode(hex, data)) {
        star(masked);
        return masked;
    }
    maskTlvHex(data, BerReader::read(data), scheme, masked);
    return masked;
}

void CardDataPolicy::maskTlvHex(std::span<const std::uint8_t> data, const BerReadResult& read,
                                PaymentScheme scheme, std::span<char> hex) noexcept {
    for (const BerNode& node : read.nodes) {
        if (node.constructed) continue;
        const auto offset = static_cast<std::size_t>(node.value.data() - data.data());
        maskValue(node.tagNumber(), scheme, hex.subspan(2 * offset, 2 * node.value.size()));
    }
    if (read.error) star(hex.subspan(2 * read.error->offset));
}

std::string CardDataPolicy::maskedValueHex(std::string_view tagHex, PaymentScheme scheme,
                                           std::string_view valueHex) {
    Bytes tag;
    if (tagHex.empty() || HexDecoder::decode(tagHex, tag)) return std::string(valueHex.size(), '*');
    std::string masked(valueHex);
    if (maskValue(BerNode::tagNumberOf(tag), scheme, masked)) return masked;
    if ((tag.front() & kConstructedBit) != 0) return maskedTlvHex(valueHex, scheme);
    return masked;
}

}  // namespace vastrel
