// `vastrel enum`: the display strings of one of the fourteen enumerations.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Commands.hpp"
#include "EnumNames.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/DigitStringValues.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel::tool {
namespace {

struct EnumOptions {
    std::string type;
    std::optional<std::string> value;
    bool json = false;
};

// The key under which the tables keep the string shared by every value from 17 up.
constexpr std::string_view kSharedKey = "17";

// A value as the user writes it: decimal, negative (read as the unsigned number the
// library sees), or hex with 0x.
std::uint64_t parseValue(const std::string& text) {
    std::string_view digits = text;
    int base = 10;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        digits.remove_prefix(2);
        base = 16;
    }
    std::uint64_t value = 0;
    std::int64_t negative = 0;
    const char* first = digits.data();
    const char* last = digits.data() + digits.size();
    const bool isNegative = base == 10 && digits.starts_with('-');
    const auto [end, error] = isNegative ? std::from_chars(first, last, negative)
                                         : std::from_chars(first, last, value, base);
    if (digits.empty() || error != std::errc() || end != last) {
        throw InputError("VALUE '" + text + "' is not a number (use 94, -1 or 0x5E)");
    }
    return isNegative ? static_cast<std::uint64_t>(negative) : value;
}

// The table's rows in numeric key order ("2" before "10").
std::vector<std::pair<std::string, std::string>> sortedRows(EnumType type) {
    const auto* table = EnumStringValues::dictionaryForEnumType(type);
    std::vector<std::pair<std::string, std::string>> rows(table->begin(), table->end());
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) {
        return std::stoull(a.first) < std::stoull(b.first);
    });
    return rows;
}

CommandOutput listTable(EnumType type, bool json) {
    const std::string name(enumTypeName(type));
    const auto rows = sortedRows(type);
    if (json) {
        Json strings = Json::object();
        for (const auto& [key, text] : rows)
            strings[key] = text;
        return {dumpJson(Json{{"enumType", static_cast<std::uint64_t>(type)},
                              {"enumeration", name},
                              {"strings", std::move(strings)}}),
                {},
                {}};
    }
    TextTable table({TextTable::Align::Right, TextTable::Align::Left});
    for (const auto& [key, text] : rows) {
        table.addRow({key == kSharedKey ? std::string(kSharedKey) + "+" : key, text});
    }
    std::string text = name + " (EnumType " + std::to_string(static_cast<std::uint64_t>(type)) +
                       ")\n" + table.render();
    if (EnumStringValues::dictionaryForEnumType(type)->contains(std::string(kSharedKey))) {
        text += "(17+: every value from 17 up shares this string)\n";
    }
    return {text, {}, {}};
}

CommandOutput lookUpValue(EnumType type, const std::string& valueText, bool json) {
    const std::string name(enumTypeName(type));
    const std::uint64_t value = parseValue(valueText);
    const auto text = EnumStringValues::valueForAnEnumType(type, value);
    if (!text) {
        throw InputError(name + " has no display string for " + valueText);
    }
    if (json) {
        // CVMResult is the one signed enumeration.
        const Json number =
            type == EnumType::CVMResult ? Json(static_cast<std::int64_t>(value)) : Json(value);
        return {dumpJson(Json{{"enumType", static_cast<std::uint64_t>(type)},
                              {"enumeration", name},
                              {"value", number},
                              {"string", *text}}),
                {},
                {}};
    }
    std::string line = name + " " + valueText + ": " + *text + "\n";
    if (DigitStringValues::stringForDigit(value) == kSharedKey) {
        line += "(every value from 17 up shares this string)\n";
    }
    return {line, {}, {}};
}

CommandOutput runEnum(const EnumOptions& options) {
    const EnumType type = parseEnumType(options.type);
    return options.value ? lookUpValue(type, *options.value, options.json)
                         : listTable(type, options.json);
}

}  // namespace

Command addEnumCommand(CLI::App& app) {
    auto options = std::make_shared<EnumOptions>();
    auto* parser = app.add_subcommand(
        "enum", "Show the display strings of an enumeration, or of one of its values");
    parser
        ->add_option("TYPE", options->type,
                     "Enumeration by number (1-14) or name, e.g. 8 or CardType")
        ->required();
    parser->add_option("VALUE", options->value,
                       "Value to look up: decimal (negative too) or hex with 0x");
    parser->add_flag("--json", options->json, "Print the strings as JSON");
    return {parser, [options](CommandContext&) { return runEnum(*options); }};
}

}  // namespace vastrel::tool
