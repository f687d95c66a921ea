// Explanations of whole traces: status words, masking, the range cross-check, the JSON
// shape, and the lookups they rest on.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <string>
#include <vector>

#include "support/HexBytes.hpp"
#include "support/TestSupport.hpp"
#include "vastrel/Explain/CardRanges.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"
#include "vastrel/Explain/Explainer.hpp"
#include "vastrel/Explain/IsoCodes.hpp"
#include "vastrel/Explain/StatusWord.hpp"

namespace vastrel {
namespace {

using testing::bytesOf;

Explanation explainHex(std::string_view hex, bool showSensitive = false) {
    ExplainOptions options;
    options.showSensitive = showSensitive;
    return Explainer::explain(bytesOf(hex), options);
}

TEST(ExplainerTest, ReadsAClosingStatusWordOnlyAfterCompleteElements) {
    struct Case {
        const char* hex;
        const char* word;  // nullptr: no status word
        std::size_t elements;
    };
    const Case cases[] = {
        {"6F 03 84 01 A0 90 00", "9000", 2},
        {"6A 82", "6A82", 0},
        {"77 03 9F 27 00 61 10", "6110", 2},  // the template is whole without the word
        {"5A 03 47 61 90 00", nullptr, 1},    // 9000 is inside the card number
        {"9F 27 01 80 60 00", nullptr, 2},    // 60 is no status word's first byte
        {"9F 27 01 80 91 00", nullptr, 2},    // 91 00 is an empty element
        {"9000", "9000", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.hex);
        const Explanation explanation = explainHex(c.hex);
        EXPECT_EQ(explanation.elements.size(), c.elements);
        ASSERT_EQ(explanation.status.has_value(), c.word != nullptr);
        if (c.word != nullptr) {
            EXPECT_EQ(explanation.status->word, c.word);
        }
    }
}

TEST(ExplainerTest, StatusWordMeanings) {
    const std::pair<std::uint16_t, const char*> kWords[] = {
        {0x9000, "normal processing"},
        {0x6110, "normal processing, 16 more bytes available (GET RESPONSE)"},
        {0x6283, "warning: selected file invalidated"},
        {0x63C2, "verification failed, 2 tries left"},
        {0x63C1, "verification failed, 1 try left"},
        {0x6985, "checking error: conditions of use not satisfied"},
        {0x6A81, "checking error: function not supported"},
        {0x6A82, "checking error: file or application not found"},
        {0x6A83, "checking error: record not found"},
        {0x6A88, "checking error: referenced data or reference data not found"},
        {0x6C20, "checking error: wrong Le field, 32 bytes available"},
        {0x6999, "checking error: command not allowed"},
        {0x9001, "normal processing (proprietary qualifier)"},
        {0x6C00, "checking error: wrong Le field, 0 bytes available"},
        {0x6100, "normal processing, 0 more bytes available (GET RESPONSE)"},
        {0x6000, "not a status word ISO 7816-4 defines"},
        // Tries left only in 63Cx: another 63xx, or Cx under another SW1, is not a count.
        {0x6300, "warning: no information given, state of non-volatile memory changed"},
        {0x6AC2, "checking error: wrong parameters P1-P2"},
    };
    for (const auto& [word, meaning] : kWords) {
        EXPECT_EQ(StatusWord::meaning(word >> 8, word & 0xFF), meaning) << std::hex << word;
    }
    for (const std::uint8_t sw1 : {0x60, 0x70, 0x8F, 0x91, 0x00}) {
        EXPECT_FALSE(StatusWord::isStatusWord(sw1, 0x00)) << int{sw1};
    }
    for (const std::uint8_t sw1 : {0x61, 0x6F, 0x90}) {
        EXPECT_TRUE(StatusWord::isStatusWord(sw1, 0x00)) << int{sw1};
    }
}

// 9F6B is track 2 under a Mastercard AID, masked like 57, but Visa's card CVM limit, an
// amount shown as it is.
TEST(ExplainerTest, Masks9F6BOnlyWhereItHoldsTrack2) {
    const std::string track2 = "5413330089020011D2512602000000000F";
    const Explanation mastercard = explainHex("4F 07 A0000000041010 9F6B 11 " + track2);
    EXPECT_EQ(mastercard.elements[1].value, "541333******0011D2512602*********F");
    const Explanation visa = explainHex("4F 07 A0000000031010 9F6B 06 000000010000");
    EXPECT_EQ(visa.elements[1].value, "000000010000");
}

TEST(ExplainerTest, KeepsWhatWasReadBeforeAnError) {
    const Explanation explanation = explainHex("9F 27 01 80 70 05 5A 08 47 61 73");
    ASSERT_TRUE(explanation.error.has_value());
    EXPECT_EQ(explanation.error->kind, BerErrorKind::LengthPastEnd);
    EXPECT_EQ(explanation.error->offset, 6u);
    ASSERT_EQ(explanation.elements.size(), 2u);
    EXPECT_EQ(explanation.elements[0].meaning, Findings{"ARQC (online authorisation requested)"});
    EXPECT_FALSE(explanation.status.has_value());
}

TEST(ExplainerTest, MasksCardDataEverywhereUnlessShown) {
    // 70 { 57, 5A, 5F20, 9F1F, 99 }: every value, and the template's, comes masked.
    const std::string hex =
        "70 3A 57 13 4761739001010010D27122011143804400000F 5A 08 4761739001010010"
        "5F20 0F 43415244484F4C4445522F56495341 9F1F 02 3132 99 02 1234";
    const Explanation masked = explainHex(hex);
    ASSERT_FALSE(masked.error) << describe(masked.error->kind);
    ASSERT_EQ(masked.elements.size(), 6u);
    EXPECT_EQ(masked.elements[1].value, "476173******0010D2712201*************F");
    EXPECT_EQ(masked.elements[2].value, "476173******0010");
    EXPECT_EQ(masked.elements[3].value, std::string(30, '*'));
    EXPECT_EQ(masked.elements[4].value, "****");
    EXPECT_EQ(masked.elements[5].value, "****");
    const std::string everything = Explainer::toJson(masked);
    for (const char* secret : {"7390010100", "43415244", "D27122011143804400000", "1234"}) {
        EXPECT_EQ(everything.find(secret), std::string::npos) << secret;
    }
    const Explanation shown = explainHex(hex, true);
    EXPECT_EQ(shown.elements[2].value, "4761739001010010");
    EXPECT_NE(Explainer::toJson(shown).find("43415244484F4C4445522F56495341"), std::string::npos);
}

TEST(ExplainerTest, ChecksTheCardNumberRangeAgainstTheAid) {
    struct Case {
        const char* aid;
        const char* pan;
        const char* finding;
    };
    const Case cases[] = {
        {"A0000000031010", "4761739001010010", "Range check: Visa range, as the AID says"},
        {"A0000000041010", "2223003122003222", "Range check: Mastercard range, as the AID says"},
        {"A0000000043060", "6759649826438453", "Range check: Maestro range, as the AID says"},
        {"A0000001523010", "36227206271667FF", "Range check: Diners Club range, as the AID says"},
        {"A0000000041010", "4761739001010010",
         "Range check: Visa range, but the AID is Mastercard's"},
        {"A0000001523010", "6511000000000008",
         "Range check: Discover or Maestro or Troy range, as the AID says"},
        {"A0000002771010", "4506000000000000",
         "Range check: Interac cards carry their issuer's own BIN; not checked"},
        {"A0000000031010", "1234567890123456",
         "Range check: the card number is in no scheme's range"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.pan);
        const std::string hex = std::string("4F 07 ") + c.aid + " 5A 08 " + c.pan;
        const Explanation explanation = explainHex(hex);
        ASSERT_EQ(explanation.elements.size(), 2u);
        EXPECT_EQ(explanation.elements[1].meaning.back(), c.finding);
    }
    // Without a card number, without digits before its padding or track 2's separator, or
    // without an AID, nothing is checked.
    EXPECT_EQ(explainHex("4F 07 A0000000031010").elements[0].meaning.size(), 2u);
    EXPECT_EQ(explainHex("5A 08 4761739001010010").elements[0].meaning.size(), 1u);
    for (const char* noDigits : {"5A 02 FFFF", "57 03 D2712F"}) {
        SCOPED_TRACE(noDigits);
        const Explanation explanation = explainHex(std::string("4F 07 A0000000031010 ") + noDigits);
        for (const std::string& finding : explanation.elements[1].meaning)
            EXPECT_EQ(finding.find("Range check"), std::string::npos) << finding;
    }
}

TEST(ExplainerTest, NamesTagsInTheAidsSchemeAndDecodesWithItsCurrency) {
    const Explanation visa = explainHex("84 07 A0000000031010 9F6E 04 20700000");
    EXPECT_EQ(visa.elements[1].name, "Form Factor Indicator");
    const Explanation mastercard = explainHex("84 07 A0000000041010 9F6E 05 0000000000");
    EXPECT_EQ(mastercard.elements[1].name, "Third Party Data");
    const Explanation amount = explainHex("5F2A 02 0392 9F02 06 000000001234 DF01 00");
    EXPECT_EQ(amount.elements[1].meaning, Findings{"1234 JPY"});
    EXPECT_EQ(amount.elements[2].name, "Unknown");
    EXPECT_FALSE(amount.elements[2].decoded);
    // A currency code is three digits: 1000 is no currency, whatever the table holds.
    for (const char* notACurrency : {"5F2A 02 1000", "5F2A 05 9999999999"}) {
        const Explanation tooLong = explainHex(std::string(notACurrency) + " 9F02 06 000000001234");
        EXPECT_EQ(tooLong.elements[1].meaning, Findings{"12.34 (currency not given)"})
            << notACurrency;
    }
    const Explanation exponent = explainHex("5F36 01 03 9F02 06 000000001234");
    EXPECT_EQ(exponent.elements[1].meaning, Findings{"1.234 (currency not given)"});
    // An exponent is one digit: 10 is none, and the amount keeps two minor digits.
    const Explanation tenDigits = explainHex("5F36 01 10 9F02 06 000000001234");
    EXPECT_EQ(tenDigits.elements[1].meaning, Findings{"12.34 (currency not given)"});
}

TEST(ExplainerTest, JsonHasTheDocumentedShape) {
    const Explanation explanation = explainHex("77 06 9F27 01 80 70 00 9F36 02 0042 6A 82");
    const auto json = nlohmann::ordered_json::parse(Explainer::toJson(explanation));
    const auto expected = nlohmann::ordered_json::parse(R"json({
      "elements": [
        {"tag": "77", "name": "Response Message Template Format 2", "length": 6,
         "value": "9F2701807000", "children": [
           {"tag": "9F27", "name": "Cryptogram Information Data", "length": 1, "value": "80",
            "meaning": ["ARQC (online authorisation requested)"]},
           {"tag": "70", "name": "READ RECORD Response Message Template", "length": 0,
            "value": "", "children": []}]},
        {"tag": "9F36", "name": "Application Transaction Counter (ATC)", "length": 2,
         "value": "0042"}],
      "status": {"sw": "6A82", "meaning": "checking error: file or application not found"},
      "error": null})json");
    EXPECT_EQ(json, expected);
    const auto failed = nlohmann::ordered_json::parse(Explainer::toJson(explainHex("9F27 05 80")));
    EXPECT_EQ(failed["error"],
              nlohmann::ordered_json::parse(R"({"offset": 0, "reason": "length past the end"})"));
    EXPECT_EQ(failed["elements"], nlohmann::ordered_json::array());
    // A tag of several kernels without an AID: its candidates are its meaning.
    const auto candidates =
        nlohmann::ordered_json::parse(Explainer::toJson(explainHex("9F70020000")));
    EXPECT_EQ(candidates["elements"][0]["meaning"],
              nlohmann::ordered_json::array({"No AID says which kernel: Mastercard: Protected Data "
                                             "Envelope 1; American Express: Card Interface and "
                                             "Payment Capabilities"}));
    // Templates that end with the data are closed too.
    const auto lastInTemplates =
        nlohmann::ordered_json::parse(Explainer::toJson(explainHex("77 06 70 04 9F27 01 80")));
    EXPECT_EQ(
        lastInTemplates.at("elements").at(0).at("children").at(0).at("children").at(0).at("tag"),
        "9F27");
}

TEST(ExplainerTest, JsonEscapesText) {
    Explanation explanation;
    explanation.elements.push_back(
        {"50", "a \"quoted\" \\ name\x01", 0, "", {}, 0, 1, false, true});
    const auto json = nlohmann::ordered_json::parse(Explainer::toJson(explanation));
    EXPECT_EQ(json["elements"][0]["name"], "a \"quoted\" \\ name\x01");
}

TEST(DictionaryTest, FindsEachTagAndPrefersTheSchemesMeaning) {
    struct Case {
        std::uint32_t tag;
        PaymentScheme scheme;
        const char* name;
    };
    const Case cases[] = {
        {0x42, PaymentScheme::Any, "Issuer Identification Number (IIN)"},
        {0xFF8106, PaymentScheme::Any, "Discretionary Data"},
        {0x9F26, PaymentScheme::Visa, "Application Cryptogram"},
        {0x9F6C, PaymentScheme::Any, "Card Transaction Qualifiers (CTQ)"},
        {0x9F6C, PaymentScheme::Mastercard, "Mag-stripe Application Version Number (Card)"},
        {0x9F6D, PaymentScheme::Amex, "Contactless Reader Capabilities"},
        {0x9F6D, PaymentScheme::UnionPay, "Electronic Cash Reset Threshold"},
        {0x9F6D, PaymentScheme::Jcb, "Kernel-specific data (scheme not known)"},
        {0x9F52, PaymentScheme::Jcb, "Terminal Compatibility Indicator"},
        {0x9F52, PaymentScheme::Visa, "Application Default Action (ADA)"},
        {0x56, PaymentScheme::Any, "Track 1 Data"},
        {0x9F66, PaymentScheme::Discover, "Terminal Transaction Qualifiers (TTQ)"},
    };
    for (const Case& c : cases) {
        const TagInfo* info = EmvDictionary::find(c.tag, c.scheme);
        ASSERT_NE(info, nullptr) << std::hex << c.tag;
        EXPECT_EQ(info->name, c.name);
    }
    for (const std::uint32_t missing : {0x00u, 0x41u, 0x9F00u, 0xDF8100u, 0xFFFFFFFFu}) {
        EXPECT_EQ(EmvDictionary::find(missing), nullptr) << std::hex << missing;
    }
    const TagInfo* pan = EmvDictionary::find(0x5A);
    EXPECT_EQ(formatCode(pan->format), "cn");
    EXPECT_EQ(sourceName(pan->source), "card");
    EXPECT_EQ(pan->templates, "70, 77");
    EXPECT_EQ(pan->maxLength, 10);
    EXPECT_EQ(sourceName(EmvDictionary::find(0x91)->source), "issuer");
    EXPECT_EQ(formatCode(EmvDictionary::find(0x9F4E)->format), "ans");
}

// The whole dictionary in one golden file, compared at once: every entry's tag, scheme,
// format, source, length range, templates and name, to be checked against the books.
TEST(DictionaryTest, MatchesTheGoldenFile) {
    std::string listed =
        "# The explain dictionary: tag, scheme, format, source, length range, templates, name.\n";
    for (const TagInfo& entry : EmvDictionary::entries()) {
        char numbers[48];
        std::snprintf(numbers, sizeof numbers, "%X\t", entry.tag);
        listed += numbers;
        listed += std::string(schemeName(entry.scheme)) + '\t' +
                  std::string(formatCode(entry.format)) + '\t' +
                  std::string(sourceName(entry.source)) + '\t';
        std::snprintf(numbers, sizeof numbers, "%u-%u\t", unsigned{entry.minLength},
                      unsigned{entry.maxLength});
        listed += numbers;
        listed += std::string(entry.templates) + '\t' + std::string(entry.name) + '\n';
        EXPECT_EQ(EmvDictionary::find(entry.tag, entry.scheme), &entry) << std::hex << entry.tag;
    }
    EXPECT_EQ(listed, testing::readSourceFile("tests/Explain/emv-dictionary.golden"));
}

TEST(IsoCodesTest, GeneratedTablesAndMinorUnits) {
    EXPECT_EQ(IsoCodes::currency(840)->alpha3, "USD");
    EXPECT_EQ(IsoCodes::currency(978)->name, "Euro");
    EXPECT_EQ(IsoCodes::currency(8)->alpha3, "ALL");  // written 008
    EXPECT_FALSE(IsoCodes::currency(0).has_value());
    EXPECT_EQ(IsoCodes::country(826)->alpha3, "GBR");
    EXPECT_EQ(IsoCodes::country(4)->name, "Afghanistan");
    EXPECT_EQ(IsoCodes::country(894)->alpha2, "ZM");  // the last entry
    EXPECT_FALSE(IsoCodes::country(1).has_value());
    EXPECT_EQ(IsoCodes::language("en")->name, "English");
    EXPECT_EQ(IsoCodes::language("zu")->name, "Zulu");  // the last entry
    EXPECT_FALSE(IsoCodes::language("EN").has_value());
    // Every ISO 4217 currency whose minor unit is not 2, then a few that are 2.
    const std::pair<std::uint16_t, int> kUnits[] = {
        {48, 3},  {108, 0}, {152, 0}, {174, 0}, {262, 0}, {324, 0}, {352, 0}, {368, 3},
        {392, 0}, {400, 3}, {410, 0}, {414, 3}, {434, 3}, {512, 3}, {548, 0}, {600, 0},
        {646, 0}, {704, 0}, {788, 3}, {800, 0}, {927, 4}, {940, 0}, {950, 0}, {952, 0},
        {953, 0}, {990, 4}, {840, 2}, {978, 2}, {0, 2},   {999, 2}};
    for (const auto& [code, units] : kUnits)
        EXPECT_EQ(IsoCodes::minorUnits(code), units) << code;
}

// First and last member of each range, and the numbers just outside.
TEST(CardRangesTest, RangeBoundaries) {
    using S = PaymentScheme;
    struct Case {
        const char* pan;
        std::vector<S> schemes;
    };
    const Case cases[] = {
        {"4000000000000002", {S::Visa}},
        {"3999999999999999", {S::Diners}},
        {"5100000000000000", {S::Mastercard}},
        {"5599999999999999", {S::Mastercard}},
        {"5000000000000000", {S::Maestro}},
        {"5600000000000000", {S::Maestro}},
        {"2221000000000000", {S::Mastercard}},
        {"2720999999999999", {S::Mastercard}},
        {"2220999999999999", {}},
        {"2721000000000000", {}},
        {"2200000000000000", {S::Mir}},
        {"2204999999999999", {S::Mir}},
        {"2205000000000000", {}},
        {"340000000000000", {S::Amex}},
        {"370000000000000", {S::Amex}},
        {"350000000000000", {}},
        {"6011000000000000", {S::Discover, S::Maestro, S::RuPay}},
        {"6012000000000000", {S::Maestro, S::RuPay}},
        {"6440000000000000", {S::Discover, S::Maestro}},
        {"6490000000000000", {S::Discover, S::Maestro}},
        {"6430000000000000", {S::Maestro}},
        {"6221260000000000", {S::Discover, S::UnionPay, S::Maestro}},
        {"6229250000000000", {S::Discover, S::UnionPay, S::Maestro}},
        {"6229260000000000", {S::UnionPay, S::Maestro}},
        {"6221250000000000", {S::UnionPay, S::Maestro}},
        {"3000000000000000", {S::Diners}},
        {"3059999999999999", {S::Diners}},
        {"3060000000000000", {}},
        {"3094999999999999", {}},
        {"3095000000000000", {S::Diners}},
        {"3096000000000000", {}},
        {"3600000000000000", {S::Diners}},
        {"3800000000000000", {S::Diners}},
        {"3528000000000000", {S::Jcb}},
        {"3589999999999999", {S::Jcb}},
        {"3527999999999999", {}},
        {"3590000000000000", {}},
        {"3530000000000000", {S::Jcb, S::RuPay}},
        {"3540000000000000", {S::Jcb}},
        {"3560000000000000", {S::Jcb, S::RuPay}},
        {"8100000000000000", {S::UnionPay, S::RuPay}},
        {"8200000000000000", {S::RuPay}},
        {"8300000000000000", {}},
        {"9792000000000000", {S::Troy}},
        {"9791999999999999", {}},
        {"9793000000000000", {}},
        {"6520000000000000", {S::Discover, S::Maestro, S::Troy, S::RuPay}},
        {"6000000000000000", {S::Maestro, S::RuPay}},
        {"5080000000000000", {S::Maestro, S::RuPay}},
        {"6999999999999999", {S::Maestro}},
        {"7000000000000000", {}},
        {"4", {S::Visa}},
        {"", {}},
        {"X4111", {}},
        {"476173******0010", {S::Visa}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CardRanges::schemesOf(c.pan), c.schemes) << c.pan;
    }
    EXPECT_FALSE(CardRanges::hasOwnRanges(S::Eftpos));
    EXPECT_FALSE(CardRanges::hasOwnRanges(S::CartesBancaires));
    EXPECT_TRUE(CardRanges::hasOwnRanges(S::Mir));
}

}  // namespace
}  // namespace vastrel
