// The command-line tool's transaction files: tool::parseTransaction
// (tools/vastrel/ReceiptInput.cpp) on any text, then the receipt builder `vastrel receipt`
// picks. Only InputError escapes the reading, and never for a document the tool accepted:
// every card number it lets through starts with digits, so the brand detector never stops
// the program, and building and copying the receipt never throws.
#include <nlohmann/json.hpp>

#include <string>

#include "FuzzSupport.hpp"
#include "ReceiptInput.hpp"
#include "ToolError.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const LogLines log;
    tool::TransactionInput input;
    try {
        input = tool::parseTransaction(text, "fuzz.json");
    } catch (const tool::InputError& error) {
        FUZZ_CHECK(std::string_view(error.what()).starts_with("fuzz.json: "));
        return 0;
    }
    FUZZ_CHECK(nlohmann::json::accept(text));

    const CardData* card = input.cardData ? &*input.cardData : nullptr;
    if (card && card->pan()) FUZZ_CHECK(CreditCardHelper::hasDigitPrefix(*card->pan()));
    const TransactionReceipt receipt = tool::buildReceipt(input);
    FUZZ_CHECK(receipt.maskedPan() == (card ? card->pan() : std::nullopt));
    static_cast<void>(receipt.copy());
    return 0;
}
