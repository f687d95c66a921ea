#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

#include "Codec/CodecRules.hpp"
#include "Tags/TagNameTable.hpp"

namespace vastrel {
namespace tagnames {
namespace {

// Names as Vastrel has always given them, misspellings included ("Issuer Action Code
// (Defaul)t", "Transaction SequenceCounter", 9F09 named like 9F08): callers show and compare
// these texts, so they stay exactly as they are. DF01 to DF18 are the card reader's
// proprietary elements.
constexpr std::array<TagNameEntry, 136> kEntries = {{
    {"42", "Issuer Identification Number (IIN)"},
    {"4F", "Application Identifier (AID) from card"},
    {"50", "Application Label"},
    {"57", "Track 2 Equivalent Data"},
    {"5A", "Application Primary Account Number (PAN)"},
    {"61", "Application Template"},
    {"6F", "File Control Information (FCI) Template"},
    {"70", "EMV Proprietary Template"},
    {"71", "Issuer Script Template 1"},
    {"72", "Issuer Script Template 2"},
    {"73", "Directory Discretionary Template"},
    {"77", "Response Message Template Format 2"},
    {"80", "Response Message Template Format 1"},
    {"81", "Amount, Authorised (Binary)"},
    {"82", "Application Interchange Profile"},
    {"83", "Command Template"},
    {"84", "Dedicated File (DF) Name"},
    {"86", "Issuer Script Command"},
    {"87", "Application Priority Indicator"},
    {"88", "Short File Identifier (SFI)"},
    {"89", "Authorisation Code"},
    {"8A", "Authorisation Response Code"},
    {"8C", "Card Risk Management Data Object List 1 (CDOL1)"},
    {"8D", "Card Risk Management Data Object List 2 (CDOL2)"},
    {"8E", "Cardholder Verification Method (CVM) List"},
    {"8F", "Certification Authority Public Key Index"},
    {"90", "Issuer Public Key Certificate"},
    {"91", "Issuer Authentication Data"},
    {"92", "Issuer Public Key Remainder"},
    {"93", "Signed Static Application Data"},
    {"94", "Application File Locator (AFL)"},
    {"95", "Terminal Verification Results"},
    {"97", "Transaction Certificate Data Object List (TDOL)"},
    {"98", "Transaction Certificate (TC) Hash Value"},
    {"99", "Transaction Personal Identification Number (PIN) Data"},
    {"9A", "Transaction Date"},
    {"9B", "Transaction Status Information"},
    {"9C", "Transaction Type"},
    {"9D", "Directory Definition File (DDF) Name"},
    {"A5", "File Control Information (FCI) Proprietary Template"},
    {"E0", "Receive Data Elements"},
    {"E1", "Issue Data Elements (Secure)"},
    {"E2", "Decision"},
    {"E3", "Issue Data Elements (Non-Secure)"},
    {"C2", "Encrypted Data"},
    {"5F20", "Cardholder Name"},
    {"5F24", "Application Expiration Date"},
    {"5F25", "Application Effective Date"},
    {"5F28", "Issuer Country Code"},
    {"5F2A", "Transaction Currency Code"},
    {"5F2D", "Language Preference"},
    {"5F30", "Service Code"},
    {"5F34", "Application Primary Account Number (PAN) Sequence Number"},
    {"5F36", "Transaction Currency Exponent"},
    {"5F50", "Issuer URL"},
    {"5F53", "International Bank Account Number (IBAN)"},
    {"5F54", "Bank Identifier Code (BIC)"},
    {"5F55", "Issuer Country Code (alpha2 format)"},
    {"5F56", "Issuer Country Code (alpha3format)"},
    {"5F57", "Account Type"},
    {"9F01", "Acquirer Identifier"},
    {"9F02", "Amount, Authorised (Numeric)"},
    {"9F03", "Amount, Other (Numeric)"},
    {"9F04", "Amount, Other (Binary)"},
    {"9F05", "Application Discretionary Data"},
    {"9F06", "Application Identifier (AID) from terminal"},
    {"9F07", "Application Usage Control"},
    {"9F08", "Application Version Number"},
    {"9F09", "Application Version Number"},
    {"9F0B", "Cardholder Name Extended"},
    {"9F0D", "Issuer Action Code (Defaul)t"},
    {"9F0E", "Issuer Action Code (Denial)"},
    {"9F0F", "Issuer Action Code (Online)"},
    {"9F10", "Issuer Application Data"},
    {"9F11", "Issuer Code Table Index"},
    {"9F12", "Application Preferred Name"},
    {"9F13", "Last Online Application Transaction Counter (ATC) Register"},
    {"9F14", "Lower Consecutive Offline Limit"},
    {"9F15", "Merchant Category Code"},
    {"9F16", "Merchant Identifier"},
    {"9F17", "Personal Identification Number (PIN) Try Counter"},
    {"9F18", "Issuer Script Identifier"},
    {"9F1A", "Terminal Country Code"},
    {"9F1B", "Terminal Floor Limit"},
    {"9F1C", "Terminal Identification"},
    {"9F1D", "Terminal Risk Management Data"},
    {"9F1E", "Interface Device (IFD) Serial Number"},
    {"9F1F", "Track 1 Discretionary Data"},
    {"9F20", "Track 2 Discretionary Data"},
    {"9F21", "Transaction Time"},
    {"9F22", "Certification Authority Public Key Index"},
    {"9F23", "Upper Consecutive Offline Limit"},
    {"9F26", "Application Cryptogram"},
    {"9F27", "Cryptogram Information Data"},
    {"9F2D", "Integrated Circuit Card (ICC) PIN Encipherment Public Key Certificate"},
    {"9F2E", "Integrated Circuit Card (ICC) PIN Encipherment Public Key Exponent"},
    {"9F2F", "Integrated Circuit Card (ICC) PIN Encipherment Public Key Remainder"},
    {"9F32", "Issuer Public Key Exponent"},
    {"9F33", "Terminal Capabilities"},
    {"9F34", "Cardholder Verification Method (CVM) Results"},
    {"9F35", "Terminal Type"},
    {"9F36", "Application Transaction Counter (ATC)"},
    {"9F37", "Unpredictable Number"},
    {"9F38", "Processing Options Data Object List (PDOL)"},
    {"9F39", "Point-of-Service (POS) Entry Mode"},
    {"9F3A", "Amount, Reference Currency"},
    {"9F3B", "Application Reference Currency"},
    {"9F3C", "Transaction Reference Currency Code"},
    {"9F3D", "TransactionReference Currency Exponent"},
    {"9F40", "Additional Terminal Capabilities"},
    {"9F41", "Transaction SequenceCounter"},
    {"9F42", "Application Currency Code"},
    {"9F43", "Application Reference Currency Exponent"},
    {"9F44", "Application Currency Exponent"},
    {"9F45", "Data Authentication Code"},
    {"9F46", "Integrated Circuit Card (ICC) Public Key Certificate"},
    {"9F47", "Integrated Circuit Card (ICC) Public Key Exponent"},
    {"9F48", "Integrated Circuit Card (ICC) Public Key Remainder"},
    {"9F49", "Dynamic Data Authentication Data Object List(DDOL)"},
    {"9F4A", "Static Data Authentication Tag List"},
    {"9F4B", "Signed Dynamic Application Data"},
    {"9F4C", "ICC Dynamic Number"},
    {"9F4D", "Log Entry"},
    {"9F4E", "Merchant Name and Location"},
    {"9F4F", "Log Format"},
    {"BF0C", "File Control Information (FCI) Issuer Discretionary Data"},
    {"DF01", "Digits"},
    {"DF02", "Status Bytes"},
    {"DF11", "Acquirer ID"},
    {"DF12", "Answer To Reset (ATR)"},
    {"DF13", "ISO 7811 Track 1 card data"},
    {"DF14", "ISO 7811 Track 2 card data"},
    {"DF15", "ISO 7811 Track 3 card data"},
    {"DF16", "Enciphered PIN Block"},
    {"DF17", "Key Serial Number"},
    {"DF18", "Risk Management"},
}};

// Lookups go through a direct index instead of a search. Every listed tag is one byte, or
// two bytes led by one of the few bytes below; that gives each tag its own slot: the byte
// itself for a one-byte tag, 256 * (1 + leading position) + second byte for a two-byte tag.
constexpr std::array<std::uint8_t, 4> kLeadingBytes = {0x5F, 0x9F, 0xBF, 0xDF};
constexpr std::size_t kSlotCount = 256 * (1 + kLeadingBytes.size());

// The first slot of the two-byte tags led by each byte, 0 for a byte that leads none.
constexpr std::array<std::uint16_t, 256> kLeadSlot = [] {
    std::array<std::uint16_t, 256> slots{};
    for (std::size_t lead = 0; lead < kLeadingBytes.size(); ++lead)
        slots[kLeadingBytes[lead]] = static_cast<std::uint16_t>(256 * (1 + lead));
    return slots;
}();

// The slot of a tag's bytes, or absent when no listed tag has that length and lead.
constexpr std::optional<std::size_t> slotOf(std::span<const std::uint8_t> tag) {
    if (tag.size() == 1) return tag[0];
    if (tag.size() != 2 || kLeadSlot[tag[0]] == 0) return std::nullopt;
    return std::size_t{kLeadSlot[tag[0]]} + tag[1];
}

// The slot of a tag text. Lookups are case-sensitive: only uppercase hex digits are read.
constexpr std::optional<std::size_t> slotOf(std::string_view tag) {
    if (tag.size() != 2 && tag.size() != 4) return std::nullopt;
    std::array<std::uint8_t, 2> bytes{};
    for (std::size_t i = 0; i < tag.size() / 2; ++i) {
        const int byte = codec::hexByte(tag[2 * i], tag[2 * i + 1], true);
        if (byte < 0) return std::nullopt;
        bytes[i] = static_cast<std::uint8_t>(byte);
    }
    return slotOf(std::span<const std::uint8_t>(bytes.data(), tag.size() / 2));
}

static_assert(kEntries.size() < 255, "positions must fit the index bytes");

// Position + 1 of the entry in each slot, 0 for an empty slot. Building it fails to compile
// if a tag has no slot (a missing row leaves an empty tag) or two entries share one.
constexpr std::array<std::uint8_t, kSlotCount> kPositionBySlot = [] {
    std::array<std::uint8_t, kSlotCount> positions{};
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const std::size_t slot = slotOf(kEntries[i].tag).value();
        if (positions[slot] != 0) throw std::logic_error("tag listed twice");
        positions[slot] = static_cast<std::uint8_t>(i + 1);
    }
    return positions;
}();

// The name listed in a slot, or absent.
constexpr std::optional<std::string_view> nameIn(std::optional<std::size_t> slot) {
    if (!slot) return std::nullopt;
    const std::uint8_t position = kPositionBySlot[*slot];
    if (position == 0) return std::nullopt;
    return kEntries[position - 1].name;
}

}  // namespace

std::span<const TagNameEntry> allEntries() { return kEntries; }

}  // namespace tagnames

// Defined beside the table rather than with the rest of Tag, so that the lookup is compiled
// into it: the names are what the decoder asks for most, once per element. Lookups are
// case-sensitive.
std::string_view Tag::tagNameView(std::string_view tag) noexcept {
    return tagnames::nameIn(tagnames::slotOf(tag)).value_or(Tag::kUnknownTagName);
}

}  // namespace vastrel
