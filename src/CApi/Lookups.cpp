#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

using namespace vastrel;
using namespace vastrel::capi;

extern "C" {

vastrel_status vastrel_tag_name(const char* tag, size_t tag_length, char* out, size_t out_capacity,
                                size_t* out_length) {
    return guarded([&] {
        return writeText(Tag::tagNameView(textArgument(tag, tag_length, "tag")), out, out_capacity,
                         out_length);
    });
}

vastrel_status vastrel_cvm_result_from_tlv(const char* value, size_t value_length,
                                           int64_t* result) {
    return guarded([&] {
        require(result, "result");
        *result = static_cast<int64_t>(
            ReceiptHelper::cvmResultFromTlv(optionalTextArgument(value, value_length)));
        return VASTREL_OK;
    });
}

vastrel_status vastrel_cardholder_authentication_method_from_tlv(const char* value,
                                                                 size_t value_length,
                                                                 uint64_t* method) {
    return guarded([&] {
        require(method, "method");
        *method = static_cast<uint64_t>(EMVTagHelper::cardholderAuthenticationMethodfromTlv(
            optionalTextArgument(value, value_length)));
        return VASTREL_OK;
    });
}

vastrel_status vastrel_card_type_from_pan(const char* pan, size_t pan_length, uint64_t* card_type) {
    return guarded([&] {
        const std::string_view number = textArgument(pan, pan_length, "pan");
        require(card_type, "card_type");
        // The detector stops the program on such a number; here it is the caller's error.
        if (!CreditCardHelper::hasDigitPrefix(number)) {
            return fail(VASTREL_ERROR_INVALID_ARGUMENT,
                        "the first six characters of a card number must be digits");
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
