// TLVUtility::tagFromTLVString (and EMVTagHelper::berTagFromInt, which is the same) on hex
// text (see HexText). Only AssertionFailure (bad hex) escapes. The tag is absent exactly
// for empty text; its bytes are the front of the data: one byte when the low five bits of
// the first are below 31, otherwise through the first later byte with bit 0x80 clear, and
// none when the data ends first. Its class comes from the first byte, and both issuer
// script template tests (TLVParser's and TLVUtility's) agree with the bytes read.
#include <optional>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

// The length of the tag at the front of bytes, 0 when bytes end inside it.
std::size_t expectedTagLength(const Bytes& bytes) {
    if ((bytes[0] & 0x1F) != 0x1F) return 1;
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        if ((bytes[i] & 0x80) == 0) return i + 1;
    }
    return 0;
}

bool sameTag(const std::optional<Tag>& a, const std::optional<Tag>& b) {
    if (!a || !b) return a.has_value() == b.has_value();
    return *a == *b && a->tagClass() == b->tagClass() && a->tagType() == b->tagType();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const HexText input = hexTextFromInput(data, size);
    const LogLines log;
    std::optional<Tag> tag;
    Bytes bytes;
    try {
        tag = TLVUtility::tagFromTLVString(input.text);
        bytes = TLVUtility::dataWithHexString(input.text);
    } catch (const AssertionFailure&) {
        FUZZ_CHECK(!input.wellFormed);
        return 0;
    }
    FUZZ_CHECK(log.lines().empty());
    FUZZ_CHECK(sameTag(EMVTagHelper::berTagFromInt(input.text), tag));
    const bool template1 = TLVParser::isIssuerScriptTemplate1(input.text);
    const bool template2 = TLVParser::isIssuerScriptTemplate2(input.text);
    FUZZ_CHECK(template1 == TLVUtility::isIssuerScriptTemplate1(input.text));
    FUZZ_CHECK(template2 == TLVUtility::isIssuerScriptTemplate2(input.text));
    if (bytes.empty()) {
        FUZZ_CHECK(!tag.has_value());
        FUZZ_CHECK(template1 && template2);
        return 0;
    }

    FUZZ_CHECK(tag.has_value());
    const std::size_t length = expectedTagLength(bytes);
    FUZZ_CHECK(tag->value() == Bytes(bytes.begin(), bytes.begin() + static_cast<long>(length)));
    FUZZ_CHECK(tag->tagClass() == Tag::tagClassFromChar(bytes[0]));
    FUZZ_CHECK(tag->tagIdentifier() == 0);
    const Bytes& read = tag->value();
    FUZZ_CHECK(template1 == (read.empty() || read == Bytes{0x71}));
    FUZZ_CHECK(template2 == (read.empty() || read == Bytes{0x72}));
    FUZZ_CHECK(!Tag::tagName(TLVUtility::dataToHexString(read)).empty());
    return 0;
}
