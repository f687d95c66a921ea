#include "CodecRules.hpp"

#include <optional>

#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel::codec {

std::size_t scannerSpaceLength(std::string_view text) {
    if (text.empty()) return 0;
    const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (isCSpace(at(0))) return 1;
    if (text.size() >= 2 && at(0) == 0xC2 && (at(1) == 0x85 || at(1) == 0xA0)) return 2;
    if (text.size() < 3) return 0;
    const unsigned c0 = at(0), c1 = at(1), c2 = at(2);
    const bool wide = (c0 == 0xE1 && c1 == 0x9A && c2 == 0x80) ||
                      (c0 == 0xE2 && c1 == 0x80 &&
                       ((c2 >= 0x80 && c2 <= 0x8A) || c2 == 0xA8 || c2 == 0xA9 || c2 == 0xAF)) ||
                      (c0 == 0xE2 && c1 == 0x81 && c2 == 0x9F) ||
                      (c0 == 0xE3 && c1 == 0x80 && c2 == 0x80);
    return wide ? 3 : 0;
}

bool startsWithScriptTemplate(std::string_view tlv, std::uint8_t scriptTag) {
    const std::optional<Tag> tag = TLVUtility::tagFromTLVString(tlv);
    if (!tag || tag->value().empty()) return true;
    return tag->value().size() == 1 && tag->value()[0] == scriptTag;
}

}  // namespace vastrel::codec
