// CreditCardHelper::getCardTypeFromRedactedPan on card numbers whose first six characters
// are digits (the input's first six bytes are made digits; the rest is as given). It
// answers a brand with a display string, never UNION PAY (the 6xx Discover range claims
// those numbers first), decides on the first six characters alone, and calls every number
// starting with 4 VISA. hasDigitPrefix tells which numbers it may be given.
#include <algorithm>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view raw = asText(data, size);
    const std::string_view rawPrefix = raw.substr(0, 6);
    FUZZ_CHECK(CreditCardHelper::hasDigitPrefix(raw) ==
               std::all_of(rawPrefix.begin(), rawPrefix.end(),
                           [](char c) { return c >= '0' && c <= '9'; }));

    std::string number(raw);
    for (std::size_t i = 0; i < std::min<std::size_t>(number.size(), 6); ++i) {
        number[i] = static_cast<char>('0' + static_cast<unsigned char>(number[i]) % 10);
    }
    FUZZ_CHECK(CreditCardHelper::hasDigitPrefix(number));
    const CreditCardHelper helper;
    const CardType brand = helper.getCardTypeFromRedactedPan(number);
    FUZZ_CHECK(brand != CardType::UnionPay);
    FUZZ_CHECK(
        EnumStringValues::valueForAnEnumType(EnumType::CardType, static_cast<std::uint64_t>(brand))
            .has_value());
    FUZZ_CHECK(brand == helper.getCardTypeFromRedactedPan(std::string_view(number).substr(0, 6)));
    if (!number.empty() && number[0] == '4') FUZZ_CHECK(brand == CardType::Visa);
    if (number.size() >= 3 && number[0] == '6') FUZZ_CHECK(brand == CardType::Discover);
    return 0;
}
