#include "JsonRender.hpp"

#include <charconv>
#include <optional>

#include "DisplayValue.hpp"
#include "EnumNames.hpp"
#include "ReceiptDate.hpp"

namespace vastrel::tool {
namespace {

Json optionalText(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json(nullptr);
}

// The decoder writes lengths as decimal text; scripts want a number.
Json lengthJson(const std::optional<std::string>& length) {
    const std::string text = length.value_or("");
    long long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size()) return number;
    return text;
}

template <typename Enum>
Json enumField(EnumType type, Enum value) {
    return enumJson(type, static_cast<std::uint64_t>(value));
}

}  // namespace

Json tlvTreeJson(const std::vector<TLVObject>& elements, const ValueDisplay& display) {
    Json array = Json::array();
    for (const auto& element : elements) {
        const std::string tag = element.tag().value_or("");
        Json children = Json::array();
        if (element.innerTlvs()) children = tlvTreeJson(*element.innerTlvs(), display);
        array.push_back(
            Json{{"tag", tag},
                 {"name", element.tagName().value_or("")},
                 {"length", lengthJson(element.length())},
                 // A template's children show its value, decoded.
                 {"value", children.empty() ? Json(display(tag, element.value().value_or("")))
                                            : Json(nullptr)},
                 {"children", std::move(children)}});
    }
    return array;
}

Json enumJson(EnumType type, std::uint64_t value) {
    const std::string name = displayString(type, value);
    return Json{{"value", value}, {"name", name.empty() ? Json(nullptr) : Json(name)}};
}

Json cvmResultJson(CVMResult result) {
    const std::string name = cvmResultText(result);
    return Json{{"value", static_cast<std::int64_t>(result)},
                {"name", name.empty() ? Json(nullptr) : Json(name)}};
}

Json receiptJson(const TransactionReceipt& r) {
    const auto& date = r.transactionDateTime();
    return Json{
        {"transactionType", enumField(EnumType::TransactionType, r.transactionType())},
        {"currencyCode", enumField(EnumType::CurrencyCode, r.currencyCode())},
        {"cardType", enumField(EnumType::CardType, r.cardType())},
        {"cvmResult", cvmResultJson(r.cvmResult())},
        {"posEntryMode", enumField(EnumType::CardDataSourceType, r.posEntryMode())},
        {"terminalCountryCode", enumField(EnumType::CountryCode, r.terminalCountryCode())},
        {"pinStatementType", enumField(EnumType::PinStatementType, r.pinStatementType())},
        {"transactionDateTime",
         date ? Json(formatUtcDateTime(*date, "%Y-%m-%dT%H:%M:%SZ")) : Json(nullptr)},
        {"invoiceNumber", optionalText(r.invoiceNumber())},
        {"transactionAmount", optionalText(r.transactionAmount())},
        {"authorizationCode", optionalText(r.authorizationCode())},
        {"maskedPan", optionalText(r.maskedPan())},
        {"transactionId", optionalText(r.transactionId())},
        {"cardholderName", optionalText(r.cardholderName())},
        {"aid", optionalText(r.aid())},
        {"applicationLabel", optionalText(r.applicationLabel())},
        {"applicationExpiryDate", optionalText(r.applicationExpiryDate())},
        {"applicationEffectiveDate", optionalText(r.applicationEffectiveDate())},
        {"applicationInterchangeProfile", optionalText(r.applicationInterchangeProfile())},
        {"applicationVersionNumber", optionalText(r.applicationVersionNumber())},
        {"applicationTransactionCounter", optionalText(r.applicationTransactionCounter())},
        {"panSequenceNumber", optionalText(r.panSequenceNumber())},
        {"cryptogram", optionalText(r.cryptogram())},
        {"issuerApplicationData", optionalText(r.issuerApplicationData())},
        {"terminalVerificationResult", optionalText(r.terminalVerificationResult())},
        {"unpredictableNumber", optionalText(r.unpredictableNumber())},
        {"cashBackAmount", optionalText(r.cashBackAmount())},
        {"terminalType", optionalText(r.terminalType())},
        {"ifdSerialNumber", optionalText(r.ifdSerialNumber())},
        {"cryptogramInformationData", optionalText(r.cryptogramInformationData())},
    };
}

std::string dumpJson(const Json& json) { return json.dump(2) + '\n'; }

}  // namespace vastrel::tool
