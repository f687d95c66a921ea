#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/Explainer.hpp"
#include "vastrel/Oda/OdaVerifier.hpp"

namespace vastrel {

// A command of a session, explained.
struct ExplainedCommand {
    std::string hex;     // the APDU as hex; PIN data and card data masked unless shown
    std::string name;    // "SELECT", "GENERATE AC", "UNKNOWN COMMAND"
    std::string header;  // "CLA 00  INS A4  P1 04  P2 00  Lc 07  Le 00"
    std::vector<std::string> parameters;  // in words
    // The command data split by the card's data object list, each field named and decoded;
    // empty when the command has no such data or the DOL is not in the trace.
    std::vector<ExplainedElement> dol;
    std::optional<std::string> note;  // why the data is not split, or that it is malformed
};

// A response of a session: its data explained in the kernel of the selected application,
// and its status word read for the command it answers.
struct ExplainedResponse {
    std::string hex;  // the APDU as hex, card data masked unless shown
    Explanation explanation;
    std::optional<std::string> error;  // too short for a status word
};

struct ExplainedExchange {
    std::size_t line = 0;  // of the command, else of the response
    std::optional<ExplainedCommand> command;
    std::optional<ExplainedResponse> response;
    std::vector<std::string> notes;  // lost halves, 61xx and 6Cxx pairings
};

// What the whole session shows: one line per finding, and what the trace does not show.
struct SessionSummary {
    std::optional<std::string> application;  // AID, scheme, product, label
    std::optional<std::string> kernel;       // "contactless kernel 3 (Visa), from the AID"
    std::optional<std::string> cardNumber;   // masked unless shown
    std::vector<std::string> recordsRead;
    std::vector<std::string> verification;
    std::vector<std::string> cryptograms;
    std::vector<std::string> terminalVerificationResults;
    std::vector<std::string> notShown;
    // Offline data authentication replayed: each step after the exchange that carried its
    // object, the verdicts here.
    OdaReport oda;
};

struct SessionExplanation {
    std::vector<ExplainedExchange> exchanges;
    SessionSummary summary;
    std::optional<TraceError> error;  // the trace's first line that could not be read
};

// Explains a card session from a trace: every command and response, the card's data object
// lists applied to the terminal's command data, and the selected application's kernel used
// for every later response.
class SessionExplainer {
  public:
    [[nodiscard]] static SessionExplanation explain(const TraceRead& trace,
                                                    const ExplainOptions& options = {});

    // {"exchanges": [{"line", "command": null or {"hex", "name", "header", "parameters",
    // "dol": [elements], "note"}, "response": null or {"elements", "status", "error"},
    // "notes"}], "summary": {..., "oda": {"methods": [{"method", "result", "failed_check"}],
    // "steps": [{"object", "key": {"rid", "index"}, "exchange", "fields": {...}, "checks":
    // [{"name", "ok", "detail"}]}], "tvr"}}, "error": null or {"line", "reason"}}.
    [[nodiscard]] static std::string toJson(const SessionExplanation& session);
};

}  // namespace vastrel
