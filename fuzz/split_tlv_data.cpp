// TLVParser::splitTLVData on hex text (see HexText). Only AssertionFailure (bad hex) and
// RangeError (a value past the end) escape. The pieces re-join to a prefix of the data
// as upper-case hex; each piece is one short-form element, which createTLVFromTag of its
// tag and value re-encodes exactly; there are no more pieces than bytes; and
// tagValueFromTLV, which reads the same way, answers the last piece's value.
#include <string>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

enum class Outcome { Pieces, BadHex, PastTheEnd };

// Runs read, telling apart its two documented exceptions; any other exception escapes.
template <class Read>
Outcome outcomeOf(Read&& read) {
    try {
        read();
        return Outcome::Pieces;
    } catch (const AssertionFailure&) {
        return Outcome::BadHex;
    } catch (const RangeError&) {
        return Outcome::PastTheEnd;
    }
}

// The value of a piece, whose tag is the one tagFromTLVString reads and whose length is
// one short-form byte.
void checkPiece(const std::string& piece, std::string& value) {
    FUZZ_CHECK(piece.size() % 2 == 0 && piece.size() >= 4);
    const auto tag = TLVUtility::tagFromTLVString(piece);
    FUZZ_CHECK(tag.has_value() && !tag->value().empty());
    const std::string tagHex = TLVUtility::dataToHexString(tag->value());
    FUZZ_CHECK(piece.starts_with(tagHex));
    const Bytes length = TLVUtility::dataWithHexString(piece.substr(tagHex.size(), 2));
    FUZZ_CHECK(length[0] < 0x80);
    value = piece.substr(tagHex.size() + 2);
    FUZZ_CHECK(value.size() == 2U * length[0]);
    FUZZ_CHECK(TLVUtility::createTLVFromTag(tagHex, value) == piece);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const HexText input = hexTextFromInput(data, size);
    const LogLines log;
    std::vector<std::string> pieces;
    const Outcome split = outcomeOf([&] { pieces = TLVParser::splitTLVData(input.text); });
    const std::vector<std::string> splitLog = log.lines();
    std::string lastValue;
    const Outcome valueRead =
        outcomeOf([&] { lastValue = TLVUtility::tagValueFromTLV(input.text); });

    FUZZ_CHECK(valueRead == split);
    FUZZ_CHECK(log.lines().size() == 2 * splitLog.size());
    FUZZ_CHECK(splitLog.empty() || splitLog == std::vector<std::string>{"unimplemented"});
    if (input.wellFormed) FUZZ_CHECK(split != Outcome::BadHex);
    if (split != Outcome::Pieces) return 0;

    // Pairs such as " A" or "-1" pass the hex layer, so compare with its reading.
    const std::string canonical =
        TLVUtility::dataToHexString(TLVUtility::dataWithHexString(input.text));
    if (input.wellFormed) FUZZ_CHECK(canonical == upperCased(input.text));
    FUZZ_CHECK(pieces.size() <= canonical.size() / 2);
    std::string joined;
    std::string value;
    for (const std::string& piece : pieces) {
        checkPiece(piece, value);
        joined += piece;
    }
    FUZZ_CHECK(canonical.starts_with(joined));
    FUZZ_CHECK(lastValue == (pieces.empty() ? "" : value));
    // Nothing after the last piece is dropped silently except a cut-off tag or length.
    if (splitLog.empty() && joined.size() < canonical.size()) {
        const std::string rest = canonical.substr(joined.size());
        const auto tail = TLVUtility::tagFromTLVString(rest);
        FUZZ_CHECK(tail.has_value());
        FUZZ_CHECK(tail->value().empty() || 2 * tail->value().size() + 2 >= rest.size());
    }
    return 0;
}
