// `vastrel receipt`: a transaction (JSON) through the EMV or MSR receipt builder, printed
// as the customer copy or as JSON.
#include <memory>
#include <optional>
#include <string>

#include "BundledExample.hpp"
#include "Commands.hpp"
#include "HexInput.hpp"
#include "JsonRender.hpp"
#include "ReceiptInput.hpp"
#include "ReceiptLayout.hpp"
#include "ToolError.hpp"

namespace vastrel::tool {
namespace {

struct ReceiptOptions {
    std::optional<std::string> file;
    bool json = false;
};

struct Source {
    std::string name;  // for messages
    std::string text;
};

Source readSource(const std::optional<std::string>& file, const InputSource& input) {
    if (!file) return {"bundled example", std::string(bundledExampleJson())};
    return {*file == "-" ? "standard input" : *file, readFileText(*file, input)};
}

ReceiptHeader headerFor(const TransactionInput& input) {
    ReceiptHeader header{input.merchantName, input.merchantAddress, std::nullopt, std::nullopt};
    if (input.gatewayResponse) {
        header.approved = input.gatewayResponse->isApproved();
        header.responseText = input.gatewayResponse->gatewayResponseText();
    }
    return header;
}

CommandOutput runReceipt(const ReceiptOptions& options, CommandContext& context) {
    LibraryLog& log = context.log;
    const Source source = readSource(options.file, context.input);
    const TransactionInput input = parseTransaction(source.text, source.name);
    log.take();  // the decoder's summaries of the chip data are not news
    const TransactionReceipt receipt = buildReceipt(input);

    CommandOutput output;
    // The builders report missing data only through the log; pass that on.
    if (!log.verbose()) output.warnings = log.take();
    if (options.json) {
        output.text = dumpJson(Json{{"builder", input.isChipTransaction() ? "emv" : "msr"},
                                    {"receipt", receiptJson(receipt)}});
    } else {
        output.text = layOutReceipt(receipt, headerFor(input));
    }
    return output;
}

}  // namespace

Command addReceiptCommand(CLI::App& app) {
    auto options = std::make_shared<ReceiptOptions>();
    auto* parser = app.add_subcommand(
        "receipt",
        "Build the customer receipt of a transaction (JSON; see examples/) and print it for "
        "a 40-column printer");
    parser->add_option("FILE", options->file,
                       "Transaction as JSON, - for standard input; without it, the bundled "
                       "example chip sale");
    parser->add_flag("--json", options->json, "Print the receipt record as JSON");
    return {parser, [options](CommandContext& context) { return runReceipt(*options, context); }};
}

}  // namespace vastrel::tool
