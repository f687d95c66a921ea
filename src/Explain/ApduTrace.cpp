#include "vastrel/Explain/ApduTrace.hpp"

#include <algorithm>
#include <array>

#include "Codec/CodecRules.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Explain/CommandApdu.hpp"
#include "vastrel/Explain/StatusWord.hpp"

namespace vastrel {
namespace {

struct Marker {
    std::string_view text;
    ApduDirection direction;
    bool word;  // must stand alone, not inside a longer word ("TX", not "TXN")
};

constexpr std::array<Marker, 10> kMarkers = {{
    {"C-APDU", ApduDirection::Command, true},
    {"R-APDU", ApduDirection::Response, true},
    {">>", ApduDirection::Command, false},
    {"<<", ApduDirection::Response, false},
    {"->", ApduDirection::Command, false},
    {"<-", ApduDirection::Response, false},
    {"SEND", ApduDirection::Command, true},
    {"RECV", ApduDirection::Response, true},
    {"TX", ApduDirection::Command, true},
    {"RX", ApduDirection::Response, true},
}};

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool matchesAt(std::string_view line, std::size_t at, std::string_view marker) {
    if (line.size() - at < marker.size()) return false;
    for (std::size_t i = 0; i < marker.size(); ++i) {
        if (codec::asciiUpper(line[at + i]) != marker[i]) return false;
    }
    return true;
}

struct FoundMarker {
    ApduDirection direction;
    std::size_t end;  // where the APDU's hex begins
};

// The first direction marker of line, standing as a word where it must. "RX" and "TX" are
// not found inside hex, since neither R nor T nor X is a hex digit.
std::optional<FoundMarker> findMarker(std::string_view line) {
    for (std::size_t at = 0; at < line.size(); ++at) {
        for (const Marker& marker : kMarkers) {
            if (!matchesAt(line, at, marker.text)) continue;
            const std::size_t end = at + marker.text.size();
            if (marker.word && ((at > 0 && isLetter(line[at - 1])) ||
                                (end < line.size() && isLetter(line[end])))) {
                continue;
            }
            // A colon or other punctuation right after the marker ("TX:") belongs to it.
            std::size_t hexStart = end;
            while (hexStart < line.size() && (line[hexStart] == ':' || line[hexStart] == ' ' ||
                                              line[hexStart] == '\t' || line[hexStart] == '=')) {
                ++hexStart;
            }
            return FoundMarker{marker.direction, hexStart};
        }
    }
    return std::nullopt;
}

bool isBlankLine(std::string_view line) {
    return std::all_of(line.begin(), line.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        if (end == text.size()) break;
        start = end + 1;
    }
    return lines;
}

// Adds apdu to the exchanges: a response answers the command before it, if that one has no
// response yet.
void add(std::vector<TraceExchange>& exchanges, TraceApdu apdu) {
    if (apdu.direction == ApduDirection::Response && !exchanges.empty() &&
        exchanges.back().command && !exchanges.back().response) {
        exchanges.back().response = std::move(apdu);
        return;
    }
    TraceExchange exchange;
    if (apdu.direction == ApduDirection::Command) {
        exchange.command = std::move(apdu);
    } else {
        exchange.response = std::move(apdu);
    }
    exchanges.push_back(std::move(exchange));
}

// Data, if any, then SW1 SW2 with SW1 90 or 61 to 6F.
bool isResponseShape(const Bytes& apdu) {
    return apdu.size() >= 2 && StatusWord::isStatusWord(apdu[apdu.size() - 2], apdu.back());
}

}  // namespace

TraceRead ApduTrace::read(std::string_view text) {
    const std::vector<std::string_view> lines = linesOf(text);
    const bool marked = std::any_of(lines.begin(), lines.end(), [](std::string_view line) {
        return findMarker(line).has_value();
    });
    TraceRead result;
    ApduDirection next = ApduDirection::Command;  // for unmarked traces
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        if (isBlankLine(line)) continue;
        TraceApdu apdu;
        apdu.line = i + 1;
        std::string_view hex = line;
        if (marked) {
            const auto marker = findMarker(line);
            if (!marker) {
                result.error = TraceError{i + 1, "no direction marker (>> or <<, TX or RX, ...)"};
                return result;
            }
            apdu.direction = marker->direction;
            apdu.hexStart = marker->end;
            hex = line.substr(marker->end);
        } else {
            apdu.direction = next;
            next =
                next == ApduDirection::Command ? ApduDirection::Response : ApduDirection::Command;
        }
        const HexDecoder::Cleaned cleaned = HexDecoder::clean(hex, ":");
        if (cleaned.error || cleaned.digits.empty()) {
            const std::string what =
                !cleaned.error ? "no hex"
                : cleaned.error->kind == HexErrorKind::OddLength
                    ? "an odd number of hex digits"
                    : "a character that is not a hex digit at column " +
                          std::to_string(static_cast<std::size_t>(hex.data() - line.data()) +
                                         cleaned.error->offset + 1);
            result.error = TraceError{i + 1, what};
            return result;
        }
        static_cast<void>(HexDecoder::decode(cleaned.digits, apdu.bytes));
        add(result.exchanges, std::move(apdu));
    }
    return result;
}

bool ApduTrace::looksLikeTrace(std::string_view text) {
    std::size_t hexLines = 0;
    bool shaped = true;  // every line has the shape of the APDU its place calls for
    for (const std::string_view line : linesOf(text)) {
        if (isBlankLine(line)) continue;
        if (findMarker(line)) return true;
        Bytes bytes;
        const HexDecoder::Cleaned cleaned = HexDecoder::clean(line, ":");
        if (cleaned.error || HexDecoder::decode(cleaned.digits, bytes)) return false;
        shaped = shaped && (hexLines % 2 == 0 ? CommandApdu::parse(bytes).has_value()
                                              : isResponseShape(bytes));
        ++hexLines;
    }
    return hexLines > 1 && shaped;
}

}  // namespace vastrel
