// `vastrel tag` and `vastrel tags`: names from the EMV tag dictionary.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Commands.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "vastrel/Codec/Tag.hpp"

namespace vastrel::tool {
namespace {

using TagName = std::pair<std::string, std::string>;

struct TagOptions {
    std::vector<std::string> tags;
    bool json = false;
};

std::string hexByte(unsigned byte) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return {kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

// Every tag the dictionary names, in hex order. The dictionary is only open to lookups, so
// this asks it about every one-byte tag and every two-byte tag (first byte ending in 1F,
// the multi-byte marker) and keeps those it knows.
std::vector<TagName> dictionary() {
    std::vector<TagName> known;
    auto keepIfKnown = [&known](const std::string& tag) {
        std::string name = Tag::tagName(tag);
        if (name != "Unknown") known.emplace_back(tag, std::move(name));
    };
    for (unsigned first = 0; first <= 0xFF; ++first) {
        if ((first & 0x1F) != 0x1F) {
            keepIfKnown(hexByte(first));
            continue;
        }
        for (unsigned second = 0; second <= 0xFF; ++second) {
            keepIfKnown(hexByte(first) + hexByte(second));
        }
    }
    return known;
}

std::string render(const std::vector<TagName>& tags, bool json) {
    if (json) {
        Json array = Json::array();
        for (const auto& [tag, name] : tags)
            array.push_back(Json{{"tag", tag}, {"name", name}});
        return dumpJson(array);
    }
    TextTable table({TextTable::Align::Left, TextTable::Align::Left});
    for (const auto& [tag, name] : tags)
        table.addRow({tag, name});
    return table.render();
}

CommandOutput runTag(const TagOptions& options) {
    std::vector<TagName> named;
    for (const auto& text : options.tags) {
        const std::string tag = cleanHex(text, "tag '" + text + "'");
        named.emplace_back(tag, Tag::tagName(tag));
    }
    return {render(named, options.json), {}};
}

}  // namespace

Command addTagCommand(CLI::App& app) {
    auto options = std::make_shared<TagOptions>();
    auto* parser =
        app.add_subcommand("tag", "Name EMV tags (\"Unknown\" for tags outside the dictionary)");
    parser->add_option("TAG", options->tags, "Tags as hex, e.g. 9F34 5F20 (any letter case)")
        ->required();
    parser->add_flag("--json", options->json, "Print the names as JSON");
    return {parser, [options](LibraryLog&) { return runTag(*options); }};
}

Command addTagsCommand(CLI::App& app) {
    auto json = std::make_shared<bool>(false);
    auto* parser = app.add_subcommand("tags", "List the whole EMV tag dictionary");
    parser->add_flag("--json", *json, "Print the dictionary as JSON");
    return {parser, [json](LibraryLog&) { return CommandOutput{render(dictionary(), *json), {}}; }};
}

}  // namespace vastrel::tool
