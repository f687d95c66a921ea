// The bit maps of EMV 4.4 and the contactless kernels, with the books' wording for every bit,
// the XDA (elliptic curve) and biometric bits among them.
#include <iterator>
#include <span>

#include "DecoderParts.hpp"

namespace vastrel::explain {
namespace {

// The name of a bit that belongs to a field of several bits, which its own decoder reads.
constexpr std::string_view kFieldBit = "(field)";

// One finding per set bit, in byte and bit order; RFU bits that are set are reported as such.
void bitMap(Value value, std::span<const ByteBits> bytes, Findings& out) {
    if (!requireLength(value, bytes.size(), out)) return;
    const std::size_t before = out.size();
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (int bit = 8; bit >= 1; --bit) {
            if ((value[i] & (1u << (bit - 1))) == 0) continue;
            const std::string_view name = bytes[i][8 - bit];
            if (name == kFieldBit) continue;
            out.push_back(name.empty() ? "byte " + std::to_string(i + 1) + " bit " +
                                             std::to_string(bit) + ": RFU bit set"
                                       : std::string(name));
        }
    }
    if (out.size() == before) out.emplace_back("no bit set");
}

constexpr ByteBits kTvr[] = {
    {"Offline data authentication was not performed", "SDA failed", "ICC data missing",
     "Card appears on terminal exception file", "DDA failed", "CDA failed", "SDA selected",
     "XDA selected"},
    {"ICC and terminal have different application versions", "Expired application",
     "Application not yet effective", "Requested service not allowed for card product", "New card",
     "", "Biometric performed and successful", "Biometric template format not supported"},
    {"Cardholder verification was not successful", "Unrecognised CVM", "PIN Try Limit exceeded",
     "PIN entry required and PIN pad not present or not working",
     "PIN entry required, PIN pad present, but PIN was not entered", "Online PIN entered",
     "Online biometric captured", "Biometric subtype entry limit exceeded"},
    {"Transaction exceeds floor limit", "Lower consecutive offline limit exceeded",
     "Upper consecutive offline limit exceeded",
     "Transaction selected randomly for online processing", "Merchant forced transaction online",
     "", "", ""},
    {"Default TDOL used", "Issuer authentication failed",
     "Script processing failed before final GENERATE AC",
     "Script processing failed after final GENERATE AC",
     "Relay resistance threshold exceeded (contactless kernels)",
     "Relay resistance time limits exceeded (contactless kernels)", kFieldBit, kFieldBit},
};

// TVR byte 5 bits 2 and 1 are one field: whether relay resistance was performed.
constexpr std::string_view kRelayResistance[] = {
    "Relay resistance protocol not supported (contactless kernels)",
    "Relay resistance protocol not performed (contactless kernels)",
    "Relay resistance protocol performed (contactless kernels)",
    "Relay resistance performed: RFU value 11",
};
constexpr std::size_t kRelayResistanceByte = 4;
constexpr std::uint8_t kRelayResistanceBits = 0x03;

constexpr ByteBits kTsi[] = {
    {"Offline data authentication was performed", "Cardholder verification was performed",
     "Card risk management was performed", "Issuer authentication was performed",
     "Terminal risk management was performed", "Script processing was performed", "", ""},
    {"", "", "", "", "", "", "", ""},
};

constexpr ByteBits kAip[] = {
    {"XDA supported", "SDA supported", "DDA supported", "Cardholder verification is supported",
     "Terminal risk management is to be performed", "Issuer authentication is supported",
     "On device cardholder verification is supported (contactless kernels)", "CDA supported"},
    {"EMV mode is supported (contactless kernels)", "", "", "", "", "", "",
     "Relay resistance protocol is supported (contactless kernels)"},
};

constexpr ByteBits kAuc[] = {
    {"Valid for domestic cash transactions", "Valid for international cash transactions",
     "Valid for domestic goods", "Valid for international goods", "Valid for domestic services",
     "Valid for international services", "Valid at ATMs", "Valid at terminals other than ATMs"},
    {"Domestic cashback allowed", "International cashback allowed", "", "", "", "", "", ""},
};

constexpr ByteBits kTerminalCapabilities[] = {
    {"Card data input: manual key entry", "Card data input: magnetic stripe",
     "Card data input: IC with contacts", "", "", "", "", ""},
    {"CVM: plaintext PIN for ICC verification", "CVM: enciphered PIN for online verification",
     "CVM: signature (paper)", "CVM: enciphered PIN for offline verification",
     "CVM: no CVM required", "CVM: online biometric", "CVM: offline biometric", ""},
    {"Security: SDA", "Security: DDA", "Security: card capture", "", "Security: CDA",
     "Security: XDA", "", ""},
};

constexpr ByteBits kAdditionalTerminalCapabilities[] = {
    {"Transaction type: cash", "Transaction type: goods", "Transaction type: services",
     "Transaction type: cashback", "Transaction type: inquiry", "Transaction type: transfer",
     "Transaction type: payment", "Transaction type: administrative"},
    {"Transaction type: cash deposit", "", "", "", "", "", "", ""},
    {"Terminal data input: numeric keys",
     "Terminal data input: alphabetic and special characters keys",
     "Terminal data input: command keys", "Terminal data input: function keys", "", "", "", ""},
    {"Terminal data output: print, attendant", "Terminal data output: print, cardholder",
     "Terminal data output: display, attendant", "Terminal data output: display, cardholder", "",
     "", "Terminal data output: code table 10", "Terminal data output: code table 9"},
    {"Terminal data output: code table 8", "Terminal data output: code table 7",
     "Terminal data output: code table 6", "Terminal data output: code table 5",
     "Terminal data output: code table 4", "Terminal data output: code table 3",
     "Terminal data output: code table 2", "Terminal data output: code table 1"},
};

constexpr ByteBits kTtq[] = {
    {"Mag-stripe mode supported", "", "EMV mode supported", "EMV contact chip supported",
     "Offline-only reader", "Online PIN supported", "Signature supported",
     "Offline Data Authentication for Online Authorizations supported"},
    {"Online cryptogram required", "CVM required", "(Contact Chip) Offline PIN supported", "", "",
     "", "", ""},
    {"Issuer Update Processing supported", "Consumer Device CVM supported", "", "", "", "", "", ""},
    {"", "", "", "", "", "", "", ""},
};

constexpr ByteBits kCtq[] = {
    {"Online PIN Required", "Signature Required",
     "Go Online if Offline Data Authentication Fails and Reader is online capable",
     "Switch Interface if Offline Data Authentication fails and Reader supports contact chip",
     "Go Online if Application Expired", "Switch Interface for Cash Transactions",
     "Switch Interface for Cashback Transactions", "Valid for Contactless ATM Transactions"},
    {"Consumer Device CVM Performed", "Card supports Issuer Update Processing at the POS", "", "",
     "", "", "", ""},
};

}  // namespace

void terminalVerificationResults(Value value, Findings& out) {
    const std::size_t before = out.size();
    bitMap(value, kTvr, out);
    if (value.size() != std::size(kTvr)) return;
    const std::uint8_t field = value[kRelayResistanceByte] & kRelayResistanceBits;
    if (field == 0) return;
    // The field replaces the "no bit set" that the flags alone would give.
    if (out.size() == before + 1 && out.back() == "no bit set") out.pop_back();
    out.emplace_back(kRelayResistance[field]);
}
void transactionStatusInformation(Value value, Findings& out) { bitMap(value, kTsi, out); }
void applicationInterchangeProfile(Value value, Findings& out) { bitMap(value, kAip, out); }
void applicationUsageControl(Value value, Findings& out) { bitMap(value, kAuc, out); }
void terminalCapabilities(Value value, Findings& out) { bitMap(value, kTerminalCapabilities, out); }
void additionalTerminalCapabilities(Value value, Findings& out) {
    bitMap(value, kAdditionalTerminalCapabilities, out);
}
void terminalTransactionQualifiers(Value value, Findings& out) { bitMap(value, kTtq, out); }
void cardTransactionQualifiers(Value value, Findings& out) { bitMap(value, kCtq, out); }

}  // namespace vastrel::explain
