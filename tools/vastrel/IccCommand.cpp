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

// One element from "TAG=VALUE"; an empty value makes a zero-length element. Errors name the
// pair by its place among the arguments (counted from 1), since its value may be card data.
TLVObject elementFromPair(const std::string& pair, std::size_t place) {
    const std::string name = "pair " + std::to_string(place);
    const auto equals = pair.find('=');
    if (equals == std::string::npos) throw InputError(name + ": expected TAG=VALUE");
    const std::string tag = cleanHex(pair.substr(0, equals), "tag of " + name);
    const std::string valueText = pair.substr(equals + 1);
    const std::string value = valueText.empty() ? "" : cleanHex(valueText, "value of " + name);
    TLVObject element(tag);
    element.setLength(std::to_string(value.size() / 2));
    element.setValue(value);
    return element;
}

CommandOutput runIcc(const IccOptions& options) {
    std::vector<TLVObject> elements;
    for (std::size_t i = 0; i < options.pairs.size(); ++i)
        elements.push_back(elementFromPair(options.pairs[i], i + 1));
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
