// `vastrel split`: the flat splitter's top-level elements, one per line, named.
#include <memory>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "DisplayValue.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "vastrel/Codec/TLVSplit.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel::tool {
namespace {

struct SplitOptions {
    std::vector<std::string> hex;
    bool json = false;
};

struct SplitElement {
    std::string tag;
    std::string name;
    std::string tlv;  // as displayed: card data masked
};

SplitElement describeElement(const std::string& piece, const ValueDisplay& display) {
    const auto tag = TLVUtility::tagFromTLVString(piece);
    const std::string tagHex = tag ? TLVUtility::dataToHexString(tag->value()) : "";
    return {tagHex, Tag::tagName(tagHex), display.element(piece)};
}

// Why the splitter stopped before the end of the data, if it did.
std::vector<std::string> stopWarnings(const TLVSplit& split, std::size_t hexSize) {
    switch (split.stop) {
        case TLVSplit::Stop::Complete:
            return {};
        case TLVSplit::Stop::UnreadLength:
            return {
                "stopped at a long-form or indefinite length (81 and above), which the "
                "splitter does not read; `vastrel decode` reads them"};
        case TLVSplit::Stop::Incomplete:
            break;
    }
    std::size_t covered = 0;
    for (const auto& piece : split.pieces)
        covered += piece.size();
    return {"the last " + std::to_string((hexSize - covered) / 2) +
            " byte(s) do not make a whole element and were left out"};
}

CommandOutput runSplit(const SplitOptions& options, const CommandContext& context) {
    const std::string hex = readHexInput(options.hex, context.input);
    const ValueDisplay display(hex, context.showSensitive);
    const TLVSplit split = TLVSplit::of(hex);
    const std::vector<std::string>& pieces = split.pieces;
    CommandOutput output;
    output.warnings = stopWarnings(split, hex.size());

    std::vector<SplitElement> elements;
    for (const auto& piece : pieces)
        elements.push_back(describeElement(piece, display));
    if (options.json) {
        Json array = Json::array();
        for (const auto& e : elements) {
            array.push_back(Json{{"tag", e.tag}, {"name", e.name}, {"tlv", e.tlv}});
        }
        output.text = dumpJson(array);
        return output;
    }
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left});
    for (const auto& e : elements)
        table.addRow({e.tag, e.name, e.tlv});
    output.text = table.render();
    return output;
}

}  // namespace

Command addSplitCommand(CLI::App& app) {
    auto options = std::make_shared<SplitOptions>();
    auto* parser = app.add_subcommand(
        "split", "Split EMV data into its top-level elements, one per line, with tag names");
    parser->add_option("HEX", options->hex, kHexHelp);
    parser->add_flag("--json", options->json, "Print the elements as JSON");
    return {parser, [options](CommandContext& context) { return runSplit(*options, context); }};
}

}  // namespace vastrel::tool
