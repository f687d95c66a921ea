// `vastrel decode`: the nested decoder's elements as an indented tree or as JSON.
#include <memory>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "DisplayValue.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVDepth.hpp"

namespace vastrel::tool {
namespace {

struct DecodeOptions {
    std::vector<std::string> hex;
    bool json = false;
};

// 32 bytes of value per line: a whole 9F10 fits, longer values wrap.
constexpr std::size_t kValueWrap = 64;

// The constructed bit (20) of the tag's first byte.
bool isConstructed(std::string_view tagHex) {
    std::uint8_t first = 0;
    return tagHex.size() >= 2 && !HexDecoder::decode(tagHex.substr(0, 2), {&first, 1}) &&
           (first & 0x20) != 0;
}

bool hasChildren(const TLVObject& element) {
    return element.innerTlvs() && !element.innerTlvs()->empty();
}

// One row per element, children below their parent and indented by two blanks per level.
// A parent's value is left out: its children show it, decoded. Recurses once per level, as
// deep as the decoder goes (kMaxTLVDepth).
void addTreeRows(TextTable& table, const std::vector<TLVObject>& elements, std::size_t depth,
                 const ValueDisplay& display) {
    for (const auto& element : elements) {
        const std::string tag = element.tag().value_or("");
        const std::string value =
            hasChildren(element) ? "" : display(tag, element.value().value_or(""));
        table.addRow({std::string(2 * depth, ' ') + tag, element.tagName().value_or(""),
                      element.length().value_or(""), value});
        if (hasChildren(element)) addTreeRows(table, *element.innerTlvs(), depth + 1, display);
    }
}

// Elements at every level, recursing once per level like the walks below.
std::size_t countElements(const std::vector<TLVObject>& elements) {
    std::size_t count = elements.size();
    for (const auto& element : elements) {
        if (hasChildren(element)) count += countElements(*element.innerTlvs());
    }
    return count;
}

// The decoder never expands the last element of a level, nor a template deeper than its
// depth limit; say which rather than leave a template looking undecoded for no reason. The
// recursion is bounded by that same limit.
void noteUnexpanded(const std::vector<TLVObject>& elements, std::vector<std::string>& notes) {
    for (const auto& element : elements) {
        const std::string tag = element.tag().value_or("");
        if (hasChildren(element)) {
            noteUnexpanded(*element.innerTlvs(), notes);
        } else if (isConstructed(tag) && !element.value().value_or("").empty()) {
            const bool last = &element == &elements.back();
            notes.push_back(tag + " is constructed but was not decoded into children: the " +
                            (last ? std::string("decoder leaves the last element of each level "
                                                "as it is")
                                  : "decoder expands templates " + std::to_string(kMaxTLVDepth) +
                                        " levels deep and no deeper") +
                            "; `vastrel explain` expands every template");
        }
    }
}

CommandOutput runDecode(const DecodeOptions& options, const CommandContext& context) {
    CommandOutput output;
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Right, Align::Left});
    {
        // The elements are let go before the table is rendered, so that a large input never
        // holds its tree, its table and its output text at once.
        const std::string hex = readHexInput(options.hex, context.input);
        const ValueDisplay display(hex, context.showSensitive);
        const std::vector<TLVObject> elements =
            TLVDecoder::decodeWithTLVString(hex).value_or(std::vector<TLVObject>{});
        if (elements.empty()) output.warnings.push_back("no TLV element could be decoded");
        noteUnexpanded(elements, output.warnings);
        if (options.json) {
            output.text = dumpJson(tlvTreeJson(elements, display));
            return output;
        }
        if (elements.empty()) return output;
        table.reserveRows(1 + countElements(elements));
        table.addRow({"TAG", "NAME", "LEN", "VALUE"});
        addTreeRows(table, elements, 0, display);
    }
    output.text = table.render(kValueWrap);
    return output;
}

}  // namespace

Command addDecodeCommand(CLI::App& app) {
    auto options = std::make_shared<DecodeOptions>();
    auto* parser = app.add_subcommand(
        "decode",
        "Decode EMV data with the library's lenient decoder into a tree of tags, names, "
        "lengths and values (it leaves the last element of each level unexpanded; `vastrel "
        "explain` reads strictly and explains every field)");
    parser->add_option("HEX", options->hex, kHexHelp);
    parser->add_flag("--json", options->json, "Print the elements as JSON");
    return {parser, [options](CommandContext& context) { return runDecode(*options, context); }};
}

}  // namespace vastrel::tool
