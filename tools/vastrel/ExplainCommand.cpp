// `vastrel explain`: the strict reading of EMV data, every element named and its value
// decoded, as a tree of plain words or as JSON.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "CaKeyInput.hpp"
#include "Commands.hpp"
#include "HexInput.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/Explainer.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"

namespace vastrel::tool {
namespace {

struct ExplainOptionsCli {
    std::vector<std::string> hex;
    bool json = false;
    bool trace = false;
    std::optional<std::string> caKeys;
};

// Hex digits per line of a value; longer values continue on the next lines.
constexpr std::size_t kValueWrap = 64;

void appendElement(std::string& out, const ExplainedElement& element, std::size_t margin = 0) {
    const std::string indent(margin + 2 * element.depth, ' ');
    out += indent + element.tag + "  " + std::string(element.name) + "  [" +
           std::to_string(element.length) + "]";
    const std::string continuation(indent.size() + 4, ' ');
    if (!element.constructed && !element.value.empty()) {
        for (std::size_t at = 0; at < element.value.size(); at += kValueWrap) {
            out += '\n';
            out += continuation;
            out.append(element.value, at, kValueWrap);
        }
    }
    out += '\n';
    for (const auto& finding : element.meaning)
        out += continuation + "- " + finding + '\n';
}

std::string treeText(const Explanation& explanation, std::size_t margin = 0) {
    std::string out;
    for (const auto& element : explanation.elements)
        appendElement(out, element, margin);
    if (explanation.status) {
        out += std::string(margin, ' ') + "SW " + explanation.status->word + "  " +
               explanation.status->meaning + '\n';
    }
    return out;
}

void appendLines(std::string& out, std::string_view margin, const std::vector<std::string>& lines) {
    for (const auto& line : lines)
        out += std::string(margin) + "- " + line + '\n';
}

void appendCommand(std::string& out, const ExplainedCommand& command) {
    out += "  >> " + command.hex + '\n';
    out += "  " + command.name + (command.header.empty() ? "" : "  " + command.header) + '\n';
    appendLines(out, "    ", command.parameters);
    if (command.note) out += "    (" + *command.note + ")\n";
    for (const auto& element : command.dol)
        appendElement(out, element, 4);
}

void appendResponse(std::string& out, const ExplainedResponse& response) {
    out += "  <<\n";
    if (response.error) {
        out += "    (" + *response.error + ")\n";
        return;
    }
    out += treeText(response.explanation, 4);
    if (response.explanation.error) {
        out += "    (the data stops reading: " +
               std::string(describe(response.explanation.error->kind)) + " at byte " +
               std::to_string(response.explanation.error->offset) + ")\n";
    }
}

void appendSummary(std::string& out, const SessionSummary& summary) {
    out += "Summary\n";
    const auto line = [&out](std::string_view label, const std::string& text) {
        out += "  " + std::string(label) + ": " + text + '\n';
    };
    const auto list = [&](std::string_view label, const std::vector<std::string>& items) {
        if (items.empty()) return;
        out += "  " + std::string(label) + ":\n";
        appendLines(out, "    ", items);
    };
    if (summary.application) line("Application", *summary.application);
    if (summary.kernel) line("Kernel", *summary.kernel);
    if (summary.cardNumber) line("Card number", *summary.cardNumber);
    list("Records read", summary.recordsRead);
    list("Cardholder verification", summary.verification);
    list("Cryptograms", summary.cryptograms);
    list("TVR sent with GENERATE AC", summary.terminalVerificationResults);
    list("Not in the trace", summary.notShown);
    std::vector<std::string> verdicts;
    for (const OdaMethod& method : summary.oda.methods) {
        verdicts.push_back(method.method + ": " + std::string(describe(method.verdict)) +
                           (method.detail.empty() ? "" : ": " + method.detail));
    }
    list("Offline data authentication", verdicts);
    list("The TVR on offline data authentication", summary.oda.terminalFindings);
}

std::string_view checkMark(const OdaCheck& check) {
    if (!check.ok) return "not checked";
    return *check.ok ? "ok" : "FAILED";
}

void appendOdaStep(std::string& out, const OdaStep& step) {
    out += "  Offline data authentication: " + step.object;
    if (!step.keyRid.empty()) out += " (CA key " + step.keyRid + " " + step.keyIndex + ")";
    out += '\n';
    for (const OdaField& field : step.fields)
        out += "    " + field.name + ": " + field.value + '\n';
    for (const OdaCheck& check : step.checks) {
        out += "    [" + std::string(checkMark(check)) + "] " + check.name + ": " + check.detail +
               '\n';
    }
}

std::string sessionText(const SessionExplanation& session) {
    std::string out;
    for (std::size_t i = 0; i < session.exchanges.size(); ++i) {
        const ExplainedExchange& exchange = session.exchanges[i];
        out +=
            "Exchange " + std::to_string(i + 1) + " (line " + std::to_string(exchange.line) + ")\n";
        if (exchange.command) appendCommand(out, *exchange.command);
        if (exchange.response) appendResponse(out, *exchange.response);
        appendLines(out, "  ", exchange.notes);
        for (const OdaStep& step : session.summary.oda.steps) {
            if (step.exchange == i) appendOdaStep(out, step);
        }
        out += '\n';
    }
    appendSummary(out, session.summary);
    return out;
}

// A trace of a session: several APDUs, one a line.
CommandOutput runTrace(const std::string& text, const ExplainOptionsCli& options,
                       const CommandContext& context) {
    ExplainOptions explainOptions;
    explainOptions.showSensitive = context.showSensitive;
    const CaKeyTable keys = caKeyTable(options.caKeys, context.input);
    explainOptions.caKeys = &keys;
    const SessionExplanation session =
        SessionExplainer::explain(ApduTrace::read(text), explainOptions);
    CommandOutput output;
    output.text = options.json ? SessionExplainer::toJson(session) : sessionText(session);
    if (session.error) {
        output.error =
            "trace line " + std::to_string(session.error->line) + ": " + session.error->reason;
    }
    return output;
}

CommandOutput runExplain(const ExplainOptionsCli& options, const CommandContext& context) {
    // '*' is a digit that `vastrel mask` hid; it reads as 0, and the output masks it again.
    std::string text = readText(options.hex, context.input);
    std::replace(text.begin(), text.end(), '*', '0');
    if (options.trace || ApduTrace::looksLikeTrace(text)) return runTrace(text, options, context);
    // Colons are byte separators in many trace formats.
    const Bytes bytes = hexBytes(text, ":");
    ExplainOptions explainOptions;
    explainOptions.showSensitive = context.showSensitive;
    const Explanation explanation = Explainer::explain(bytes, explainOptions);

    CommandOutput output;
    output.text = options.json ? Explainer::toJson(explanation) : treeText(explanation);
    if (explanation.error) {
        output.error = std::string(describe(explanation.error->kind)) + " at byte " +
                       std::to_string(explanation.error->offset);
    }
    return output;
}

}  // namespace

Command addExplainCommand(CLI::App& app) {
    auto options = std::make_shared<ExplainOptionsCli>();
    auto* parser = app.add_subcommand(
        "explain",
        "Read EMV data strictly and explain every element: names from the full EMV "
        "dictionary, decoded bit maps, CVM rules, dates, amounts and codes, the closing "
        "status word of a card response, card data masked");
    parser->add_option("HEX", options->hex,
                       std::string(kHexHelp) + "; colons between bytes are removed too");
    parser->add_flag("--json", options->json, "Print one JSON object");
    parser->add_flag("--trace", options->trace,
                     "Read the input as a trace of a card session, one APDU a line (found "
                     "without this when several lines each hold a command or a response)");
    parser->add_option("--ca-keys", options->caKeys,
                       "A CA key file (the format of `vastrel capk --file`) whose keys are "
                       "added to the built-in ones, replacing those of the same RID and index");
    return {parser, [options](CommandContext& context) { return runExplain(*options, context); }};
}

}  // namespace vastrel::tool
