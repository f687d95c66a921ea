#include "vastrel/Explain/FieldDecoders.hpp"

#include <algorithm>
#include <array>
#include <iterator>

#include "DecoderParts.hpp"

namespace vastrel {
namespace {

using explain::Value;
using Decoder = void (*)(Value, const DecodeContext&, Findings&);

// Adapters for the decoders that need no context.
template <void (*decode)(Value, Findings&)>
void plain(Value value, const DecodeContext& /*context*/, Findings& out) {
    decode(value, out);
}

void iad(Value value, const DecodeContext& context, Findings& out) {
    explain::issuerApplicationData(value, context.scheme, out);
}

struct Entry {
    std::uint32_t tag = 0;
    Decoder decoder = nullptr;
    PaymentScheme scheme = PaymentScheme::Any;  // Any: whatever the scheme
};

constexpr auto mc = PaymentScheme::Mastercard;

constexpr Entry kUnsorted[] = {
    {0x4F, plain<explain::applicationId>},
    {0x50, plain<explain::text>},
    {0x57, explain::track2},
    {0x5A, explain::cardNumber},
    {0x5F24, plain<explain::date>},
    {0x5F25, plain<explain::date>},
    {0x5F28, plain<explain::countryCode>},
    {0x5F2A, plain<explain::currencyCode>},
    {0x5F2D, plain<explain::languages>},
    {0x5F30, plain<explain::serviceCode>},
    {0x81, explain::binaryAmount},
    {0x82, plain<explain::applicationInterchangeProfile>},
    {0x84, plain<explain::applicationId>},
    {0x86, plain<explain::issuerScriptCommand>},
    {0x8A, plain<explain::authorisationResponseCode>},
    {0x8C, explain::dataObjectList},  // CDOL1
    {0x8D, explain::dataObjectList},  // CDOL2
    {0x8E, plain<explain::cvmList>},
    {0x91, plain<explain::issuerAuthenticationData>},
    {0x94, plain<explain::applicationFileLocator>},
    {0x97, explain::dataObjectList},  // TDOL
    {0x95, plain<explain::terminalVerificationResults>},
    {0x9A, plain<explain::date>},
    {0x9B, plain<explain::transactionStatusInformation>},
    {0x9C, plain<explain::transactionType>},
    {0x9F02, explain::numericAmount},
    {0x9F03, explain::numericAmount},
    {0x9F04, explain::binaryAmount},
    {0x9F06, plain<explain::applicationId>},
    {0x9F07, plain<explain::applicationUsageControl>},
    {0x9F0D, plain<explain::terminalVerificationResults>},
    {0x9F0E, plain<explain::terminalVerificationResults>},
    {0x9F0F, plain<explain::terminalVerificationResults>},
    {0x9F10, iad},
    {0x9F12, plain<explain::text>},
    {0x9F1A, plain<explain::countryCode>},
    {0x9F21, plain<explain::time>},
    {0x9F27, plain<explain::cryptogramInformationData>},
    {0x9F33, plain<explain::terminalCapabilities>},
    {0x9F34, plain<explain::cvmResults>},
    {0x9F35, plain<explain::terminalType>},
    {0x9F39, plain<explain::posEntryMode>},
    {0x9F40, plain<explain::additionalTerminalCapabilities>},
    {0x9F38, explain::dataObjectList},  // PDOL
    {0x9F42, plain<explain::currencyCode>},
    {0x9F49, explain::dataObjectList},  // DDOL
    {0x9F4A, explain::tagList},
    {0x9F4E, plain<explain::text>},
    {0x9F66, plain<explain::terminalTransactionQualifiers>},
    {0x9F66, nullptr, mc},  // Kernel 2: PUNATC (Track2)
    {0x9F6B, explain::track2},
    {0x9F6B, explain::numericAmount, PaymentScheme::Visa},  // Card CVM Limit
    {0x9F6C, plain<explain::cardTransactionQualifiers>},
    {0x9F69, explain::dataObjectList, mc},  // Kernel 2: UDOL
    {0x9F6C, nullptr, mc},  // Kernel 2: Mag-stripe Application Version Number (Card)
    {0xDF8120, plain<explain::terminalVerificationResults>},
    {0xDF8121, plain<explain::terminalVerificationResults>},
    {0xDF8122, plain<explain::terminalVerificationResults>},
    {0xDF8123, explain::numericAmount},
    {0xDF8124, explain::numericAmount},
    {0xDF8125, explain::numericAmount},
    {0xDF8126, explain::numericAmount},
};

constexpr bool byTag(const Entry& a, const Entry& b) { return a.tag < b.tag; }

constexpr auto kDecoders = [] {
    std::array<Entry, std::size(kUnsorted)> sorted{};
    std::copy(std::begin(kUnsorted), std::end(kUnsorted), sorted.begin());
    std::sort(sorted.begin(), sorted.end(), [](const Entry& a, const Entry& b) {
        return a.tag != b.tag ? a.tag < b.tag : a.scheme < b.scheme;
    });
    return sorted;
}();

// The decoder for the scheme's own meaning of tag, else the shared one; a null decoder says
// that the scheme's meaning has none.
Decoder findDecoder(std::uint32_t tag, PaymentScheme scheme) {
    if (scheme == PaymentScheme::Maestro) scheme = mc;  // the same kernel
    const Entry wanted{tag, nullptr};
    const auto [first, last] = std::equal_range(kDecoders.begin(), kDecoders.end(), wanted, byTag);
    const Entry* shared = nullptr;
    for (const Entry* entry = first; entry != last; ++entry) {
        if (entry->scheme == scheme) return entry->decoder;
        if (entry->scheme == PaymentScheme::Any) shared = entry;
    }
    return shared != nullptr ? shared->decoder : nullptr;
}

}  // namespace

bool FieldDecoders::has(std::uint32_t tag, PaymentScheme scheme) {
    return findDecoder(tag, scheme) != nullptr;
}

Findings FieldDecoders::decode(std::uint32_t tag, std::span<const std::uint8_t> value,
                               const DecodeContext& context) {
    Findings findings;
    if (const Decoder decoder = findDecoder(tag, context.scheme)) decoder(value, context, findings);
    return findings;
}

}  // namespace vastrel
