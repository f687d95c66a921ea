#include "vastrel/Explain/ApplicationIdentifier.hpp"

#include <algorithm>

#include "Codec/CodecRules.hpp"
#include "DecoderParts.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel {
namespace {

// An AID prefix, written as hex: the RID alone names the scheme, a longer prefix the product.
struct KnownAid {
    std::string_view prefixHex;
    PaymentScheme scheme;
    std::string_view product;
};

constexpr KnownAid kKnownAids[] = {
    {"A000000003", PaymentScheme::Visa, ""},
    {"A0000000031010", PaymentScheme::Visa, "Visa Credit or Debit"},
    {"A0000000032010", PaymentScheme::Visa, "Visa Electron"},
    {"A0000000032020", PaymentScheme::Visa, "V PAY"},
    {"A0000000033010", PaymentScheme::Visa, "Visa Interlink"},
    {"A0000000038010", PaymentScheme::Visa, "Visa Plus"},
    {"A000000004", PaymentScheme::Mastercard, ""},
    {"A0000000041010", PaymentScheme::Mastercard, "Mastercard Credit or Debit"},
    {"A0000000043060", PaymentScheme::Maestro, "Maestro"},
    {"A0000000046000", PaymentScheme::Mastercard, "Cirrus"},
    {"A000000025", PaymentScheme::Amex, ""},
    {"A00000002501", PaymentScheme::Amex, "American Express"},
    {"A000000042", PaymentScheme::CartesBancaires, ""},
    {"A0000000421010", PaymentScheme::CartesBancaires, "CB"},
    {"A000000065", PaymentScheme::Jcb, ""},
    {"A0000000651010", PaymentScheme::Jcb, "JCB"},
    {"A000000152", PaymentScheme::Discover, ""},
    {"A0000001523010", PaymentScheme::Discover, "Discover D-PAS (also Diners Club)"},
    {"A0000001524010", PaymentScheme::Discover, "Discover US Common Debit"},
    {"A000000277", PaymentScheme::Interac, ""},
    {"A0000002771010", PaymentScheme::Interac, "Interac Debit"},
    {"A000000324", PaymentScheme::Discover, ""},
    {"A0000003241010", PaymentScheme::Discover, "Discover ZIP"},
    {"A000000333", PaymentScheme::UnionPay, ""},
    {"A000000333010101", PaymentScheme::UnionPay, "UnionPay Debit"},
    {"A000000333010102", PaymentScheme::UnionPay, "UnionPay Credit"},
    {"A000000333010103", PaymentScheme::UnionPay, "UnionPay Quasi-credit"},
    {"A000000333010106", PaymentScheme::UnionPay, "UnionPay Electronic Cash"},
    {"A000000333010108", PaymentScheme::UnionPay, "UnionPay US Common Debit"},
    {"A000000384", PaymentScheme::Eftpos, ""},
    {"A00000038410", PaymentScheme::Eftpos, "eftpos Savings"},
    {"A00000038420", PaymentScheme::Eftpos, "eftpos Cheque"},
    {"A000000524", PaymentScheme::RuPay, ""},
    {"A0000005241010", PaymentScheme::RuPay, "RuPay"},
    {"A000000658", PaymentScheme::Mir, ""},
    {"A0000006581010", PaymentScheme::Mir, "Mir Credit"},
    {"A0000006582010", PaymentScheme::Mir, "Mir Debit"},
    {"A000000672", PaymentScheme::Troy, ""},
    {"A0000006721010", PaymentScheme::Troy, "Troy"},
};

constexpr std::uint32_t kAidTags[] = {0x4F, 0x84, 0x9F06};

bool startsWith(std::span<const std::uint8_t> aid, std::string_view prefixHex) {
    const std::size_t bytes = prefixHex.size() / 2;
    if (aid.size() < bytes) return false;
    for (std::size_t i = 0; i < bytes; ++i) {
        if (aid[i] != codec::hexByte(prefixHex[2 * i], prefixHex[2 * i + 1])) return false;
    }
    return true;
}

}  // namespace

AidInfo ApplicationIdentifier::identify(std::span<const std::uint8_t> aid) noexcept {
    AidInfo info;
    std::size_t longest = 0;
    for (const auto& known : kKnownAids) {
        if (known.prefixHex.size() <= longest || !startsWith(aid, known.prefixHex)) continue;
        longest = known.prefixHex.size();
        info = {known.scheme, known.product};
    }
    return info;
}

PaymentScheme ApplicationIdentifier::schemeOf(std::span<const BerNode> nodes) noexcept {
    for (const auto tag : kAidTags) {
        const BerNode* aid = explain::firstPrimitive(nodes, tag);
        if (aid == nullptr) continue;
        const PaymentScheme scheme = identify(aid->value).scheme;
        if (scheme != PaymentScheme::Any) return scheme;
    }
    return PaymentScheme::Any;
}

PaymentScheme ApplicationIdentifier::schemeOfHex(std::string_view hex) {
    Bytes data;
    if (HexDecoder::decode(hex, data)) return PaymentScheme::Any;
    return schemeOf(BerReader::read(data).nodes);
}

}  // namespace vastrel
