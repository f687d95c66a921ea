#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

using namespace vastrel;
using namespace vastrel::capi;

namespace {

bool isSeparator(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ':'; }

// Index of the first character after leading separators and one 0x or 0X.
std::size_t digitsStart(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isSeparator(text[i]))
        ++i;
    if (i + 1 < text.size() && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X')) i += 2;
    return i;
}

char upper(char c) { return c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c; }

// The digits of pasted text, upper-cased; a fault's offset counts in text.
std::string cleanHex(std::string_view text) {
    std::string digits;
    digits.reserve(text.size());
    for (std::size_t i = digitsStart(text); i < text.size(); ++i) {
        if (isSeparator(text[i])) continue;
        if (!HexDecoder::isHexDigit(text[i])) {
            throw Failure{VASTREL_ERROR_INVALID_HEX,
                          "text: not a hex digit at offset " + std::to_string(i)};
        }
        digits.push_back(upper(text[i]));
    }
    if (digits.size() % 2 != 0) {
        throw Failure{VASTREL_ERROR_INVALID_HEX,
                      "text: odd number of hex digits (" + std::to_string(digits.size()) + ")"};
    }
    return digits;
}

}  // namespace

extern "C" {

vastrel_status vastrel_hex_to_bytes(const char* hex, size_t hex_length, uint8_t* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        const std::string_view text = textArgument(hex, hex_length, "hex");
        // Checked before the size query answers, so that a query of bad hex fails too.
        if (out == nullptr || out_capacity < text.size() / 2) {
            const Bytes bytes = hexArgument(text, "hex");
            return writeBytes(bytes, out, out_capacity, out_length, Terminator::None);
        }
        // Room enough: decoded straight into the caller's buffer.
        if (const auto error = HexDecoder::decode(text, {out, text.size() / 2})) {
            throw hexFailure(*error, "hex");
        }
        if (out_length != nullptr) *out_length = text.size() / 2;
        return VASTREL_OK;
    });
}

vastrel_status vastrel_hex_clean(const char* text, size_t length, char* out, size_t out_capacity,
                                 size_t* out_length) {
    return guarded([&] {
        return writeText(cleanHex(textArgument(text, length, "text")), out, out_capacity,
                         out_length);
    });
}

vastrel_status vastrel_bytes_to_hex(const uint8_t* bytes, size_t length, char* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        return writeHex(bytesArgument(bytes, length, "bytes"), out, out_capacity, out_length);
    });
}

}  // extern "C"
