// `vastrel cvm`: the CVM Results (9F34) as both decoders read them.
#include <cstdint>
#include <memory>
#include <string>

#include "Commands.hpp"
#include "EnumNames.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "TextTable.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"
#include "vastrel/Tags/CardholderAuthenticationMethods.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

namespace vastrel::tool {
namespace {

struct CvmOptions {
    std::string value;
    bool json = false;
};

std::string methodMeaning(CardholderAuthenticationMethod method) {
    return std::string(CardholderAuthenticationMethods::meaning(method));
}

CommandOutput runCvm(const CvmOptions& options) {
    const std::string value = cleanHex(options.value, "CVM Results");
    const CVMResult cvmResult = ReceiptHelper::cvmResultFromTlv(value);
    const auto result = static_cast<std::int64_t>(cvmResult);
    const CardholderAuthenticationMethod method =
        EMVTagHelper::cardholderAuthenticationMethodfromTlv(value);
    const auto methodValue = static_cast<std::uint64_t>(method);
    const Json resultJson = cvmResultJson(cvmResult);

    if (options.json) {
        return {dumpJson(Json{{"value", value},
                              {"cvmResult", resultJson},
                              {"authenticationMethod",
                               Json{{"value", methodValue}, {"meaning", methodMeaning(method)}}}}),
                {},
                {}};
    }
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Right, Align::Left});
    table.addRow({"CVM Results", "", value});
    table.addRow({"receipt CVMResult", std::to_string(result), cvmResultText(cvmResult)});
    table.addRow({"authentication method", std::to_string(methodValue), methodMeaning(method)});
    return {table.render(), {}, {}};
}

}  // namespace

Command addCvmCommand(CLI::App& app) {
    auto options = std::make_shared<CvmOptions>();
    auto* parser = app.add_subcommand(
        "cvm", "Read CVM Results (tag 9F34) as the receipt and the point-of-sale decoders do");
    parser->add_option("VALUE", options->value, "The 9F34 value as hex, e.g. 1E0300")->required();
    parser->add_flag("--json", options->json, "Print both readings as JSON");
    return {parser, [options](CommandContext&) { return runCvm(*options); }};
}

}  // namespace vastrel::tool
