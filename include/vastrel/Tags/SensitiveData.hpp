#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vastrel {

// Which EMV values are card data that logs and displays must not show in full, and what
// they show instead. Everything that prints element values (the decoder's log summary, the
// command-line tool) asks here, so the list lives in one place. Stateless.
class SensitiveData {
  public:
    // True for the tags whose value is card data: 5A (card number), 56, 57, 9F6B, DF13,
    // DF14, DF15 (track data), 5F20, 9F0B (cardholder name), 99 and DF16 (PIN block).
    // Letter case is ignored.
    static bool isSensitive(std::string_view tag);

    // The value (hex) of an element tagged tag as it may be shown. A card number longer
    // than ten digits keeps its first six and last four, with '*' in between; any other
    // sensitive value, and the value of a constructed element (which may nest any of them),
    // becomes its length, "<8 bytes>". Every other value, and an empty one, is returned
    // unchanged.
    static std::string maskedValue(std::string_view tag, std::string_view value);

    // Appends maskedValue(tag, value) to out, without building it apart first.
    static void appendMaskedValue(std::string& out, std::string_view tag, std::string_view value);

    // Masks the digits of a card number in place: more than ten digits keep their first six
    // and last four, with '*' in between; ten or fewer are left as they are.
    static void maskCardNumber(std::span<char> digits) noexcept;
};

}  // namespace vastrel
