#include "vastrel/Tags/EMVTagHelper.hpp"

#include <cstdint>

#include "TagNameTable.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Tags/CardholderAuthenticationMethods.hpp"

namespace vastrel {
namespace {

// The tags below are fixed, well-formed hex, so a tag is always read from them.
Tag fixedTag(std::string_view hex) { return EMVTagHelper::berTagFromInt(hex).value(); }

struct CvmCodeMethod {
    std::string_view code;
    std::uint64_t method;
};

// Tested in this order, first match wins. The point-of-sale layer reads these values as
// they are, including where they differ from the receipt's reading: the apply-next form
// counts for 02, 05, 1E and 1F but not for 01 (41 gives 0), and 03 is not listed (0).
constexpr CvmCodeMethod kMethodsByCode[] = {
    {"3F", 9}, {"7F", 9},  // no CVM performed, and its apply-next form
    {"00", 0},             // failed CVM processing
    {"1F", 0}, {"5F", 0},  // no CVM required
    {"01", 2},             // plaintext PIN verified by the card
    {"02", 1}, {"42", 1},  // enciphered PIN verified online
    {"05", 4}, {"45", 4},  // enciphered PIN by the card and signature
    {"1E", 4}, {"5E", 4},  // signature
};

constexpr std::uint64_t kNothingToDecode = 9;
constexpr std::uint64_t kUnrecognised = 0;

struct MethodMeaning {
    std::uint64_t method;
    std::string_view meaning;
};

// Every value the reading gives, with the codes above that give it.
constexpr MethodMeaning kMeanings[] = {
    {kUnrecognised, "no CVM required, CVM failed, or a code not recognised"},
    {1, "enciphered PIN verified online"},
    {2, "plaintext PIN verified by the card"},
    {4, "signature, or enciphered PIN verified by the card and signature"},
    {kNothingToDecode, "no CVM performed"},
};

}  // namespace

std::span<const TagNameEntry> EMVTagHelper::tagNameDictionary() { return tagnames::allEntries(); }

std::optional<Tag> EMVTagHelper::berTagFromInt(std::string_view tlv) {
    return TLVUtility::tagFromTLVString(tlv);
}

Tag EMVTagHelper::applicationIdentifier() { return fixedTag("4F"); }
Tag EMVTagHelper::applicationLabel() { return fixedTag("50"); }
Tag EMVTagHelper::applicationPrefName() { return fixedTag("9F12"); }
Tag EMVTagHelper::bankIdentifier() { return fixedTag("5F54"); }
Tag EMVTagHelper::cryptogram() { return fixedTag("9F27"); }
Tag EMVTagHelper::emvChipIndicator() { return fixedTag("9F6E"); }
Tag EMVTagHelper::merchantIdentifier() { return fixedTag("9F16"); }
Tag EMVTagHelper::cardholderVerificationMethod() { return fixedTag("9F34"); }
Tag EMVTagHelper::terminalIdentifier() { return fixedTag("9F1C"); }
Tag EMVTagHelper::terminalVerificationResults() { return fixedTag("95"); }
Tag EMVTagHelper::transactionStatusInformation() { return fixedTag("9B"); }
Tag EMVTagHelper::cardHolderName() { return fixedTag("5F20"); }

CardholderAuthenticationMethod EMVTagHelper::cardholderAuthenticationMethodfromTlv(
    std::optional<std::string_view> value) {
    if (!value || value->empty()) return CardholderAuthenticationMethod{kNothingToDecode};
    // Neither upper-cased nor checked for even length; a single character matches nothing.
    const std::string_view code = value->size() >= 2 ? value->substr(0, 2) : std::string_view{};
    for (const CvmCodeMethod& row : kMethodsByCode) {
        if (row.code == code) return CardholderAuthenticationMethod{row.method};
    }
    return CardholderAuthenticationMethod{kUnrecognised};
}

std::string_view CardholderAuthenticationMethods::meaning(CardholderAuthenticationMethod method) {
    for (const MethodMeaning& row : kMeanings) {
        if (row.method == static_cast<std::uint64_t>(method)) return row.meaning;
    }
    return {};
}

}  // namespace vastrel
