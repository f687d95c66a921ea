// `vastrel tag` and `vastrel tags`: names from the EMV tag dictionary.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Commands.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

namespace vastrel::tool {
namespace {

using TagName = std::pair<std::string, std::string>;

struct TagOptions {
    std::vector<std::string> tags;
    bool json = false;
};

// Every tag the dictionary names, in hex order (for uppercase hex text, the order of the
// strings is the order of the tag bytes).
std::vector<TagName> dictionary() {
    std::vector<TagName> known;
    for (const TagNameEntry& entry : EMVTagHelper::tagNameDictionary()) {
        known.emplace_back(std::string(entry.tag), std::string(entry.name));
    }
    std::sort(known.begin(), known.end());
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
    return {render(named, options.json), {}, {}};
}

}  // namespace

Command addTagCommand(CLI::App& app) {
    auto options = std::make_shared<TagOptions>();
    auto* parser =
        app.add_subcommand("tag", "Name EMV tags (\"Unknown\" for tags outside the dictionary)");
    parser->add_option("TAG", options->tags, "Tags as hex, e.g. 9F34 5F20 (any letter case)")
        ->required();
    parser->add_flag("--json", options->json, "Print the names as JSON");
    return {parser, [options](CommandContext&) { return runTag(*options); }};
}

Command addTagsCommand(CLI::App& app) {
    auto json = std::make_shared<bool>(false);
    auto* parser = app.add_subcommand("tags", "List the whole EMV tag dictionary");
    parser->add_flag("--json", *json, "Print the dictionary as JSON");
    return {parser, [json](CommandContext&) {
                return CommandOutput{render(dictionary(), *json), {}, {}};
            }};
}

}  // namespace vastrel::tool
