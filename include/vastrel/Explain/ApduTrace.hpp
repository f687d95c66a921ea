#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

enum class ApduDirection : std::uint8_t { Command, Response };

// One APDU of a trace: its line (counted from 1), its direction and its bytes.
struct TraceApdu {
    std::size_t line = 0;
    std::size_t hexStart = 0;  // where the hex begins in its line, after any marker
    ApduDirection direction = ApduDirection::Command;
    Bytes bytes;
};

// A command with the response that answers it; either may be missing, as real traces lose
// lines.
struct TraceExchange {
    std::optional<TraceApdu> command;
    std::optional<TraceApdu> response;
};

// A line that cannot be read as an APDU: where, and why (never its text, which may be card
// data).
struct TraceError {
    std::size_t line = 0;
    std::string reason;
};

struct TraceRead {
    std::vector<TraceExchange> exchanges;
    std::optional<TraceError> error;  // the first line that could not be read
};

// Reads a trace of a card session as engineers paste it: one APDU a line, as hex with or
// without blanks, either
// - marked by direction: ">>" or "<<", "->" or "<-", "C-APDU" or "R-APDU", "TX" or "RX",
//   "Send" or "Recv" (any letter case), with a timestamp or other text before the marker
//   ignored; or
// - unmarked, commands and responses alternating, a command first.
// Blank lines are skipped. A command followed by another command has lost its response; a
// response that follows a response has lost its command.
class ApduTrace {
  public:
    // Reads every line up to the first that cannot be read.
    [[nodiscard]] static TraceRead read(std::string_view text);

    // True when text looks like a trace rather than one response: a line with a direction
    // marker, or more than one line of hex that alternate between the shape of a command
    // (its Lc agreeing with its length) and that of a response (ending in a status word). A
    // response wrapped over several lines is not a trace.
    [[nodiscard]] static bool looksLikeTrace(std::string_view text);
};

}  // namespace vastrel
