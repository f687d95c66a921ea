// Fields whose values are codes from a list: the CVM list and results, terminal type,
// cryptogram information, POS entry mode, transaction type, and the issuer application data.
#include <algorithm>
#include <string_view>
#include <utility>

#include "DecoderParts.hpp"
#include "vastrel/Explain/CommandApdu.hpp"

namespace vastrel::explain {
namespace {

struct Code {
    std::uint8_t code;
    std::string_view meaning;
};

std::string_view lookup(std::span<const Code> codes, std::uint8_t code,
                        std::string_view otherwise) {
    for (const auto& entry : codes) {
        if (entry.code == code) return entry.meaning;
    }
    return otherwise;
}

constexpr std::uint8_t kCvmMethodMask = 0x3F;
constexpr std::uint8_t kApplyNextRuleBit = 0x40;

constexpr Code kCvmMethods[] = {
    {0x00, "Fail CVM processing"},
    {0x01, "Plaintext PIN verification performed by ICC"},
    {0x02, "Enciphered PIN verified online"},
    {0x03, "Plaintext PIN verification performed by ICC and signature (paper)"},
    {0x04, "Enciphered PIN verification performed by ICC"},
    {0x05, "Enciphered PIN verification performed by ICC and signature (paper)"},
    {0x06, "Facial biometric verified offline (by ICC)"},
    {0x07, "Facial biometric verified online"},
    {0x08, "Finger biometric verified offline (by ICC)"},
    {0x09, "Finger biometric verified online"},
    {0x0A, "Palm biometric verified offline (by ICC)"},
    {0x0B, "Palm biometric verified online"},
    {0x0C, "Iris biometric verified offline (by ICC)"},
    {0x0D, "Iris biometric verified online"},
    {0x0E, "Voice biometric verified offline (by ICC)"},
    {0x0F, "Voice biometric verified online"},
    {0x1E, "Signature (paper)"},
    {0x1F, "No CVM required"},
    {0x3F, "No CVM performed"},
};

std::string_view cvmMethod(std::uint8_t byte) {
    const std::uint8_t method = byte & kCvmMethodMask;
    if (method >= 0x20 && method <= 0x2F) return "Method reserved for the payment system";
    if (method >= 0x30 && method <= 0x3E) return "Method reserved for the issuer";
    return lookup(kCvmMethods, method, "Method reserved for future use");
}

constexpr Code kCvmConditions[] = {
    {0x00, "Always"},
    {0x01, "If unattended cash"},
    {0x02, "If not unattended cash and not manual cash and not purchase with cashback"},
    {0x03, "If terminal supports the CVM"},
    {0x04, "If manual cash"},
    {0x05, "If purchase with cashback"},
    {0x06, "If transaction is in the application currency and is under X value"},
    {0x07, "If transaction is in the application currency and is over X value"},
    {0x08, "If transaction is in the application currency and is under Y value"},
    {0x09, "If transaction is in the application currency and is over Y value"},
};

std::string_view cvmCondition(std::uint8_t code) {
    if (code >= 0x80) return "Condition reserved for the payment system";
    return lookup(kCvmConditions, code, "Condition reserved for future use");
}

constexpr Code kCvmOutcomes[] = {{0, "Unknown"}, {1, "Failed"}, {2, "Successful"}};

constexpr Code kTerminalOperators[] = {
    {1, "Financial institution"}, {2, "Merchant"}, {3, "Cardholder"}};
constexpr Code kTerminalEnvironments[] = {
    {1, "attended, online only"},
    {2, "attended, offline with online capability"},
    {3, "attended, offline only"},
    {4, "unattended, online only"},
    {5, "unattended, offline with online capability"},
    {6, "unattended, offline only"},
};

constexpr Code kCryptogramTypes[] = {
    {0, "AAC (transaction declined)"},
    {1, "TC (transaction approved)"},
    {2, "ARQC (online authorisation requested)"},
    {3, "RFU cryptogram type"},
};
constexpr Code kAdviceReasons[] = {
    {1, "Reason: service not allowed"},
    {2, "Reason: PIN Try Limit exceeded"},
    {3, "Reason: issuer authentication failed"},
};

constexpr Code kPosEntryModes[] = {
    {0x00, "Unknown or unspecified"},
    {0x01, "Manual key entry"},
    {0x02, "Magnetic stripe read, track data may be incomplete"},
    {0x03, "Bar code"},
    {0x04, "Optical character recognition"},
    {0x05, "Integrated circuit card (contact chip)"},
    {0x07, "Contactless chip (EMV mode)"},
    {0x10, "Credential on file"},
    {0x79, "Chip could not be read; key entry fallback"},
    {0x80, "Chip could not be read; magnetic stripe fallback"},
    {0x81, "Electronic commerce"},
    {0x90, "Magnetic stripe read, full track data"},
    {0x91, "Contactless magnetic stripe (mag-stripe mode)"},
    {0x95, "Integrated circuit card, card verification value may not be checked"},
};

constexpr Code kTransactionTypes[] = {
    {0x00, "Goods and services (purchase)"},
    {0x01, "Cash withdrawal or cash advance"},
    {0x09, "Purchase with cashback"},
    {0x11, "Quasi-cash"},
    {0x20, "Refund or return"},
    {0x21, "Deposit"},
    {0x30, "Available funds inquiry"},
    {0x31, "Balance inquiry"},
    {0x40, "Cardholder accounts transfer"},
    {0x50, "Payment"},
    {0x60, "Load"},
    {0x70, "PIN change or unblock"},
};

void cvmRule(Value rule, Findings& out, std::string_view label) {
    std::string line(label);
    line += cvmMethod(rule[0]);
    line += ", ";
    line += cvmCondition(rule[1]);
    line += (rule[0] & kApplyNextRuleBit) != 0 ? "; if it fails, apply the next rule"
                                               : "; if it fails, cardholder verification fails";
    out.push_back(std::move(line));
}

// Issuer application data: each layout is told by its length and its format byte.
void commonCoreDefinitions(Value value, Findings& out) {
    out.push_back("Layout: EMV Common Core Definitions, format A, cryptogram version " +
                  std::to_string(value[1] & 0x0F) +
                  ((value[1] & 0x0F) == 5   ? " (Triple DES)"
                   : (value[1] & 0x0F) == 6 ? " (AES)"
                                            : ""));
    out.push_back("Derivation key index: " + hex(value[2]));
    out.push_back("Card verification results: " + hex(value.subspan(3, 5)));
    out.push_back("Issuer discretionary data: " + hex(value.subspan(16)));
}

void visaFormat2(Value value, Findings& out) {
    out.push_back("Layout: Visa format 2, cryptogram version number " + hex(value[1]));
    out.push_back("Derivation key index: " + hex(value[2]));
    out.push_back("Card verification results: " + hex(value.subspan(3, 5)));
    out.push_back("Issuer discretionary data: " + hex(value.subspan(8)));
}

// The card verification results of Visa and M/Chip share their first fields: the cryptograms
// of the two GENERATE ACs in the top four bits of one byte, and the count of script commands
// in the top four bits of another.
void cvrAcTypes(std::uint8_t byte, Findings& out) {
    static constexpr std::string_view kSecondAc[] = {
        "AAC returned in second GENERATE AC", "TC returned in second GENERATE AC",
        "Second GENERATE AC not requested", "Second GENERATE AC: RFU value"};
    static constexpr std::string_view kFirstAc[] = {
        "AAC returned in first GENERATE AC", "TC returned in first GENERATE AC",
        "ARQC returned in first GENERATE AC", "First GENERATE AC: RFU value"};
    out.push_back("CVR: " + std::string(kSecondAc[byte >> 6]));
    out.push_back("CVR: " + std::string(kFirstAc[(byte >> 4) & 0x03]));
}

void cvrScriptCount(std::uint8_t byte, Findings& out) {
    if (const int scripts = byte >> 4; scripts != 0) {
        out.push_back("CVR: " + std::to_string(scripts) +
                      " issuer script commands with secure messaging processed");
    }
}

// The named bits of one CVR byte that are set; unnamed bits belong to fields read elsewhere.
void cvrFlags(std::uint8_t byte, const ByteBits& names, Findings& out) {
    for (int bit = 8; bit >= 1; --bit) {
        if ((byte & (1u << (bit - 1))) != 0 && !names[8 - bit].empty()) {
            out.push_back("CVR: " + std::string(names[8 - bit]));
        }
    }
}

// The Visa card verification results of formats 0, 1 and 3: a length byte, then three bytes
// of what the card did and saw, bit by bit.
void visaCardVerificationResults(Value cvr, Findings& out) {
    static constexpr ByteBits kByte2Flags = {"",
                                             "",
                                             "",
                                             "",
                                             "Issuer authentication performed and failed",
                                             "Offline PIN verification performed",
                                             "Offline PIN verification failed",
                                             "Unable to go online"};
    static constexpr ByteBits kByte3 = {
        "Last online transaction not completed",
        "PIN Try Limit exceeded",
        "Exceeded velocity checking counters",
        "New card",
        "Issuer authentication failure on last online transaction",
        "Issuer authentication not performed after online authorisation",
        "Application blocked by card because PIN Try Limit exceeded",
        "Offline static data authentication failed on last transaction and transaction declined "
        "offline"};
    static constexpr ByteBits kByte4Flags = {
        "",
        "",
        "",
        "",
        "Issuer script processing failed",
        "Offline dynamic data authentication failed on last transaction and transaction declined "
        "offline",
        "Offline dynamic data authentication performed",
        "PIN verification command not received for a PIN-expecting card"};
    if (cvr.size() != 4) return;
    cvrAcTypes(cvr[1], out);
    cvrFlags(cvr[1], kByte2Flags, out);
    cvrFlags(cvr[2], kByte3, out);
    cvrScriptCount(cvr[3], out);
    cvrFlags(cvr[3], kByte4Flags, out);
}

void visaFormat013(Value value, Findings& out) {
    out.push_back("Layout: Visa format 0, 1 or 3, cryptogram version number " + hex(value[2]) +
                  (value[2] == 0x0A   ? " (CVN 10)"
                   : value[2] == 0x11 ? " (CVN 17)"
                   : value[2] == 0x12 ? " (CVN 18)"
                                      : ""));
    out.push_back("Derivation key index: " + hex(value[1]));
    out.push_back("Card verification results: " + hex(value.subspan(3, 4)));
    visaCardVerificationResults(value.subspan(3, 4), out);
    if (value.size() > 7) out.push_back("Issuer discretionary data: " + hex(value.subspan(7)));
}

// The M/Chip card verification results: six bytes of what the card did and saw.
void mchipCardVerificationResults(Value cvr, Findings& out) {
    static constexpr ByteBits kByte1Flags = {"",
                                             "",
                                             "",
                                             "",
                                             "",
                                             "Offline PIN verification performed",
                                             "Offline encrypted PIN verification performed",
                                             "Offline PIN verification successful"};
    static constexpr ByteBits kByte2 = {"DDA returned",
                                        "Combined DDA/AC generation returned in first GENERATE AC",
                                        "Combined DDA/AC generation returned in second GENERATE AC",
                                        "Issuer authentication performed",
                                        "CIAC-Default skipped on CAT3",
                                        "Offline change PIN result",
                                        "",
                                        ""};
    static constexpr ByteBits kByte3 = {"Lower consecutive offline limit exceeded",
                                        "Upper consecutive offline limit exceeded",
                                        "Lower cumulative offline limit exceeded",
                                        "Upper cumulative offline limit exceeded",
                                        "Go online on next transaction was set",
                                        "Issuer authentication failed",
                                        "Script received",
                                        "Script failed"};
    static constexpr ByteBits kByte4Flags = {"",
                                             "",
                                             "",
                                             "",
                                             "Match found in additional check table",
                                             "No match found in additional check table",
                                             "",
                                             ""};
    static constexpr ByteBits kByte5 = {"Last online transaction not completed",
                                        "PIN Try Limit exceeded",
                                        "Offline PIN verification not performed",
                                        "Offline PIN verification failed",
                                        "Unable to go online",
                                        "Terminal erroneously considers offline PIN OK",
                                        "",
                                        ""};
    cvrAcTypes(cvr[0], out);
    cvrFlags(cvr[0], kByte1Flags, out);
    cvrFlags(cvr[1], kByte2, out);
    cvrFlags(cvr[2], kByte3, out);
    cvrScriptCount(cvr[3], out);
    cvrFlags(cvr[3], kByte4Flags, out);
    cvrFlags(cvr[4], kByte5, out);
    for (std::size_t i = 0; i < cvr.size(); ++i) {
        // Bits that versions of M/Chip assign differently, or leave to the issuer: shown, not
        // named.
        static constexpr std::uint8_t kNotRead[] = {0x08, 0x03, 0x00, 0x03, 0x03, 0xFF};
        if ((cvr[i] & kNotRead[i]) != 0) {
            // Built in steps: GCC 12 reports a false -Wrestrict on the chained form for ARM.
            std::string finding = "CVR: byte ";
            finding += std::to_string(i + 1);
            finding += " bits not read here: ";
            finding += hex(static_cast<std::uint8_t>(cvr[i] & kNotRead[i]));
            out.push_back(std::move(finding));
        }
    }
}

void mastercardMChip(Value value, Findings& out) {
    out.push_back("Layout: Mastercard M/Chip, cryptogram version number " + hex(value[1]));
    out.push_back("Derivation key index: " + hex(value[0]));
    out.push_back("Card verification results: " + hex(value.subspan(2, 6)));
    mchipCardVerificationResults(value.subspan(2, 6), out);
    out.push_back("DAC or ICC dynamic number: " + hex(value.subspan(8, 2)));
    out.push_back("Counters and issuer data: " + hex(value.subspan(10)));
}

constexpr std::size_t kCcdLength = 32;

}  // namespace

void cvmList(Value value, Findings& out) {
    constexpr std::size_t kAmounts = 8;
    if (value.size() < kAmounts || (value.size() - kAmounts) % 2 != 0) {
        out.push_back("A CVM list is two 4-byte amounts and 2-byte rules; " +
                      std::to_string(value.size()) + " bytes do not make one");
        return;
    }
    out.push_back("Amount X: " + std::to_string(bigEndian(value.subspan(0, 4))));
    out.push_back("Amount Y: " + std::to_string(bigEndian(value.subspan(4, 4))));
    for (std::size_t i = kAmounts; i < value.size(); i += 2) {
        cvmRule(value.subspan(i, 2), out, "Rule " + std::to_string((i - kAmounts) / 2 + 1) + ": ");
    }
}

void cvmResults(Value value, Findings& out) {
    if (!requireLength(value, 3, out)) return;
    out.push_back("Method: " + std::string(cvmMethod(value[0])));
    out.push_back("Condition: " + std::string(cvmCondition(value[1])));
    out.push_back("Result: " + std::string(lookup(kCvmOutcomes, value[2], "RFU result code")));
}

void terminalType(Value value, Findings& out) {
    if (!requireLength(value, 1, out)) return;
    const std::string_view who = lookup(kTerminalOperators, value[0] >> 4, "");
    const std::string_view where = lookup(kTerminalEnvironments, value[0] & 0x0F, "");
    if (who.empty() || where.empty()) {
        out.push_back("Terminal type " + hex(value) + " is not defined");
        return;
    }
    out.push_back(std::string(who) + ", " + std::string(where));
}

void cryptogramInformationData(Value value, Findings& out) {
    if (!requireLength(value, 1, out)) return;
    out.emplace_back(lookup(kCryptogramTypes, value[0] >> 6, ""));
    if ((value[0] & 0x30) != 0) {
        out.push_back("Payment system-specific cryptogram bits: " +
                      std::to_string((value[0] >> 4) & 0x03));
    }
    if ((value[0] & 0x08) != 0) out.emplace_back("Advice required");
    const std::uint8_t reason = value[0] & 0x07;
    if (reason != 0) out.emplace_back(lookup(kAdviceReasons, reason, "Reason: RFU code"));
}

void posEntryMode(Value value, Findings& out) {
    if (!requireLength(value, 1, out)) return;
    out.emplace_back(lookup(kPosEntryModes, value[0], "Entry mode not in the ISO 8583 list"));
}

void transactionType(Value value, Findings& out) {
    if (!requireLength(value, 1, out)) return;
    out.emplace_back(lookup(kTransactionTypes, value[0], "Transaction type not in the list"));
}

void issuerApplicationData(Value value, PaymentScheme scheme, Findings& out) {
    const std::size_t size = value.size();
    if (size == kCcdLength && value[0] == 0x0F && (value[1] >> 4) == 0x0A) {
        commonCoreDefinitions(value, out);
    } else if (size == kCcdLength && value[0] == 0x1F) {
        visaFormat2(value, out);
    } else if (size >= 7 && value[0] == 0x06) {
        visaFormat013(value, out);
    } else if ((scheme == PaymentScheme::Mastercard || scheme == PaymentScheme::Maestro) &&
               (size == 18 || size == 20 || size == 26 || size == 28)) {
        mastercardMChip(value, out);
    } else {
        // Built in steps: GCC 12 reports a false -Wrestrict on the chained form for 32-bit ARM.
        std::string finding = "Layout not recognised: " + std::to_string(size) + " bytes";
        if (size > 0) {
            finding += ", first byte ";
            finding += hex(value[0]);
        }
        out.push_back(std::move(finding));
    }
}

void authorisationResponseCode(Value value, Findings& out) {
    if (!requireLength(value, 2, out)) return;
    const std::string code(value.begin(), value.end());
    static constexpr std::pair<std::string_view, std::string_view> kTerminalCodes[] = {
        {"Y1", "Offline approved"},
        {"Z1", "Offline declined"},
        {"Y2", "Approval (after card-initiated referral)"},
        {"Z2", "Decline (after card-initiated referral)"},
        {"Y3", "Unable to go online, offline approved"},
        {"Z3", "Unable to go online, offline declined"},
    };
    for (const auto& [known, meaning] : kTerminalCodes) {
        if (code == known) {
            out.push_back(std::string(meaning) + " (set by the terminal)");
            return;
        }
    }
    if (!std::all_of(value.begin(), value.end(), printable)) {
        out.push_back(hex(value) + " is not two characters");
    } else if (code == "00") {
        out.push_back("\"00\": approved by the issuer");
    } else {
        out.push_back("\"" + code +
                      "\": issuer's response code (not approved unless the issuer "
                      "says \"00\")");
    }
}

void issuerScriptCommand(Value value, Findings& out) {
    const auto apdu = CommandApdu::parse(value);
    if (!apdu) {
        out.push_back(
            "Not a command APDU: shorter than 4 bytes, or its Lc disagrees with its "
            "length");
        return;
    }
    out.push_back(std::string(apdu->name()) + ": CLA " + hex(apdu->cla) + ", INS " +
                  hex(apdu->ins) + ", P1 " + hex(apdu->p1) + ", P2 " + hex(apdu->p2) + ", " +
                  std::to_string(apdu->data.size()) + " bytes of data");
    for (const auto& parameter : apdu->parameters())
        out.push_back(parameter);
}

void issuerAuthenticationData(Value value, Findings& out) {
    constexpr std::size_t kMethod1 = 10;  // ARPC (8) and the ARC (2)
    constexpr std::size_t kMinimum = 8;
    constexpr std::size_t kMaximum = 16;
    if (value.size() < kMinimum || value.size() > kMaximum) {
        out.push_back("Length " + std::to_string(value.size()) + " is not 8 to 16 bytes");
        return;
    }
    if (value.size() == kMethod1) {
        out.push_back("ARPC method 1: ARPC " + hex(value.first(8)) +
                      ", authorisation response "
                      "code " +
                      hex(value.subspan(8)) +
                      " (or ARPC method 2 with 2 bytes of proprietary data)");
        return;
    }
    std::string finding = "ARPC method 2: ARPC " + hex(value.first(4)) + ", card status update " +
                          hex(value.subspan(4, 4));
    if (value.size() > 8) finding += ", proprietary authentication data " + hex(value.subspan(8));
    out.push_back(finding);
}

}  // namespace vastrel::explain
