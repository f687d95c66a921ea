// ReceiptHelper::buildEmvReceiptWith and buildMsrReceiptFor on decoded chip data and a card
// number from the input. Neither throws nor stops the program, whatever the number. The
// receipt carries the card record's number unchanged and its brand; EMV fields are filled
// exactly when validateEmvTagsPresent accepts the data, each from the last element with
// its tag; the stripe receipt has no EMV field. Builders log at most one line.
//
// Input: a flags byte (bit 0: a gateway response, bit 1: no card record, bit 2: no chip
// data, bit 3: children of templates flattened to the top level as a reader layer hands
// them over), then the card number up to the first newline, then the chip data as bytes.
#include <optional>
#include <string>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVFlatten.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

// The value of the last element tagged tag (either case), if any.
std::optional<std::string> lastValue(const std::vector<TLVObject>& elements, std::string_view tag) {
    std::optional<std::string> value;
    for (const TLVObject& element : elements) {
        if (upperCased(element.tag().value_or("")) == tag) value = element.value().value_or("");
    }
    return value;
}

void checkEmvFields(const TransactionReceipt& receipt, const std::vector<TLVObject>& elements,
                    const std::optional<std::string>& recordName) {
    FUZZ_CHECK(receipt.aid() == lastValue(elements, "4F"));
    const auto label = lastValue(elements, "50");
    FUZZ_CHECK(receipt.applicationLabel() == TLVUtility::hexToAscii(label.value()));
    FUZZ_CHECK(receipt.cryptogram() == lastValue(elements, "9F26"));
    FUZZ_CHECK(receipt.ifdSerialNumber() == lastValue(elements, "9F1E"));
    const auto cvm = lastValue(elements, "9F34");
    FUZZ_CHECK(receipt.cvmResult() ==
               (cvm ? ReceiptHelper::cvmResultFromTlv(*cvm) : CVMResult::NotAvailable));
    // A PIN result, once seen, marks the PIN verified even if a later 9F34 says otherwise.
    bool pinSeen = false;
    for (const TLVObject& element : elements) {
        if (upperCased(element.tag().value_or("")) != "9F34") continue;
        const CVMResult result = ReceiptHelper::cvmResultFromTlv(element.value().value_or(""));
        pinSeen = pinSeen || result == CVMResult::PinOnline ||
                  result == CVMResult::PinOfflineEncr || result == CVMResult::PinOfflinePlain;
    }
    FUZZ_CHECK(receipt.pinStatementType() ==
               (pinSeen ? PinStatementType::PinVerified : PinStatementType::PinNotSupported));
    const auto name = lastValue(elements, "5F20");
    FUZZ_CHECK(receipt.cardholderName() == (name ? TLVUtility::hexToAscii(*name) : recordName));
}

void checkNoEmvFields(const TransactionReceipt& receipt) {
    FUZZ_CHECK(!receipt.aid() && !receipt.applicationLabel() && !receipt.cryptogram());
    FUZZ_CHECK(receipt.cvmResult() == CVMResult::NotAvailable);
    FUZZ_CHECK(receipt.pinStatementType() == PinStatementType::PinNotSupported);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::uint8_t flags = data[0];
    const std::string_view rest = asText(data + 1, size - 1);
    const std::size_t newline = std::min(rest.find('\n'), rest.size());
    const std::string pan(rest.substr(0, newline));
    const std::string_view chip = rest.substr(std::min(newline + 1, rest.size()));

    const LogLines log;
    std::optional<std::vector<TLVObject>> elements;
    if ((flags & 4) == 0) {
        elements = TLVDecoder::decodeWithTLVString(
                       TLVUtility::dataToHexString(
                           {reinterpret_cast<const std::uint8_t*>(chip.data()), chip.size()}))
                       .value_or(std::vector<TLVObject>{});
        if ((flags & 8) != 0) elements = TLVFlatten::primitives(*elements);
    }
    CardData card;
    card.setPan(pan);
    card.setCardholderName("CARD/HOLDER");
    card.setEmvTLVData(elements);
    const CardData* cardData = (flags & 2) == 0 ? &card : nullptr;
    GatewayResponse response;
    response.setAuthCode("A1B2C3");
    response.setApprovedAmount(Decimal("12.50"));
    const GatewayResponse* gateway = (flags & 1) != 0 ? &response : nullptr;
    const std::size_t linesBefore = log.lines().size();

    const TransactionReceipt emv = ReceiptHelper::buildEmvReceiptWith(gateway, cardData);
    const std::size_t emvLines = log.lines().size() - linesBefore;
    FUZZ_CHECK(emvLines <= 1);
    const std::optional<std::string> recordPan =
        cardData ? std::optional<std::string>(pan) : std::nullopt;
    FUZZ_CHECK(emv.maskedPan() == recordPan);
    const CardType brand = cardData && CreditCardHelper::hasDigitPrefix(pan)
                               ? CreditCardHelper().getCardTypeFromRedactedPan(pan)
                               : CardType::Unknown;
    FUZZ_CHECK(emv.cardType() == brand);
    FUZZ_CHECK(emv.authorizationCode() == (gateway ? response.authCode() : std::nullopt));
    const std::optional<std::vector<TLVObject>> noElements;
    const bool valid = ReceiptHelper::validateEmvTagsPresent(cardData ? elements : noElements);
    FUZZ_CHECK(valid == (emvLines == 0));
    const std::optional<std::string> recordName =
        cardData ? card.cardholderName() : std::optional<std::string>();
    if (valid) {
        checkEmvFields(emv, *elements, recordName);
    } else {
        checkNoEmvFields(emv);
        FUZZ_CHECK(emv.cardholderName() == recordName);
    }
    static_cast<void>(emv.copy());

    TransactionRequest request;
    request.setTransactionType(static_cast<TransactionType>(flags >> 4));
    const std::size_t msrBefore = log.lines().size();
    const TransactionReceipt msr = ReceiptHelper::buildMsrReceiptFor(&request, gateway, cardData);
    FUZZ_CHECK(log.lines().size() - msrBefore == (gateway ? 0U : 1U));
    FUZZ_CHECK(msr.transactionType() == request.transactionType());
    FUZZ_CHECK(msr.maskedPan() == recordPan && msr.cardType() == brand);
    checkNoEmvFields(msr);
    return 0;
}
