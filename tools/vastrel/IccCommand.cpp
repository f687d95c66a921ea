// `vastrel icc`: the ICC data string built from tag and value pairs, in the order given.
#include <memory>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel::tool {
namespace {

struct IccOptions {
    std::vector<std::string> pairs;
    bool json = false;
};

// One element from "TAG=VALUE"; an empty value makes a zero-length element.
TLVObject elementFromPair(const std::string& pair) {
    const auto equals = pair.find('=');
    if (equals == std::string::npos) {
        throw InputError("expected TAG=VALUE, got '" + pair + "'");
    }
    const std::string tag = cleanHex(pair.substr(0, equals), "tag of '" + pair + "'");
    const std::string valueText = pair.substr(equals + 1);
    const std::string value =
        valueText.empty() ? "" : cleanHex(valueText, "value of '" + pair + "'");
    TLVObject element(tag);
    element.setLength(std::to_string(value.size() / 2));
    element.setValue(value);
    return element;
}

CommandOutput runIcc(const IccOptions& options) {
    std::vector<TLVObject> elements;
    for (const auto& pair : options.pairs)
        elements.push_back(elementFromPair(pair));
    // The array form keeps the order given; the dictionary form would sort by tag.
    const std::string icc = TLVUtility::fetchIccDataStringFromEmvTagsArray(elements);
    if (options.json) return {dumpJson(Json{{"icc", icc}}), {}, {}};
    return {icc + '\n', {}, {}};
}

}  // namespace

Command addIccCommand(CLI::App& app) {
    auto options = std::make_shared<IccOptions>();
    auto* parser = app.add_subcommand(
        "icc", "Build the ICC data string from TAG=VALUE pairs (hex), kept in the order given");
    parser
        ->add_option("TAG=VALUE", options->pairs,
                     "Elements such as 9F02=000000001000 5F2A=0840; VALUE may be empty")
        ->required();
    parser->add_flag("--json", options->json, "Print the ICC data as JSON");
    return {parser, [options](CommandContext&) { return runIcc(*options); }};
}

}  // namespace vastrel::tool
