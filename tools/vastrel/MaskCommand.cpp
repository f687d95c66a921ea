// `vastrel mask`: the input written back as it came, a trace or a single response, with the
// card data replaced by '*' digit for digit, so that the text keeps its shape and lengths and
// can go into a ticket; `vastrel explain` reads '*' as a masked digit.
#include <memory>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "HexInput.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"
#include "vastrel/Explain/StatusWord.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel::tool {
namespace {

struct MaskOptions {
    std::vector<std::string> hex;
    bool trace = false;
};

// Writes masked, digit for digit, over the hex digits of text from start on: blanks, colons
// and one leading 0x stay where they are.
void overwriteDigits(std::string& text, std::size_t start, std::string_view masked) {
    std::size_t next = 0;
    for (std::size_t i = start + HexDecoder::digitsStart(std::string_view(text).substr(start), ":");
         i < text.size() && next < masked.size(); ++i) {
        if (HexDecoder::isHexDigit(text[i])) text[i] = masked[next++];
    }
}

// The starts of text's lines.
std::vector<std::size_t> lineStarts(const std::string& text) {
    std::vector<std::size_t> starts = {0};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') starts.push_back(i + 1);
    }
    return starts;
}

std::string maskTrace(std::string text) {
    const TraceRead trace = ApduTrace::read(text);
    if (trace.error) {
        throw InputError("trace line " + std::to_string(trace.error->line) + ": " +
                         trace.error->reason);
    }
    const SessionExplanation session = SessionExplainer::explain(trace);
    const std::vector<std::size_t> starts = lineStarts(text);
    for (std::size_t i = 0; i < trace.exchanges.size(); ++i) {
        const TraceExchange& exchange = trace.exchanges[i];
        const ExplainedExchange& explained = session.exchanges[i];
        if (exchange.command && explained.command) {
            overwriteDigits(text, starts[exchange.command->line - 1] + exchange.command->hexStart,
                            explained.command->hex);
        }
        if (exchange.response && explained.response) {
            overwriteDigits(text, starts[exchange.response->line - 1] + exchange.response->hexStart,
                            explained.response->hex);
        }
    }
    return text;
}

// A single response or plain data: the status word, when the data before it reads, kept.
std::string maskResponse(std::string text) {
    const std::string digits = cleanHex(text, "hex data", ":");
    Bytes bytes;
    static_cast<void>(HexDecoder::decode(digits, bytes));
    const PaymentScheme scheme = ApplicationIdentifier::schemeOfHex(digits);
    std::size_t dataDigits = digits.size();
    const std::size_t size = bytes.size();
    if (size >= 2 && StatusWord::isStatusWord(bytes[size - 2], bytes[size - 1]) &&
        !BerReader::read(std::span<const std::uint8_t>(bytes).first(size - 2)).error) {
        dataDigits -= 4;
    }
    std::string masked = CardDataPolicy::maskedTlvHex(digits.substr(0, dataDigits), scheme) +
                         digits.substr(dataDigits);
    overwriteDigits(text, 0, masked);
    return text;
}

CommandOutput runMask(const MaskOptions& options, const CommandContext& context) {
    std::string text = readText(options.hex, context.input);
    if (!options.hex.empty()) text.pop_back();  // the blank that joined the arguments
    const bool trace = options.trace || ApduTrace::looksLikeTrace(text);
    return {trace ? maskTrace(std::move(text)) : maskResponse(std::move(text)), {}, {}};
}

}  // namespace

Command addMaskCommand(CLI::App& app) {
    auto options = std::make_shared<MaskOptions>();
    auto* parser = app.add_subcommand(
        "mask",
        "Write EMV data or a trace back as it came, with card data replaced by '*' digit for "
        "digit, so that it keeps its shape and can go into a ticket (`vastrel explain` reads "
        "'*' as a masked digit)");
    parser->add_option("HEX", options->hex,
                       "A response or a trace; read from standard input when absent");
    parser->add_flag("--trace", options->trace, "Read the input as a trace, one APDU a line");
    return {parser, [options](CommandContext& context) { return runMask(*options, context); }};
}

}  // namespace vastrel::tool
