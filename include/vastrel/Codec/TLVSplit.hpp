#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

// The flat splitter's pieces together with the reason it stopped, for callers that must
// tell a complete split from one that left data behind without reading the log.
struct TLVSplit {
    enum class Stop {
        Complete,      // every byte belongs to a piece
        Incomplete,    // a tail that is not a whole element was left out, silently
        UnreadLength,  // stopped at a long-form or indefinite length ("unimplemented" logged)
    };

    std::vector<std::string> pieces;
    Stop stop = Stop::Complete;

    // Splits hex exactly as TLVParser::splitTLVData does: the same pieces, log lines and
    // exceptions (RangeError for a value past the end, AssertionFailure for bad hex).
    static TLVSplit of(std::string_view hex);
};

}  // namespace vastrel
