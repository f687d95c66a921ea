// TLVUtility::tagValueFromTLV on hex text (see HexText). Only AssertionFailure (bad hex)
// and RangeError (a value past the end) escape, exactly when the splitter throws them;
// otherwise the answer is the value of the splitter's last piece, or "" when there is none,
// with the same log lines.
#include <string>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

// 0 when read returned, 1 for AssertionFailure, 2 for RangeError; anything else escapes.
template <class Read>
int outcomeOf(Read&& read) {
    try {
        read();
        return 0;
    } catch (const AssertionFailure&) {
        return 1;
    } catch (const RangeError&) {
        return 2;
    }
}

// The value of a piece of the splitter: after the tag and its one length byte.
std::string valueOfPiece(const std::string& piece) {
    const std::size_t tagDigits = 2 * TLVUtility::tagFromTLVString(piece)->value().size();
    return piece.substr(tagDigits + 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const HexText input = hexTextFromInput(data, size);
    std::string value;
    std::vector<std::string> valueLog;
    int valueOutcome = 0;
    {
        const LogLines log;
        valueOutcome = outcomeOf([&] { value = TLVUtility::tagValueFromTLV(input.text); });
        valueLog = log.lines();
    }
    std::vector<std::string> pieces;
    const LogLines log;
    const int splitOutcome = outcomeOf([&] { pieces = TLVParser::splitTLVData(input.text); });

    FUZZ_CHECK(valueOutcome == splitOutcome);
    FUZZ_CHECK(valueLog == log.lines());
    if (input.wellFormed) FUZZ_CHECK(valueOutcome != 1);
    if (valueOutcome != 0) return 0;
    FUZZ_CHECK(value == (pieces.empty() ? "" : valueOfPiece(pieces.back())));
    FUZZ_CHECK(value == upperCased(value));
    return 0;
}
