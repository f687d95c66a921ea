#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

enum class HexErrorKind : std::uint8_t {
    NotHexDigit,  // a character other than 0-9, A-F, a-f
    OddLength,    // every character is a digit, but they do not make whole bytes
};

// The words for an error kind, as messages print them: "not a hex digit".
[[nodiscard]] std::string_view describe(HexErrorKind kind) noexcept;

// Why hex text was refused, and where: the offset of the first character that is not a hex
// digit, or the text's length when the digits are odd in number. Never the text itself, which
// may be card data.
struct HexError {
    HexErrorKind kind = HexErrorKind::NotHexDigit;
    std::size_t offset = 0;

    friend bool operator==(const HexError&, const HexError&) = default;
};

// The strict hex reader that new code uses: two digits per byte, either case, nothing else (no
// blanks, signs or prefix). The contract's dataWithHexString keeps its own lenient reading;
// this one never guesses.
class HexDecoder {
  public:
    // Decodes hex into out, which should hold hex.size() / 2 bytes (a shorter out takes the
    // first bytes only). On an error out holds junk.
    [[nodiscard]] static std::optional<HexError> decode(std::string_view hex,
                                                        std::span<std::uint8_t> out) noexcept;

    // The same into a buffer sized here; out is left empty on an error.
    [[nodiscard]] static std::optional<HexError> decode(std::string_view hex, Bytes& out);

    // The first fault of hex, as decode would report it, without decoding.
    [[nodiscard]] static std::optional<HexError> check(std::string_view hex) noexcept;

    [[nodiscard]] static bool isHexDigit(char c) noexcept;

    // Hex pasted from a log or a document, made strict: blanks (space, tab, line breaks) and
    // the characters in separators are removed wherever they stand, as is one 0x or 0X
    // before the first digit, and the digits are upper-cased. The error's offset counts in
    // text; an odd number of digits reports text's length. digits holds what was read up to
    // an error.
    struct Cleaned {
        std::string digits;
        std::optional<HexError> error;
    };
    [[nodiscard]] static Cleaned clean(std::string_view text, std::string_view separators = "");

    // Where the digits of pasted text begin: after blanks and separators and one 0x or 0X.
    [[nodiscard]] static std::size_t digitsStart(std::string_view text,
                                                 std::string_view separators = "") noexcept;
};

}  // namespace vastrel
