#pragma once

#include <string>
#include <string_view>

namespace vastrel {

// How the nested decoder's log summary masks card data: the rows of CardDataPolicy marked
// inDecoderLog, shown in that summary's own form. Every other output masks through
// CardDataPolicy. Stateless.
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
};

}  // namespace vastrel
