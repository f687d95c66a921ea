#include "vastrel/Codec/HexDecoder.hpp"

#include <algorithm>

#include "HexDecode.hpp"

namespace vastrel {
namespace {

std::size_t firstNonDigit(std::string_view hex) noexcept {
    const auto bad = std::find_if_not(hex.begin(), hex.end(), [](char c) {
        return codec::isHexDigit(static_cast<unsigned char>(c));
    });
    return static_cast<std::size_t>(bad - hex.begin());
}

// A blank, or one of the caller's separators: characters that pasted hex may hold.
bool isSkipped(char c, std::string_view separators) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f' ||
           separators.find(c) != std::string_view::npos;
}

}  // namespace

std::string_view describe(HexErrorKind kind) noexcept {
    switch (kind) {
        case HexErrorKind::NotHexDigit:
            return "not a hex digit";
        case HexErrorKind::OddLength:
            return "odd number of hex digits";
    }
    return "bad hex";
}

std::optional<HexError> HexDecoder::check(std::string_view hex) noexcept {
    const std::size_t bad = firstNonDigit(hex);
    if (bad < hex.size()) return HexError{HexErrorKind::NotHexDigit, bad};
    if (hex.size() % 2 != 0) return HexError{HexErrorKind::OddLength, hex.size()};
    return std::nullopt;
}

std::optional<HexError> HexDecoder::decode(std::string_view hex,
                                           std::span<std::uint8_t> out) noexcept {
    const auto* text = reinterpret_cast<const unsigned char*>(hex.data());
    const std::size_t pairs = std::min(hex.size() / 2, out.size());
    // The fast path decodes and validates at once; only a failure pays for finding the fault.
    if (hex.size() % 2 == 0 && pairs == hex.size() / 2 &&
        codec::decodeHexDigitPairs(text, pairs, out.data())) {
        return std::nullopt;
    }
    auto error = check(hex);
    if (!error) codec::decodeHexDigitPairs(text, pairs, out.data());  // out is too short
    return error;
}

std::optional<HexError> HexDecoder::decode(std::string_view hex, Bytes& out) {
    out.resize(hex.size() / 2);
    auto error = decode(hex, std::span<std::uint8_t>(out));
    if (error) out.clear();
    return error;
}

bool HexDecoder::isHexDigit(char c) noexcept {
    return codec::isHexDigit(static_cast<unsigned char>(c));
}

std::size_t HexDecoder::digitsStart(std::string_view text, std::string_view separators) noexcept {
    std::size_t start = 0;
    while (start < text.size() && isSkipped(text[start], separators))
        ++start;
    const std::string_view rest = text.substr(start);
    return start + (rest.starts_with("0x") || rest.starts_with("0X") ? 2 : 0);
}

HexDecoder::Cleaned HexDecoder::clean(std::string_view text, std::string_view separators) {
    Cleaned cleaned;
    cleaned.digits.reserve(text.size());
    for (std::size_t i = digitsStart(text, separators); i < text.size(); ++i) {
        if (isSkipped(text[i], separators)) continue;
        if (!isHexDigit(text[i])) {
            cleaned.error = HexError{HexErrorKind::NotHexDigit, i};
            return cleaned;
        }
        cleaned.digits.push_back(codec::asciiUpper(text[i]));
    }
    if (cleaned.digits.size() % 2 != 0)
        cleaned.error = HexError{HexErrorKind::OddLength, text.size()};
    return cleaned;
}

}  // namespace vastrel
