#include "ReceiptInput.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "CardNumber.hpp"
#include "EnumNames.hpp"
#include "HexInput.hpp"
#include "ReceiptDate.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/ChipData.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Model/TransactionRequest.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"

namespace vastrel::tool {
namespace {

using nlohmann::json;

// Reads the members of one JSON object, refusing keys it does not know so that a
// misspelt key is reported instead of silently ignored. Messages name the key's path.
class ObjectReader {
  public:
    ObjectReader(const json& object, std::string path, std::initializer_list<std::string_view> keys)
        : object_(object), path_(std::move(path)) {
        if (!object.is_object()) fail(path_, "must be a JSON object");
        for (const auto& [key, value] : object.items()) {
            if (std::find(keys.begin(), keys.end(), key) == keys.end()) {
                fail(pathOf(key), "is not a known key");
            }
        }
    }

    // The member, or nullptr when it is missing or null.
    const json* find(std::string_view key) const {
        const auto it = object_.find(key);
        return it == object_.end() || it->is_null() ? nullptr : &*it;
    }

    std::optional<std::string> text(std::string_view key) const {
        const json* value = find(key);
        if (value == nullptr) return std::nullopt;
        if (!value->is_string()) fail(pathOf(key), "must be a string");
        return value->get<std::string>();
    }

    bool flag(std::string_view key) const {
        const json* value = find(key);
        if (value == nullptr) return false;
        if (!value->is_boolean()) fail(pathOf(key), "must be true or false");
        return value->get<bool>();
    }

    // An enumeration given by its display string ("EMV") or its number.
    std::optional<std::uint64_t> enumValue(std::string_view key, EnumType type) const {
        const json* value = find(key);
        if (value == nullptr) return std::nullopt;
        if (value->is_number_unsigned()) return value->get<std::uint64_t>();
        if (value->is_string()) {
            if (auto number = valueForDisplayString(type, value->get<std::string>())) {
                return number;
            }
        }
        fail(pathOf(key), "must be a " + std::string(enumTypeName(type)) +
                              " display string or number (see `vastrel enum " +
                              std::string(enumTypeName(type)) + "`)");
    }

    // An amount as text ("12.50") or as a JSON number.
    std::optional<Decimal> amount(std::string_view key) const {
        const json* value = find(key);
        if (value == nullptr) return std::nullopt;
        const std::string text = value->is_string() ? value->get<std::string>() : value->dump();
        try {
            return Decimal(text);
        } catch (const std::invalid_argument&) {
            fail(pathOf(key), "must be an amount such as \"12.50\", not " + value->dump());
        }
    }

    std::string pathOf(std::string_view key) const {
        return path_.empty() ? std::string(key) : path_ + "." + std::string(key);
    }

    [[noreturn]] static void fail(const std::string& path, const std::string& problem) {
        throw InputError(path + " " + problem);
    }

  private:
    const json& object_;
    std::string path_;
};

// Primitive elements in order, every template opened, read strictly: the receipt builders
// look for tags at the top level only.
std::vector<TLVObject> chipElements(const std::string& hexText) {
    if (hexText.empty()) return {};
    const std::string hex = cleanHex(hexText, "cardData.emvTLVData");
    Bytes data;
    static_cast<void>(HexDecoder::decode(hex, data));  // cleanHex has checked every digit
    ChipElements chip = ChipData::primitives(data);
    if (chip.error) {
        throw InputError("cardData.emvTLVData: " + std::string(describe(chip.error->kind)) +
                         " at byte " + std::to_string(chip.error->offset));
    }
    return std::move(chip.elements);
}

CardData readCardData(const json& object) {
    const ObjectReader card(object, "cardData",
                            {"pan", "cardholderName", "cardDataSourceType", "emvTLVData"});
    CardData cardData;
    if (auto pan = card.text("pan")) {
        requireDigitPrefix(*pan);
        cardData.setPan(std::move(pan));
    }
    cardData.setCardholderName(card.text("cardholderName"));
    if (auto source = card.enumValue("cardDataSourceType", EnumType::CardDataSourceType)) {
        cardData.setCardDataSourceType(static_cast<CardDataSourceType>(*source));
    }
    if (auto emv = card.text("emvTLVData")) cardData.setEmvTLVData(chipElements(*emv));
    return cardData;
}

GatewayResponse readGatewayResponse(const json& object) {
    const ObjectReader gateway(object, "gatewayResponse",
                               {"isApproved", "authCode", "gatewayTransactionId", "approvedAmount",
                                "gatewayResponseText"});
    GatewayResponse response;
    response.setIsApproved(gateway.flag("isApproved"));
    response.setAuthCode(gateway.text("authCode"));
    response.setGatewayTransactionId(gateway.text("gatewayTransactionId"));
    response.setApprovedAmount(gateway.amount("approvedAmount"));
    response.setGatewayResponseText(gateway.text("gatewayResponseText"));
    return response;
}

void readMerchant(const json& object, TransactionInput& input) {
    const ObjectReader merchant(object, "merchant", {"name", "address"});
    input.merchantName = merchant.text("name").value_or("");
    const json* address = merchant.find("address");
    if (address == nullptr) return;
    const bool allText =
        address->is_array() && std::all_of(address->begin(), address->end(),
                                           [](const json& line) { return line.is_string(); });
    if (!allText) ObjectReader::fail("merchant.address", "must be a list of strings");
    for (const auto& line : *address)
        input.merchantAddress.push_back(line.get<std::string>());
}

// nlohmann's messages start with "[json.exception.parse_error.101] "; the rest is enough.
std::string withoutExceptionId(const std::string& message) {
    const auto end = message.find("] ");
    return message.starts_with("[json.exception.") && end != std::string::npos
               ? message.substr(end + 2)
               : message;
}

}  // namespace

TransactionInput parseTransaction(std::string_view text, std::string_view source) {
    json document;
    try {
        document = json::parse(text);
    } catch (const json::exception& error) {  // a syntax error, or a number out of range
        throw InputError(std::string(source) +
                         ": not valid JSON: " + withoutExceptionId(error.what()));
    }
    try {
        const ObjectReader top(document, "",
                               {"description", "merchant", "transactionType", "invoiceNumber",
                                "transactionDateTime", "cardData", "gatewayResponse"});
        TransactionInput input;
        top.text("description");  // for people reading the file; checked, not used
        if (auto type = top.enumValue("transactionType", EnumType::TransactionType)) {
            input.transactionType = static_cast<TransactionType>(*type);
        }
        input.invoiceNumber = top.text("invoiceNumber");
        if (auto date = top.text("transactionDateTime")) {
            input.transactionDateTime = parseUtcDateTime(*date);
        }
        if (const json* merchant = top.find("merchant")) readMerchant(*merchant, input);
        if (const json* card = top.find("cardData")) input.cardData = readCardData(*card);
        if (const json* gateway = top.find("gatewayResponse")) {
            input.gatewayResponse = readGatewayResponse(*gateway);
        }
        return input;
    } catch (const InputError& error) {
        throw InputError(std::string(source) + ": " + error.what());
    }
}

TransactionReceipt buildReceipt(const TransactionInput& input) {
    const GatewayResponse* response = input.gatewayResponse ? &*input.gatewayResponse : nullptr;
    const CardData* card = input.cardData ? &*input.cardData : nullptr;
    TransactionReceipt receipt;
    if (input.isChipTransaction()) {
        receipt = ReceiptHelper::buildEmvReceiptWith(response, card);
    } else {
        TransactionRequest request;
        request.setTransactionType(input.transactionType);
        receipt = ReceiptHelper::buildMsrReceiptFor(&request, response, card);
    }
    // The builders leave these to the application; the tool fills them in as one would.
    receipt.setInvoiceNumber(input.invoiceNumber);
    receipt.setTransactionDateTime(input.transactionDateTime);
    return receipt;
}

}  // namespace vastrel::tool
