#pragma once

// The field decoders behind FieldDecoders::decode, grouped by the kind of field. Each takes
// the value bytes (any length) and appends its findings.

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "Codec/HexEncode.hpp"
#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Explain/FieldDecoders.hpp"

namespace vastrel::explain {

using Value = std::span<const std::uint8_t>;

// The names of the bits of one byte, bit 8 first; an empty name is an RFU bit.
using ByteBits = std::array<std::string_view, 8>;

// True when value has `expected` bytes; otherwise adds a finding saying so.
bool requireLength(Value value, std::size_t expected, Findings& out);

// Two hex digits per byte, upper case.
inline std::string hex(Value value) { return codec::hexUpper(value); }
inline std::string hex(std::uint8_t byte) { return codec::hexUpper({&byte, 1}); }

// A tag number as the hex of its bytes: 0x9F26 as "9F26", 0x5A as "5A".
std::string tagHex(std::uint32_t tag);

// Printable ASCII, which text shows as it is.
inline bool printable(std::uint8_t byte) { return byte >= 0x20 && byte < 0x7F; }

// The bytes as text: printable ASCII as it is, anything else as '.'.
std::string printableText(Value value);

// The BCD digits of value; empty when a nibble is not a digit.
std::string bcdDigits(Value value);

// The bytes of value as one unsigned number, first byte most significant.
std::uint64_t bigEndian(Value value);

// The BCD number in value when it is at most max (leading zeros allowed); nullopt when a
// nibble is not a digit, the value is empty or the number is larger.
std::optional<int> smallBcdNumber(Value value, int max);

// Bit maps (BitFields.cpp)
void terminalVerificationResults(Value value, Findings& out);
void transactionStatusInformation(Value value, Findings& out);
void applicationInterchangeProfile(Value value, Findings& out);
void applicationUsageControl(Value value, Findings& out);
void terminalCapabilities(Value value, Findings& out);
void additionalTerminalCapabilities(Value value, Findings& out);
void terminalTransactionQualifiers(Value value, Findings& out);
void cardTransactionQualifiers(Value value, Findings& out);

// Coded fields (CodedFields.cpp)
void cvmList(Value value, Findings& out);
void cvmResults(Value value, Findings& out);
void terminalType(Value value, Findings& out);
void cryptogramInformationData(Value value, Findings& out);
void posEntryMode(Value value, Findings& out);
void transactionType(Value value, Findings& out);
void issuerApplicationData(Value value, PaymentScheme scheme, Findings& out);
void authorisationResponseCode(Value value, Findings& out);
void issuerScriptCommand(Value value, Findings& out);
void issuerAuthenticationData(Value value, Findings& out);

// Values in standard formats (ValueFormats.cpp)
void date(Value value, Findings& out);
void time(Value value, Findings& out);
void numericAmount(Value value, const DecodeContext& context, Findings& out);
void binaryAmount(Value value, const DecodeContext& context, Findings& out);
void currencyCode(Value value, Findings& out);
void countryCode(Value value, Findings& out);
void languages(Value value, Findings& out);
void text(Value value, Findings& out);
void applicationId(Value value, Findings& out);
void cardNumber(Value value, const DecodeContext& context, Findings& out);
void track2(Value value, const DecodeContext& context, Findings& out);
void serviceCode(Value value, Findings& out);

// What the elements of a strict read hold (ReadData.cpp)

// The first primitive element tagged tag; nullptr when there is none.
const BerNode* firstPrimitive(std::span<const BerNode> nodes, std::uint32_t tag);

// The element that carries the card number: 5A, else track 2 (57); nullptr when neither.
const BerNode* cardNumberHolder(std::span<const BerNode> nodes);

// The card number's digits in holder: up to 5A's F padding or track 2's separator D.
std::string cardNumberDigits(const BerNode& holder);

// An AID in words: "A0000000031010, Visa (Visa Credit or Debit)".
std::string describeAid(Value aid);

// Lists of other fields (ListFields.cpp)
void dataObjectList(Value value, const DecodeContext& context, Findings& out);
void tagList(Value value, const DecodeContext& context, Findings& out);
void applicationFileLocator(Value value, Findings& out);

// The meaning of each of the three service code digits.
void serviceCodeDigits(std::string_view code, Findings& out);

}  // namespace vastrel::explain
