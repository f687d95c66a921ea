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

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
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

HexDecoder::Cleaned HexDecoder::clean(std::string_view text, std::string_view separators) {
    const auto skipped = [separators](char c) {
        return isBlank(c) || separators.find(c) != std::string_view::npos;
    };
    Cleaned cleaned;
    cleaned.digits.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size() && skipped(text[i]))
        ++i;
    if (i + 1 < text.size() && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X')) i += 2;
    for (; i < text.size(); ++i) {
        if (skipped(text[i])) continue;
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
