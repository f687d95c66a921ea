#include "vastrel/Explain/EmvDictionary.hpp"

#include <algorithm>
#include <array>

namespace vastrel {
namespace {

constexpr auto b = DataFormat::Binary;
constexpr auto n = DataFormat::Numeric;
constexpr auto cn = DataFormat::CompressedNumeric;
constexpr auto an = DataFormat::Alphanumeric;
constexpr auto ans = DataFormat::AlphanumericSpecial;
constexpr auto card = DataSource::Card;
constexpr auto term = DataSource::Terminal;
constexpr auto issuer = DataSource::Issuer;
constexpr auto any = TagInfo::kNoLimit;
constexpr auto visa = PaymentScheme::Visa;
constexpr auto mc = PaymentScheme::Mastercard;
constexpr auto amex = PaymentScheme::Amex;
constexpr auto jcb = PaymentScheme::Jcb;
constexpr auto upi = PaymentScheme::UnionPay;

// Names as the EMV books and the kernel specifications write them.
constexpr TagInfo kUnsorted[] = {
    // Selection and the file control information
    {0x42, "Issuer Identification Number (IIN)", n, card, "BF0C", 3, 3},
    {0x4F, "Application Identifier (AID) - card", b, card, "61", 5, 16},
    {0x50, "Application Label", ans, card, "61, A5", 1, 16},
    {0x61, "Application Template", b, card, "70", 0, 252},
    {0x6F, "File Control Information (FCI) Template", b, card, "", 0, 252},
    {0x73, "Directory Discretionary Template", b, card, "61", 0, 252},
    {0x84, "Dedicated File (DF) Name", b, card, "6F", 5, 16},
    {0x87, "Application Priority Indicator", b, card, "61, A5", 1, 1},
    {0x88, "Short File Identifier (SFI)", b, card, "A5", 1, 1},
    {0x9D, "Directory Definition File (DDF) Name", b, card, "61", 5, 16},
    {0xA5, "File Control Information (FCI) Proprietary Template", b, card, "6F", 0, 252},
    {0xBF0C, "File Control Information (FCI) Issuer Discretionary Data", b, card, "A5", 0, 222},
    {0x5F2D, "Language Preference", an, card, "A5", 2, 8},
    {0x5F50, "Issuer URL", ans, card, "BF0C", 0, any},
    {0x5F53, "International Bank Account Number (IBAN)", b, card, "BF0C", 0, 34},
    {0x5F54, "Bank Identifier Code (BIC)", b, card, "BF0C", 8, 11},
    {0x5F55, "Issuer Country Code (alpha2 format)", an, card, "BF0C", 2, 2},
    {0x5F56, "Issuer Country Code (alpha3 format)", an, card, "BF0C", 3, 3},
    {0x9F0A, "Application Selection Registered Proprietary Data", b, card, "BF0C", 0, any},
    {0x9F0C, "Issuer Identification Number Extended (IINE)", n, card, "BF0C", 3, 4},
    {0x9F11, "Issuer Code Table Index", n, card, "A5", 1, 1},
    {0x9F12, "Application Preferred Name", ans, card, "A5", 1, 16},
    {0x9F29, "Extended Selection", b, card, "61", 0, any},
    {0x9F2A, "Kernel Identifier", b, card, "61, A5", 1, 8},
    {0x9F38, "Processing Options Data Object List (PDOL)", b, card, "A5", 0, any},
    {0x9F4D, "Log Entry", b, card, "BF0C", 2, 2},
    // Records and responses
    {0x56, "Track 1 Data", ans, card, "70", 0, 76},
    {0x57, "Track 2 Equivalent Data", b, card, "70, 77", 0, 19},
    {0x5A, "Application Primary Account Number (PAN)", cn, card, "70, 77", 0, 10},
    {0x5F20, "Cardholder Name", ans, card, "70, 77", 2, 26},
    {0x5F24, "Application Expiration Date", n, card, "70, 77", 3, 3},
    {0x5F25, "Application Effective Date", n, card, "70, 77", 3, 3},
    {0x5F28, "Issuer Country Code", n, card, "70, 77", 2, 2},
    {0x5F30, "Service Code", n, card, "70, 77", 2, 2},
    {0x5F34, "Application Primary Account Number (PAN) Sequence Number", n, card, "70, 77", 1, 1},
    {0x70, "READ RECORD Response Message Template", b, card, "", 0, 252},
    {0x77, "Response Message Template Format 2", b, card, "", 0, any},
    {0x80, "Response Message Template Format 1", b, card, "", 0, any},
    {0x82, "Application Interchange Profile", b, card, "77, 80", 2, 2},
    {0x8C, "Card Risk Management Data Object List 1 (CDOL1)", b, card, "70, 77", 0, 252},
    {0x8D, "Card Risk Management Data Object List 2 (CDOL2)", b, card, "70, 77", 0, 252},
    {0x8E, "Cardholder Verification Method (CVM) List", b, card, "70, 77", 10, 252},
    {0x8F, "Certification Authority Public Key Index", b, card, "70, 77", 1, 1},
    {0x90, "Issuer Public Key Certificate", b, card, "70, 77", 0, any},
    {0x92, "Issuer Public Key Remainder", b, card, "70, 77", 0, any},
    {0x93, "Signed Static Application Data", b, card, "70, 77", 0, any},
    {0x94, "Application File Locator (AFL)", b, card, "77, 80", 0, 252},
    {0x97, "Transaction Certificate Data Object List (TDOL)", b, card, "70, 77", 0, 252},
    {0x9F05, "Application Discretionary Data", b, card, "70, 77", 1, 32},
    {0x9F07, "Application Usage Control", b, card, "70, 77", 2, 2},
    {0x9F08, "Application Version Number", b, card, "70, 77", 2, 2},
    {0x9F0B, "Cardholder Name Extended", ans, card, "70, 77", 27, 45},
    {0x9F0D, "Issuer Action Code - Default", b, card, "70, 77", 5, 5},
    {0x9F0E, "Issuer Action Code - Denial", b, card, "70, 77", 5, 5},
    {0x9F0F, "Issuer Action Code - Online", b, card, "70, 77", 5, 5},
    {0x9F10, "Issuer Application Data", b, card, "77, 80", 0, 32},
    {0x9F13, "Last Online Application Transaction Counter (ATC) Register", b, card, "", 2, 2},
    {0x9F14, "Lower Consecutive Offline Limit", b, card, "70, 77", 1, 1},
    {0x9F17, "Personal Identification Number (PIN) Try Counter", b, card, "", 1, 1},
    {0x9F19, "Token Requestor ID", n, card, "70, 77", 6, 6},
    {0x9F1F, "Track 1 Discretionary Data", ans, card, "70, 77", 0, any},
    {0x9F20, "Track 2 Discretionary Data", cn, card, "70, 77", 0, any},
    {0x9F23, "Upper Consecutive Offline Limit", b, card, "70, 77", 1, 1},
    {0x9F24, "Payment Account Reference (PAR)", an, card, "70, 77", 29, 29},
    {0x9F25, "Last 4 Digits of PAN", n, card, "70, 77", 2, 2},
    {0x9F26, "Application Cryptogram", b, card, "77, 80", 8, 8},
    {0x9F27, "Cryptogram Information Data", b, card, "77, 80", 1, 1},
    {0x9F2D, "ICC PIN Encipherment Public Key Certificate", b, card, "70, 77", 0, any},
    {0x9F2E, "ICC PIN Encipherment Public Key Exponent", b, card, "70, 77", 1, 3},
    {0x9F2F, "ICC PIN Encipherment Public Key Remainder", b, card, "70, 77", 0, any},
    {0x9F32, "Issuer Public Key Exponent", b, card, "70, 77", 1, 3},
    {0x9F36, "Application Transaction Counter (ATC)", b, card, "77, 80", 2, 2},
    {0x9F3B, "Application Reference Currency", n, card, "70, 77", 2, 8},
    {0x9F42, "Application Currency Code", n, card, "70, 77", 2, 2},
    {0x9F43, "Application Reference Currency Exponent", n, card, "70, 77", 1, 4},
    {0x9F44, "Application Currency Exponent", n, card, "70, 77", 1, 1},
    {0x9F45, "Data Authentication Code", b, card, "", 2, 2},
    {0x9F46, "ICC Public Key Certificate", b, card, "70, 77", 0, any},
    {0x9F47, "ICC Public Key Exponent", b, card, "70, 77", 1, 3},
    {0x9F48, "ICC Public Key Remainder", b, card, "70, 77", 0, any},
    {0x9F49, "Dynamic Data Authentication Data Object List (DDOL)", b, card, "70, 77", 0, 252},
    {0x9F4A, "Static Data Authentication Tag List", b, card, "70, 77", 0, any},
    {0x9F4B, "Signed Dynamic Application Data", b, card, "77, 80", 0, any},
    {0x9F4C, "ICC Dynamic Number", b, card, "", 2, 8},
    {0x9F4F, "Log Format", b, card, "", 0, any},
    // Issuer data
    {0x71, "Issuer Script Template 1", b, issuer, "", 0, any},
    {0x72, "Issuer Script Template 2", b, issuer, "", 0, any},
    {0x86, "Issuer Script Command", b, issuer, "71, 72", 0, 261},
    {0x89, "Authorisation Code", an, issuer, "", 6, 6},
    {0x8A, "Authorisation Response Code", an, issuer, "", 2, 2},
    {0x91, "Issuer Authentication Data", b, issuer, "", 8, 16},
    {0x9F18, "Issuer Script Identifier", b, issuer, "71, 72", 4, 4},
    // Terminal data
    {0x5F2A, "Transaction Currency Code", n, term, "", 2, 2},
    {0x5F36, "Transaction Currency Exponent", n, term, "", 1, 1},
    {0x5F57, "Account Type", n, term, "", 1, 1},
    {0x81, "Amount, Authorised (Binary)", b, term, "", 4, 4},
    {0x83, "Command Template", b, term, "", 0, any},
    {0x95, "Terminal Verification Results", b, term, "", 5, 5},
    {0x98, "Transaction Certificate (TC) Hash Value", b, term, "", 20, 20},
    {0x99, "Transaction Personal Identification Number (PIN) Data", b, term, "", 0, any},
    {0x9A, "Transaction Date", n, term, "", 3, 3},
    {0x9B, "Transaction Status Information", b, term, "", 2, 2},
    {0x9C, "Transaction Type", n, term, "", 1, 1},
    {0x9F01, "Acquirer Identifier", n, term, "", 6, 6},
    {0x9F02, "Amount, Authorised (Numeric)", n, term, "", 6, 6},
    {0x9F03, "Amount, Other (Numeric)", n, term, "", 6, 6},
    {0x9F04, "Amount, Other (Binary)", b, term, "", 4, 4},
    {0x9F06, "Application Identifier (AID) - terminal", b, term, "", 5, 16},
    {0x9F09, "Application Version Number", b, term, "", 2, 2},
    {0x9F15, "Merchant Category Code", n, term, "", 2, 2},
    {0x9F16, "Merchant Identifier", ans, term, "", 15, 15},
    {0x9F1A, "Terminal Country Code", n, term, "", 2, 2},
    {0x9F1B, "Terminal Floor Limit", b, term, "", 4, 4},
    {0x9F1C, "Terminal Identification", an, term, "", 8, 8},
    {0x9F1D, "Terminal Risk Management Data", b, term, "", 1, 8},
    {0x9F1E, "Interface Device (IFD) Serial Number", an, term, "", 8, 8},
    {0x9F21, "Transaction Time", n, term, "", 3, 3},
    {0x9F22, "Certification Authority Public Key Index", b, term, "", 1, 1},
    {0x9F33, "Terminal Capabilities", b, term, "", 3, 3},
    {0x9F34, "Cardholder Verification Method (CVM) Results", b, term, "", 3, 3},
    {0x9F35, "Terminal Type", n, term, "", 1, 1},
    {0x9F37, "Unpredictable Number", b, term, "", 4, 4},
    {0x9F39, "Point-of-Service (POS) Entry Mode", n, term, "", 1, 1},
    {0x9F3A, "Amount, Reference Currency", b, term, "", 4, 4},
    {0x9F3C, "Transaction Reference Currency Code", n, term, "", 2, 2},
    {0x9F3D, "Transaction Reference Currency Exponent", n, term, "", 1, 1},
    {0x9F40, "Additional Terminal Capabilities", b, term, "", 5, 5},
    {0x9F41, "Transaction Sequence Counter", n, term, "", 2, 4},
    {0x9F4E, "Merchant Name and Location", ans, term, "", 0, any},
    // Biometric cardholder verification (EMV 4.4)
    {0x8B, "Enciphered Biometric Data", b, term, "", 0, any},
    {0x96, "Biometric Type", b, term, "", 1, 1},
    {0x9F3E, "Terminal Biometric Capabilities", b, term, "", 0, any},
    {0x9F3F, "Biometric Solution ID", b, term, "", 0, any},
    {0xBF4C, "Biometric Try Counters Template", b, card, "", 0, any},
    {0xBF4D, "Preferred Attempts Template", b, card, "", 0, any},
    // Contactless: shared by the kernels, or given one meaning by most of them
    {0x9F5A, "Application Program Identifier (Program ID)", b, card, "BF0C", 1, 16},
    {0x9F66, "Terminal Transaction Qualifiers (TTQ)", b, term, "", 4, 4},
    {0x9F69, "Card Authentication Related Data", b, card, "70, 77", 5, 16},
    {0x9F6A, "Unpredictable Number (Numeric)", b, term, "", 4, 4},
    {0x9F6B, "Track 2 Data", b, card, "70", 0, 19},
    {0x9F6C, "Card Transaction Qualifiers (CTQ)", b, card, "77", 2, 2},
    {0x9F6D, "Kernel-specific data (scheme not known)", b, card, "", 0, any},
    {0x9F6E, "Form Factor Indicator", b, card, "77", 4, 4},
    {0x9F7C, "Customer Exclusive Data (CED)", b, card, "77", 0, 32},
    {0xDF8129, "Outcome Parameter Set", b, term, "", 8, 8},
    // Kernel 2 (Mastercard)
    {0x9F50, "Offline Accumulator Balance", n, card, "", 6, 6, mc},
    {0x9F51, "DRDOL", b, card, "70", 0, any, mc},
    {0x9F52, "Application Default Action (ADA)", b, card, "", 2, 2, mc},
    {0x9F53, "Transaction Category Code", an, term, "", 1, 1},
    {0x9F54, "DS ODS Card", b, card, "", 0, 160, mc},
    {0x9F5B, "DSDOL", b, card, "70", 0, any, mc},
    {0x9F5C, "DS Requested Operator ID", b, term, "", 8, 8, mc},
    {0x9F5D, "Application Capabilities Information", b, card, "A5", 3, 3, mc},
    {0x9F5E, "DS ID", b, card, "A5", 8, 11, mc},
    {0x9F5F, "DS Slot Availability", b, card, "A5", 1, 1, mc},
    {0x9F60, "CVC3 (Track1)", b, card, "77", 2, 2, mc},
    {0x9F61, "CVC3 (Track2)", b, card, "77", 2, 2, mc},
    {0x9F62, "PCVC3 (Track1)", b, card, "70", 6, 6, mc},
    {0x9F63, "PUNATC (Track1)", b, card, "70", 6, 6, mc},
    {0x9F64, "NATC (Track1)", b, card, "70", 1, 1, mc},
    {0x9F65, "PCVC3 (Track2)", b, card, "70", 2, 2, mc},
    {0x9F66, "PUNATC (Track2)", b, card, "70", 2, 2, mc},
    {0x9F67, "NATC (Track2)", b, card, "70", 1, 1, mc},
    {0x9F69, "UDOL", b, card, "70", 0, any, mc},
    {0x9F6C, "Mag-stripe Application Version Number (Card)", b, card, "70", 2, 2, mc},
    {0x9F6D, "Mag-stripe Application Version Number (Reader)", b, term, "", 2, 2, mc},
    {0x9F6E, "Third Party Data", b, card, "70, 77", 5, 32, mc},
    {0x9F6F, "DS Slot Management Control", b, card, "77", 1, 1, mc},
    {0x9F70, "Protected Data Envelope 1", b, card, "", 0, 192, mc},
    {0x9F71, "Protected Data Envelope 2", b, card, "", 0, 192, mc},
    {0x9F72, "Protected Data Envelope 3", b, card, "", 0, 192, mc},
    {0x9F73, "Protected Data Envelope 4", b, card, "", 0, 192, mc},
    {0x9F74, "Protected Data Envelope 5", b, card, "", 0, 192, mc},
    {0x9F75, "Unprotected Data Envelope 1", b, card, "", 0, 192, mc},
    {0x9F76, "Unprotected Data Envelope 2", b, card, "", 0, 192, mc},
    {0x9F77, "Unprotected Data Envelope 3", b, card, "", 0, 192, mc},
    {0x9F78, "Unprotected Data Envelope 4", b, card, "", 0, 192, mc},
    {0x9F79, "Unprotected Data Envelope 5", b, card, "", 0, 192, mc},
    {0x9F7C, "Merchant Custom Data", b, term, "", 20, 20, mc},
    {0x9F7D, "DS Summary 1", b, card, "77", 8, 16, mc},
    {0x9F7E, "Mobile Support Indicator", b, term, "", 1, 1, mc},
    {0x9F7F, "DS Unpredictable Number", b, term, "", 4, 4, mc},
    {0xDF4B, "POS Cardholder Interaction Information", b, card, "77", 3, 3, mc},
    {0xDF8101, "DS Summary 2", b, card, "", 8, 16},
    {0xDF8102, "DS Summary 3", b, card, "", 8, 16},
    {0xDF8104, "Balance Read Before Gen AC", n, card, "", 6, 6},
    {0xDF8105, "Balance Read After Gen AC", n, card, "", 6, 6},
    {0xDF8106, "Data Needed", b, term, "", 0, any},
    {0xDF8107, "CDOL1 Related Data", b, term, "", 0, any},
    {0xDF8108, "DS AC Type", b, term, "", 1, 1},
    {0xDF8109, "DS Input (Term)", b, term, "", 8, 8},
    {0xDF810A, "DS ODS Info For Reader", b, term, "", 1, 1},
    {0xDF810B, "DS Summary Status", b, term, "", 1, 1},
    {0xDF810C, "Kernel ID", b, term, "", 1, 1},
    {0xDF810D, "DSVN Term", b, term, "", 0, any},
    {0xDF810E, "Post-Gen AC Put Data Status", b, term, "", 1, 1},
    {0xDF810F, "Pre-Gen AC Put Data Status", b, term, "", 1, 1},
    {0xDF8110, "Proceed To First Write Flag", b, term, "", 1, 1},
    {0xDF8111, "PDOL Related Data", b, term, "", 0, any},
    {0xDF8112, "Tags To Read", b, term, "", 0, any},
    {0xDF8113, "DRDOL Related Data", b, term, "", 0, any},
    {0xDF8114, "Reference Control Parameter", b, term, "", 1, 1},
    {0xDF8115, "Error Indication", b, term, "", 6, 6},
    {0xDF8116, "User Interface Request Data", b, term, "", 22, 22},
    {0xDF8117, "Card Data Input Capability", b, term, "", 1, 1},
    {0xDF8118, "CVM Capability - CVM Required", b, term, "", 1, 1},
    {0xDF8119, "CVM Capability - No CVM Required", b, term, "", 1, 1},
    {0xDF811A, "Default UDOL", b, term, "", 3, 3},
    {0xDF811B, "Kernel Configuration", b, term, "", 1, 1},
    {0xDF811C, "Max Lifetime of Torn Transaction Log Record", b, term, "", 2, 2},
    {0xDF811D, "Max Number of Torn Transaction Log Records", b, term, "", 1, 1},
    {0xDF811E, "Mag-stripe CVM Capability - CVM Required", b, term, "", 1, 1},
    {0xDF811F, "Security Capability", b, term, "", 1, 1},
    {0xDF8120, "Terminal Action Code - Default", b, term, "", 5, 5},
    {0xDF8121, "Terminal Action Code - Denial", b, term, "", 5, 5},
    {0xDF8122, "Terminal Action Code - Online", b, term, "", 5, 5},
    {0xDF8123, "Reader Contactless Floor Limit", n, term, "", 6, 6},
    {0xDF8124, "Reader Contactless Transaction Limit (No On-device CVM)", n, term, "", 6, 6},
    {0xDF8125, "Reader Contactless Transaction Limit (On-device CVM)", n, term, "", 6, 6},
    {0xDF8126, "Reader CVM Required Limit", n, term, "", 6, 6},
    {0xDF8127, "Time Out Value", b, term, "", 2, 2},
    {0xDF8128, "IDS Status", b, term, "", 1, 1},
    {0xDF812A, "DD Card (Track1)", ans, term, "", 0, 56},
    {0xDF812B, "DD Card (Track2)", b, term, "", 0, 8},
    {0xDF812C, "Mag-stripe CVM Capability - No CVM Required", b, term, "", 1, 1},
    {0xDF812D, "Message Hold Time", n, term, "", 3, 3},
    {0xDF8130, "Hold Time Value", b, term, "", 1, 1},
    {0xDF8131, "Phone Message Table", b, term, "", 0, any},
    {0xDF8132, "Minimum Relay Resistance Grace Period", b, term, "", 2, 2},
    {0xDF8133, "Maximum Relay Resistance Grace Period", b, term, "", 2, 2},
    {0xDF8134, "Terminal Expected Transmission Time For Relay Resistance C-APDU", b, term, "", 2,
     2},
    {0xDF8135, "Terminal Expected Transmission Time For Relay Resistance R-APDU", b, term, "", 2,
     2},
    {0xDF8136, "Relay Resistance Accuracy Threshold", b, term, "", 2, 2},
    {0xDF8137, "Relay Resistance Transmission Time Mismatch Threshold", b, term, "", 1, 1},
    {0xDF8301, "Terminal Relay Resistance Entropy", b, term, "", 4, 4},
    {0xDF8302, "Device Relay Resistance Entropy", b, card, "", 4, 4},
    {0xDF8303, "Min Time For Processing Relay Resistance APDU", b, card, "", 2, 2},
    {0xDF8304, "Max Time For Processing Relay Resistance APDU", b, card, "", 2, 2},
    {0xDF8305, "Device Estimated Transmission Time For Relay Resistance R-APDU", b, card, "", 2, 2},
    {0xDF8306, "Measured Relay Resistance Processing Time", b, term, "", 2, 2},
    {0xDF8307, "RRP Counter", b, term, "", 1, 1},
    {0xFF8101, "Torn Record", b, term, "", 0, any},
    {0xFF8102, "Tags To Write Before Gen AC", b, term, "", 0, any},
    {0xFF8103, "Tags To Write After Gen AC", b, term, "", 0, any},
    {0xFF8104, "Data To Send", b, term, "", 0, any},
    {0xFF8105, "Data Record", b, term, "", 0, any},
    {0xFF8106, "Discretionary Data", b, term, "", 0, any},
    // Kernel 3 and the Visa specifications
    {0x9F5B, "Issuer Script Results", b, term, "", 0, any, visa},
    {0x9F5D, "Available Offline Spending Amount (AOSA)", n, card, "77", 6, 6, visa},
    {0x9F67, "MSD Offset", b, card, "", 1, 1, visa},
    {0x9F68, "Card Additional Processes", b, card, "", 4, 4, visa},
    {0x9F6B, "Card CVM Limit", n, card, "", 6, 6, visa},
    {0x9F6D, "VLP Reset Threshold", n, card, "", 6, 6, visa},
    {0x9F74, "VLP Issuer Authorization Code", an, card, "", 6, 6, visa},
    {0x9F77, "VLP Funds Limit", n, card, "", 6, 6, visa},
    {0x9F78, "VLP Single Transaction Limit", n, card, "", 6, 6, visa},
    {0x9F79, "VLP Available Funds", n, card, "", 6, 6, visa},
    // Kernel 4 (American Express)
    {0x9F6D, "Contactless Reader Capabilities", b, term, "", 1, 1, amex},
    {0x9F6E, "Enhanced Contactless Reader Capabilities", b, term, "", 4, 4, amex},
    {0x9F70, "Card Interface and Payment Capabilities", b, card, "", 2, 2, amex},
    {0x9F71, "Mobile CVM Results", b, card, "77", 3, 3, amex},
    // Kernel 5 (JCB)
    {0x9F52, "Terminal Compatibility Indicator", b, term, "", 1, 1, jcb},
    {0x9F53, "Terminal Interchange Profile (static)", b, term, "", 3, 3, jcb},
    // Kernel 7 and the UnionPay electronic cash application
    {0x9F51, "Application Currency Code", n, card, "", 2, 2, upi},
    {0x9F63, "Card Product Identification Information", b, card, "", 16, 16, upi},
    {0x9F6D, "Electronic Cash Reset Threshold", n, card, "", 6, 6, upi},
    {0x9F74, "Electronic Cash Issuer Authorization Code", an, card, "", 6, 6, upi},
    {0x9F77, "Electronic Cash Balance Limit", n, card, "", 6, 6, upi},
    {0x9F78, "Electronic Cash Single Transaction Limit", n, card, "", 6, 6, upi},
    {0x9F79, "Electronic Cash Balance", n, card, "", 6, 6, upi},
};

constexpr bool entryLess(const TagInfo& a, const TagInfo& b) {
    return a.tag != b.tag ? a.tag < b.tag : a.scheme < b.scheme;
}

constexpr auto kEntries = [] {
    std::array<TagInfo, std::size(kUnsorted)> sorted{};
    std::copy(std::begin(kUnsorted), std::end(kUnsorted), sorted.begin());
    std::sort(sorted.begin(), sorted.end(), entryLess);
    return sorted;
}();

constexpr bool eachTagSchemeOnce() {
    for (std::size_t i = 1; i < kEntries.size(); ++i) {
        if (!entryLess(kEntries[i - 1], kEntries[i])) return false;
    }
    return true;
}
static_assert(eachTagSchemeOnce(), "a tag is listed twice for the same scheme");

}  // namespace

std::string_view formatCode(DataFormat format) noexcept {
    switch (format) {
        case DataFormat::Binary:
            return "b";
        case DataFormat::Numeric:
            return "n";
        case DataFormat::CompressedNumeric:
            return "cn";
        case DataFormat::Alphanumeric:
            return "an";
        case DataFormat::AlphanumericSpecial:
            return "ans";
    }
    return "b";
}

std::string_view sourceName(DataSource source) noexcept {
    switch (source) {
        case DataSource::Card:
            return "card";
        case DataSource::Terminal:
            return "terminal";
        case DataSource::Issuer:
            return "issuer";
    }
    return "card";
}

const TagInfo* EmvDictionary::find(std::uint32_t tag, PaymentScheme scheme) noexcept {
    const auto* first = std::lower_bound(
        kEntries.begin(), kEntries.end(), tag,
        [](const TagInfo& entry, std::uint32_t wanted) { return entry.tag < wanted; });
    if (first == kEntries.end() || first->tag != tag) return nullptr;
    // The shared meaning sorts first (Any is the lowest scheme); a kernel's own follows.
    for (const auto* entry = first; entry != kEntries.end() && entry->tag == tag; ++entry) {
        if (entry->scheme == scheme) return entry;
    }
    return first;
}

std::span<const TagInfo> EmvDictionary::entries() noexcept { return kEntries; }

}  // namespace vastrel
