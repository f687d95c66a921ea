#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "CApiSupport.hpp"
#include "vastrel/Codec/ChipData.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Model/GatewayResponse.hpp"
#include "vastrel/Model/TransactionRequest.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"

using namespace vastrel;
using namespace vastrel::capi;

struct vastrel_receipt {
    TransactionReceipt receipt;
};

namespace {

std::optional<std::string> textOf(const char* text) {
    return text ? std::optional<std::string>(text) : std::nullopt;
}

// The chip data, read strictly with every template opened.
std::vector<TLVObject> chipElements(std::string_view hex) {
    ChipElements chip = ChipData::primitives(hexArgument(hex, "card.emv_tlv_hex"));
    if (chip.error) {
        throw Failure{VASTREL_ERROR_MALFORMED_DATA,
                      "card.emv_tlv_hex: " + std::string(describe(chip.error->kind)) + " at byte " +
                          std::to_string(chip.error->offset)};
    }
    return std::move(chip.elements);
}

std::optional<CardData> cardOf(const vastrel_card_input* input) {
    if (inputStruct(input, "card") == nullptr) return std::nullopt;
    CardData card;
    card.setPan(textOf(input->pan));
    card.setCardholderName(textOf(input->cardholder_name));
    card.setCardDataSourceType(static_cast<CardDataSourceType>(input->card_data_source_type));
    if (input->emv_tlv_hex != nullptr) card.setEmvTLVData(chipElements(input->emv_tlv_hex));
    return card;
}

Decimal amountOf(const char* text) {
    try {
        return Decimal(text);
    } catch (const std::invalid_argument&) {
        throw Failure{VASTREL_ERROR_INVALID_ARGUMENT,
                      "gateway.approved_amount is not plain decimal text such as 12.50"};
    }
}

std::optional<GatewayResponse> responseOf(const vastrel_gateway_input* input) {
    if (inputStruct(input, "gateway") == nullptr) return std::nullopt;
    GatewayResponse response;
    response.setAuthCode(textOf(input->auth_code));
    response.setGatewayTransactionId(textOf(input->gateway_transaction_id));
    if (input->approved_amount != nullptr)
        response.setApprovedAmount(amountOf(input->approved_amount));
    return response;
}

template <class T>
const T* pointerTo(const std::optional<T>& value) {
    return value ? &*value : nullptr;
}

vastrel_status hand(TransactionReceipt receipt, vastrel_receipt** out) {
    *out = new vastrel_receipt{std::move(receipt)};
    return VASTREL_OK;
}

using TextGetter = const std::optional<std::string>& (TransactionReceipt::*)() const;

// In the order of vastrel_receipt_text_field.
constexpr std::array<TextGetter, 22> kTextFields = {
    &TransactionReceipt::invoiceNumber,
    &TransactionReceipt::transactionAmount,
    &TransactionReceipt::authorizationCode,
    &TransactionReceipt::maskedPan,
    &TransactionReceipt::transactionId,
    &TransactionReceipt::cardholderName,
    &TransactionReceipt::aid,
    &TransactionReceipt::applicationLabel,
    &TransactionReceipt::applicationExpiryDate,
    &TransactionReceipt::applicationEffectiveDate,
    &TransactionReceipt::applicationInterchangeProfile,
    &TransactionReceipt::applicationVersionNumber,
    &TransactionReceipt::applicationTransactionCounter,
    &TransactionReceipt::panSequenceNumber,
    &TransactionReceipt::cryptogram,
    &TransactionReceipt::issuerApplicationData,
    &TransactionReceipt::terminalVerificationResult,
    &TransactionReceipt::unpredictableNumber,
    &TransactionReceipt::cashBackAmount,
    &TransactionReceipt::terminalType,
    &TransactionReceipt::ifdSerialNumber,
    &TransactionReceipt::cryptogramInformationData,
};
static_assert(kTextFields.size() == VASTREL_RECEIPT_CRYPTOGRAM_INFORMATION_DATA + 1);

std::optional<int64_t> numberOf(const TransactionReceipt& r, int field) {
    switch (field) {
        case VASTREL_RECEIPT_TRANSACTION_TYPE:
            return static_cast<int64_t>(r.transactionType());
        case VASTREL_RECEIPT_CURRENCY_CODE:
            return static_cast<int64_t>(r.currencyCode());
        case VASTREL_RECEIPT_CARD_TYPE:
            return static_cast<int64_t>(r.cardType());
        case VASTREL_RECEIPT_CVM_RESULT:
            return static_cast<int64_t>(r.cvmResult());
        case VASTREL_RECEIPT_POS_ENTRY_MODE:
            return static_cast<int64_t>(r.posEntryMode());
        case VASTREL_RECEIPT_TERMINAL_COUNTRY_CODE:
            return static_cast<int64_t>(r.terminalCountryCode());
        case VASTREL_RECEIPT_PIN_STATEMENT_TYPE:
            return static_cast<int64_t>(r.pinStatementType());
        case VASTREL_RECEIPT_TRANSACTION_DATE_TIME:
            if (!r.transactionDateTime()) return std::nullopt;
            return std::chrono::duration_cast<std::chrono::milliseconds>(
                       r.transactionDateTime()->time_since_epoch())
                .count();
    }
    throw Failure{VASTREL_ERROR_INVALID_ARGUMENT,
                  "no receipt number field " + std::to_string(field)};
}

}  // namespace

extern "C" {

vastrel_status vastrel_receipt_build_emv(const vastrel_gateway_input* gateway,
                                         const vastrel_card_input* card, vastrel_receipt** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        const auto response = responseOf(gateway);
        const auto cardData = cardOf(card);
        return hand(ReceiptHelper::buildEmvReceiptWith(pointerTo(response), pointerTo(cardData)),
                    out);
    });
}

vastrel_status vastrel_receipt_build_msr(uint64_t transaction_type,
                                         const vastrel_gateway_input* gateway,
                                         const vastrel_card_input* card, vastrel_receipt** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        TransactionRequest request;
        request.setTransactionType(static_cast<TransactionType>(transaction_type));
        const auto response = responseOf(gateway);
        const auto cardData = cardOf(card);
        return hand(
            ReceiptHelper::buildMsrReceiptFor(&request, pointerTo(response), pointerTo(cardData)),
            out);
    });
}

void vastrel_receipt_free(vastrel_receipt* receipt) { delete receipt; }

vastrel_status vastrel_receipt_text(const vastrel_receipt* receipt, int field, char* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        require(receipt, "receipt");
        if (field < 0 || static_cast<std::size_t>(field) >= kTextFields.size()) {
            return fail(VASTREL_ERROR_INVALID_ARGUMENT,
                        "no receipt text field " + std::to_string(field));
        }
        return writeOptionalText((receipt->receipt.*kTextFields[static_cast<std::size_t>(field)])(),
                                 out, out_capacity, out_length);
    });
}

vastrel_status vastrel_receipt_number(const vastrel_receipt* receipt, int field, int64_t* value) {
    return guarded([&] {
        require(receipt, "receipt");
        require(value, "value");
        *value = 0;
        const auto number = numberOf(receipt->receipt, field);
        if (!number) return VASTREL_ABSENT;
        *value = *number;
        return VASTREL_OK;
    });
}

}  // extern "C"
