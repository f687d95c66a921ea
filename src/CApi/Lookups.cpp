#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

using namespace vastrel;
using namespace vastrel::capi;

namespace {

constexpr std::size_t kCvmResultsBytes = 3;
constexpr std::size_t kBrandDigits = 6;

// The CVM Results as the library's readers expect them: three bytes as uppercase hex.
std::string cvmResults(const char* value, std::size_t length) {
    const Bytes bytes = hexArgument(textArgument(value, length, "value"), "value");
    if (bytes.size() != kCvmResultsBytes) {
        throw Failure{VASTREL_ERROR_INVALID_ARGUMENT,
                      "value: the CVM Results are 3 bytes, not " + std::to_string(bytes.size())};
    }
    return TLVUtility::dataToHexString(bytes);
}

// The tag as a number, from strict hex; tags longer than four bytes name nothing.
std::uint32_t tagNumber(std::string_view hex) {
    return BerNode::tagNumberOf(hexArgument(hex, "tag"));
}

}  // namespace

extern "C" {

vastrel_status vastrel_tag_name(const char* tag, size_t tag_length, char* out, size_t out_capacity,
                                size_t* out_length) {
    return guarded([&] {
        return writeTagName(tagNumber(textArgument(tag, tag_length, "tag")), PaymentScheme::Any,
                            out, out_capacity, out_length);
    });
}

vastrel_status vastrel_tag_name_in_scheme(uint32_t tag, int scheme, char* out, size_t out_capacity,
                                          size_t* out_length) {
    return guarded([&] {
        if (scheme < VASTREL_SCHEME_UNKNOWN || scheme > VASTREL_SCHEME_EFTPOS) {
            return fail(VASTREL_ERROR_INVALID_ARGUMENT, "no scheme " + std::to_string(scheme));
        }
        return writeTagName(tag, static_cast<PaymentScheme>(scheme), out, out_capacity, out_length);
    });
}

vastrel_status vastrel_cvm_result_from_tlv(const char* value, size_t value_length,
                                           int64_t* result) {
    return guarded([&] {
        const std::string results = cvmResults(value, value_length);
        require(result, "result");
        *result = static_cast<int64_t>(ReceiptHelper::cvmResultFromTlv(results));
        return VASTREL_OK;
    });
}

vastrel_status vastrel_cardholder_authentication_method_from_tlv(const char* value,
                                                                 size_t value_length,
                                                                 uint64_t* method) {
    return guarded([&] {
        const std::string results = cvmResults(value, value_length);
        require(method, "method");
        *method =
            static_cast<uint64_t>(EMVTagHelper::cardholderAuthenticationMethodfromTlv(results));
        return VASTREL_OK;
    });
}

vastrel_status vastrel_card_type_from_pan(const char* pan, size_t pan_length, uint64_t* card_type) {
    return guarded([&] {
        const std::string_view number = textArgument(pan, pan_length, "pan");
        require(card_type, "card_type");
        // The brand is read from six digits; the detector would stop the program on fewer.
        if (number.size() < kBrandDigits || !CreditCardHelper::hasDigitPrefix(number)) {
            return fail(VASTREL_ERROR_INVALID_ARGUMENT,
                        "pan: a card number starts with six digits");
        }
        *card_type = static_cast<uint64_t>(CreditCardHelper().getCardTypeFromRedactedPan(number));
        return VASTREL_OK;
    });
}

vastrel_status vastrel_enum_display_string(uint64_t enum_type, uint64_t value, char* out,
                                           size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        const auto type = static_cast<EnumType>(enum_type);
        if (EnumStringValues::dictionaryForEnumType(type) == nullptr) {
            return fail(VASTREL_ERROR_INVALID_ARGUMENT, "no enumeration has type " +
                                                            std::to_string(enum_type) +
                                                            " (the types are 1 to 14)");
        }
        return writeOptionalText(EnumStringValues::valueForAnEnumType(type, value), out,
                                 out_capacity, out_length);
    });
}

}  // extern "C"
