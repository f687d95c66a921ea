// `vastrel explain`: the strict reading of EMV data, every element named and its value
// decoded, as a tree of plain words or as JSON.
#include <memory>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "HexInput.hpp"
#include "vastrel/Explain/Explainer.hpp"

namespace vastrel::tool {
namespace {

struct ExplainOptionsCli {
    std::vector<std::string> hex;
    bool json = false;
};

// Hex digits per line of a value; longer values continue on the next lines.
constexpr std::size_t kValueWrap = 64;

void appendElement(std::string& out, const ExplainedElement& element) {
    const std::string indent(2 * element.depth, ' ');
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

std::string treeText(const Explanation& explanation) {
    std::string out;
    for (const auto& element : explanation.elements)
        appendElement(out, element);
    if (explanation.status) {
        out += "SW " + explanation.status->word + "  " + explanation.status->meaning + '\n';
    }
    return out;
}

CommandOutput runExplain(const ExplainOptionsCli& options, const CommandContext& context) {
    // Colons are byte separators in many trace formats.
    const Bytes bytes = readHexBytes(options.hex, context.input, ":");
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
    return {parser, [options](CommandContext& context) { return runExplain(*options, context); }};
}

}  // namespace vastrel::tool
