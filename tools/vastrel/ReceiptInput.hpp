#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Model/GatewayResponse.hpp"
#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel::tool {

// One transaction as `vastrel receipt` reads it from JSON (see examples/README.md):
// the records the receipt builders take, plus what only the printed receipt shows.
struct TransactionInput {
    TransactionType transactionType{};
    std::optional<CardData> cardData;                // absent: the builders get none
    std::optional<GatewayResponse> gatewayResponse;  // absent or null: likewise
    std::optional<std::string> invoiceNumber;
    std::optional<TransactionReceipt::Date> transactionDateTime;
    std::string merchantName;
    std::vector<std::string> merchantAddress;

    // True when the card record carries chip data, so the EMV builder applies.
    [[nodiscard]] bool isChipTransaction() const { return cardData && cardData->emvTLVData(); }
};

// Reads the transaction in json. The chip data (cardData.emvTLVData, hex) is decoded and
// flattened into one element per primitive tag, as a reader layer hands it over. Throws
// InputError, with source and the offending key in the message, for malformed JSON, an
// unknown key, a value of the wrong kind, bad hex, an amount that is not plain decimal
// text, or a card number whose first six characters are not digits.
TransactionInput parseTransaction(std::string_view json, std::string_view source);

// The receipt of a transaction: the EMV builder when it carries chip data, else the stripe
// builder; then the invoice number and date, which the builders leave to the application.
TransactionReceipt buildReceipt(const TransactionInput& input);

}  // namespace vastrel::tool
