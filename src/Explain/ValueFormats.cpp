// Values in standard formats: dates and times, amounts, ISO codes, text, AIDs and card data.
#include <algorithm>
#include <string_view>

#include "DecoderParts.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Explain/CardRanges.hpp"
#include "vastrel/Explain/IsoCodes.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel::explain {
namespace {

// The BCD value of the three-digit code in two bytes (0840 is 840), or -1.
int threeDigitCode(Value value, Findings& out) {
    if (!requireLength(value, 2, out)) return -1;
    const std::optional<int> code = smallBcdNumber(value, 999);
    if (!code) out.push_back(hex(value) + " is not a three-digit code");
    return code.value_or(-1);
}

std::string twoDigits(std::string_view digits, std::size_t at) {
    return std::string(digits.substr(at, 2));
}

bool between(std::string_view twoDigits, int low, int high) {
    const int number = (twoDigits[0] - '0') * 10 + (twoDigits[1] - '0');
    return number >= low && number <= high;
}

// Amount in minor units, written with the currency's exponent: 1234 with 2 is "12.34".
std::string withExponent(std::string_view digits, int exponent) {
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    const std::string_view whole = digits.substr(first);
    if (exponent <= 0) return std::string(whole);
    const auto places = static_cast<std::size_t>(exponent);
    std::string text;
    if (whole.size() <= places) {
        text = "0.";
        text.append(places - whole.size(), '0');
        text += whole;
        return text;
    }
    text = whole.substr(0, whole.size() - places);
    text += '.';
    text += whole.substr(whole.size() - places);
    return text;
}

void amount(const std::string& digits, const DecodeContext& context, Findings& out) {
    int exponent = 2;
    std::string currency = " (currency not given)";
    if (context.currency) {
        exponent = IsoCodes::minorUnits(*context.currency);
        const auto known = IsoCodes::currency(*context.currency);
        currency = known ? " " + std::string(known->alpha3)
                         : " (currency " + std::to_string(*context.currency) + ")";
    }
    if (context.currencyExponent) exponent = *context.currencyExponent;
    out.push_back(withExponent(digits, exponent) + currency);
}

// The card number masked as card data in 5A is, unless shown in full.
constexpr std::uint32_t kCardNumberTag = 0x5A;

std::string maskedPan(std::string digits, bool showSensitive) {
    if (!showSensitive) CardDataPolicy::maskValue(kCardNumberTag, PaymentScheme::Any, digits);
    return digits;
}

}  // namespace

bool requireLength(Value value, std::size_t expected, Findings& out) {
    if (value.size() == expected) return true;
    out.push_back("Expected " + std::to_string(expected) + (expected == 1 ? " byte" : " bytes") +
                  ", found " + std::to_string(value.size()));
    return false;
}

std::string bcdDigits(Value value) {
    std::string digits = hex(value);
    for (const char c : digits) {
        if (c > '9') return {};
    }
    return digits;
}

std::uint64_t bigEndian(Value value) {
    std::uint64_t number = 0;
    for (const auto byte : value)
        number = number << 8 | byte;
    return number;
}

std::optional<int> smallBcdNumber(Value value, int max) {
    const std::string digits = bcdDigits(value);
    if (digits.empty()) return std::nullopt;
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    constexpr std::size_t kMaxDigits = 9;  // every such number fits an int
    if (digits.size() - first > kMaxDigits) return std::nullopt;
    const int number = std::stoi(digits.substr(first));
    return number <= max ? std::optional<int>(number) : std::nullopt;
}

namespace {

// EMV years: 00 to 49 are 2000 to 2049, 50 to 99 are 1950 to 1999.
std::string fullYear(std::string_view twoDigitYear) {
    const int year = (twoDigitYear[0] - '0') * 10 + (twoDigitYear[1] - '0');
    return (year >= 50 ? "19" : "20") + std::string(twoDigitYear);
}

}  // namespace

void date(Value value, Findings& out) {
    if (!requireLength(value, 3, out)) return;
    const std::string digits = bcdDigits(value);
    if (digits.empty() || !between(twoDigits(digits, 2), 1, 12) ||
        !between(twoDigits(digits, 4), 1, 31)) {
        out.push_back(hex(value) + " is not a date (YYMMDD)");
        return;
    }
    out.push_back(fullYear(digits.substr(0, 2)) + "-" + digits.substr(2, 2) + "-" +
                  digits.substr(4, 2));
}

void time(Value value, Findings& out) {
    if (!requireLength(value, 3, out)) return;
    const std::string digits = bcdDigits(value);
    if (digits.empty() || !between(twoDigits(digits, 0), 0, 23) ||
        !between(twoDigits(digits, 2), 0, 59) || !between(twoDigits(digits, 4), 0, 59)) {
        out.push_back(hex(value) + " is not a time (HHMMSS)");
        return;
    }
    out.push_back(digits.substr(0, 2) + ":" + digits.substr(2, 2) + ":" + digits.substr(4, 2));
}

void numericAmount(Value value, const DecodeContext& context, Findings& out) {
    if (!requireLength(value, 6, out)) return;
    const std::string digits = bcdDigits(value);
    if (digits.empty()) {
        out.push_back(hex(value) + " is not a numeric amount");
        return;
    }
    amount(digits, context, out);
}

void binaryAmount(Value value, const DecodeContext& context, Findings& out) {
    if (!requireLength(value, 4, out)) return;
    amount(std::to_string(bigEndian(value)), context, out);
}

void currencyCode(Value value, Findings& out) {
    const int code = threeDigitCode(value, out);
    if (code < 0) return;
    const auto currency = IsoCodes::currency(static_cast<std::uint16_t>(code));
    out.push_back(currency ? std::string(currency->alpha3) + ", " + std::string(currency->name)
                           : "Currency " + std::to_string(code) + " is not in ISO 4217");
}

void countryCode(Value value, Findings& out) {
    const int code = threeDigitCode(value, out);
    if (code < 0) return;
    const auto country = IsoCodes::country(static_cast<std::uint16_t>(code));
    out.push_back(country ? std::string(country->alpha2) + ", " + std::string(country->name)
                          : "Country " + std::to_string(code) + " is not in ISO 3166-1");
}

void languages(Value value, Findings& out) {
    if (value.size() % 2 != 0 || value.empty()) {
        out.push_back("Languages come as pairs of letters; " + std::to_string(value.size()) +
                      " bytes do not make them");
        return;
    }
    for (std::size_t i = 0; i < value.size(); i += 2) {
        std::string code;
        for (const auto byte : value.subspan(i, 2)) {
            code.push_back(byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a')
                           : printable(byte)          ? static_cast<char>(byte)
                                                      : '?');
        }
        const auto language = IsoCodes::language(code);
        out.push_back(code + ": " +
                      (language ? std::string(language->name) : "not an ISO 639-1 language"));
    }
}

std::string printableText(Value value) {
    std::string shown;
    for (const auto byte : value)
        shown.push_back(printable(byte) ? static_cast<char>(byte) : '.');
    return shown;
}

void text(Value value, Findings& out) {
    // Built in steps: GCC 12 reports a false -Wrestrict on the chained form.
    std::string shown = "\"";
    shown += printableText(value);
    shown += '"';
    out.push_back(std::move(shown));
}

void applicationId(Value value, Findings& out) {
    if (value.size() < ApplicationIdentifier::kRidLength) {
        out.push_back("An AID has at least 5 bytes, found " + std::to_string(value.size()));
        return;
    }
    const Value rid = value.first(ApplicationIdentifier::kRidLength);
    const PaymentScheme provider = ApplicationIdentifier::identify(rid).scheme;
    if (provider == PaymentScheme::Any) {
        out.push_back("RID " + hex(rid) + ": not a registered provider we know");
        return;
    }
    out.push_back("RID " + hex(rid) + ": " + std::string(schemeName(provider)));
    const std::string_view product = ApplicationIdentifier::identify(value).product;
    if (!product.empty()) out.push_back("Product: " + std::string(product));
}

void cardNumber(Value value, const DecodeContext& context, Findings& out) {
    std::string digits = hex(value);
    while (!digits.empty() && digits.back() == 'F')
        digits.pop_back();
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
        out.emplace_back("Not a card number (cn digits padded with F)");
        return;
    }
    out.push_back("Card number " + maskedPan(digits, context.showSensitive));
}

void track2(Value value, const DecodeContext& context, Findings& out) {
    std::string nibbles = hex(value);
    while (!nibbles.empty() && nibbles.back() == 'F')
        nibbles.pop_back();
    const std::size_t separator = nibbles.find('D');
    const bool digitsOnly = nibbles.find_first_not_of("0123456789D") == std::string::npos;
    if (separator == std::string::npos || !digitsOnly || nibbles.size() < separator + 8) {
        out.emplace_back("Not track 2 data (PAN, D, YYMM, service code, discretionary data)");
        return;
    }
    out.push_back("Card number " + maskedPan(nibbles.substr(0, separator), context.showSensitive));
    const std::string expiry = nibbles.substr(separator + 1, 4);
    out.push_back("Expires " + fullYear(expiry.substr(0, 2)) + "-" + expiry.substr(2, 2));
    const std::string code = nibbles.substr(separator + 5, 3);
    out.push_back("Service code " + code);
    serviceCodeDigits(code, out);
    const std::size_t discretionary = nibbles.size() - separator - 8;
    out.push_back("Discretionary data: " + std::to_string(discretionary) + " digits" +
                  (context.showSensitive ? ", " + nibbles.substr(separator + 8) : " (masked)"));
}

void serviceCode(Value value, Findings& out) {
    if (!requireLength(value, 2, out)) return;
    const std::string digits = bcdDigits(value);
    if (digits.empty() || digits[0] != '0') {
        out.push_back(hex(value) + " is not a three-digit service code");
        return;
    }
    serviceCodeDigits(digits.substr(1), out);
}

void serviceCodeDigits(std::string_view code, Findings& out) {
    constexpr std::string_view kInterchange[] = {
        "",
        "International interchange OK",
        "International interchange, use IC (chip) where feasible",
        "",
        "",
        "National interchange only except under bilateral agreement",
        "National interchange only, use IC (chip) where feasible",
        "No interchange except under bilateral agreement (closed loop)",
        "",
        "Test card"};
    constexpr std::string_view kAuthorisation[] = {
        "Normal authorisation",
        "",
        "Contact issuer via online means",
        "",
        "Contact issuer via online means except under bilateral agreement",
        "",
        "",
        "",
        "",
        ""};
    constexpr std::string_view kServices[] = {
        "No restrictions, PIN required",
        "No restrictions",
        "Goods and services only (no cash)",
        "ATM only, PIN required",
        "Cash only",
        "Goods and services only (no cash), PIN required",
        "No restrictions, use PIN where feasible",
        "Goods and services only (no cash), use PIN where feasible",
        "",
        ""};
    const std::string_view* tables[] = {kInterchange, kAuthorisation, kServices};
    for (std::size_t i = 0; i < 3 && i < code.size(); ++i) {
        const bool digit = code[i] >= '0' && code[i] <= '9';
        const std::string_view meaning = digit ? tables[i][code[i] - '0'] : std::string_view();
        out.push_back(meaning.empty() ? "Service code digit " + std::to_string(i + 1) + " value " +
                                            code[i] + " is reserved"
                                      : std::string(meaning));
    }
}

}  // namespace vastrel::explain
