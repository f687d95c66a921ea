#include "vastrel/Explain/Explainer.hpp"

#include <algorithm>

#include "Codec/HexEncode.hpp"
#include "DecoderParts.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Explain/CardRanges.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"
#include "vastrel/Explain/StatusWord.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel {
namespace {

constexpr std::uint32_t kCurrencyTag = 0x5F2A;
constexpr std::uint32_t kCurrencyExponentTag = 0x5F36;

std::size_t offsetIn(std::span<const std::uint8_t> data, std::span<const std::uint8_t> part) {
    return static_cast<std::size_t>(part.data() - data.data());
}

// What the decoders need from the rest of the data: the AID's scheme (else the one given)
// and the currency.
DecodeContext contextOf(const std::vector<BerNode>& nodes, const ExplainOptions& options) {
    DecodeContext context;
    context.showSensitive = options.showSensitive;
    context.scheme = ApplicationIdentifier::schemeOf(nodes);
    if (context.scheme == PaymentScheme::Any) context.scheme = options.scheme;
    if (const BerNode* currency = explain::firstPrimitive(nodes, kCurrencyTag)) {
        if (const auto code = explain::smallBcdNumber(currency->value, 999)) {
            context.currency = static_cast<std::uint16_t>(*code);
        }
    }
    if (const BerNode* exponent = explain::firstPrimitive(nodes, kCurrencyExponentTag)) {
        context.currencyExponent = explain::smallBcdNumber(exponent->value, 9);
    }
    return context;
}

bool sameNetwork(PaymentScheme a, PaymentScheme b) {
    auto family = [](PaymentScheme scheme) {
        if (scheme == PaymentScheme::Maestro) return PaymentScheme::Mastercard;
        if (scheme == PaymentScheme::Diners) return PaymentScheme::Discover;  // D-PAS
        return scheme;
    };
    return family(a) == family(b);
}

// The card number's issuer range against the AID's scheme, as a finding for the PAN.
std::string rangeCheck(std::string_view pan, PaymentScheme aidScheme) {
    const std::string aidName(schemeName(aidScheme));
    if (!CardRanges::hasOwnRanges(aidScheme)) {
        return "Range check: " + aidName + " cards carry their issuer's own BIN; not checked";
    }
    const auto schemes = CardRanges::schemesOf(pan);
    if (schemes.empty()) return "Range check: the card number is in no scheme's range";
    std::string names;
    bool matches = false;
    for (const auto scheme : schemes) {
        names += (names.empty() ? "" : " or ") + std::string(schemeName(scheme));
        matches = matches || sameNetwork(scheme, aidScheme);
    }
    return matches ? "Range check: " + names + " range, as the AID says"
                   : "Range check: " + names + " range, but the AID is " + aidName + "'s";
}

// The check goes under the card number (5A), else under track 2, whose digits it reads:
// up to the F padding or the separator D.
void addRangeCheck(Explanation& explanation, const std::vector<BerNode>& nodes,
                   PaymentScheme scheme) {
    if (scheme == PaymentScheme::Any) return;
    const BerNode* holder = explain::cardNumberHolder(nodes);
    if (holder == nullptr) return;
    const std::string pan = explain::cardNumberDigits(*holder);
    if (pan.empty()) return;
    explanation.elements[static_cast<std::size_t>(holder - nodes.data())].meaning.push_back(
        rangeCheck(pan, scheme));
}

// The whole input as hex, with card data masked where it lies, so that every element,
// templates included, takes its shown value from one place.
std::string maskedHex(std::span<const std::uint8_t> data, const std::vector<BerNode>& nodes,
                      PaymentScheme scheme, bool showSensitive) {
    std::string hex = codec::hexUpper(data);
    if (showSensitive) return hex;
    for (const auto& node : nodes) {
        if (node.constructed) continue;
        const std::span<char> digits(hex.data() + 2 * offsetIn(data, node.value),
                                     2 * node.value.size());
        CardDataPolicy::maskValue(node.tagNumber(), scheme, digits);
    }
    return hex;
}

// Where the kernel is not known (no AID in the data nor given) and tag means different things
// in different kernels: every meaning, rather than one chosen silently.
void addKernelCandidates(ExplainedElement& element, std::uint32_t tag, PaymentScheme scheme) {
    if (scheme != PaymentScheme::Any) return;
    const auto entries = EmvDictionary::entries();
    const auto first =
        std::lower_bound(entries.begin(), entries.end(), tag,
                         [](const TagInfo& e, std::uint32_t t) { return e.tag < t; });
    const auto last = std::upper_bound(first, entries.end(), tag,
                                       [](std::uint32_t t, const TagInfo& e) { return t < e.tag; });
    if (last - first < 2) return;
    std::string candidates = "No AID says which kernel: ";
    for (auto entry = first; entry != last; ++entry) {
        if (entry != first) candidates += "; ";
        candidates +=
            (entry->scheme == PaymentScheme::Any ? std::string("shared meaning")
                                                 : std::string(schemeName(entry->scheme))) +
            ": " + std::string(entry->name);
    }
    element.meaning.push_back(candidates);
    element.decoded = true;
}

}  // namespace

Explanation Explainer::explain(std::span<const std::uint8_t> data, const ExplainOptions& options) {
    Explanation explanation;
    BerReadResult read;
    const std::size_t size = data.size();
    if (size >= 2 && StatusWord::isStatusWord(data[size - 2], data[size - 1])) {
        BerReader::read(data.first(size - 2), read, options.maxDepth);
        if (read.ok()) {
            explanation.status = ExplainedStatus{
                codec::hexUpper(data.last(2)), StatusWord::meaning(data[size - 2], data[size - 1])};
        }
    }
    if (!explanation.status) BerReader::read(data, read, options.maxDepth);
    explanation.error = read.error;

    const DecodeContext context = contextOf(read.nodes, options);
    const std::string shown = maskedHex(data, read.nodes, context.scheme, options.showSensitive);
    explanation.elements.reserve(read.nodes.size());
    for (const auto& node : read.nodes) {
        ExplainedElement& element = explanation.elements.emplace_back();
        const std::uint32_t tag = node.tagNumber();
        element.tag = codec::hexUpper(node.tag);
        const TagInfo* info = EmvDictionary::find(tag, context.scheme);
        element.name = info != nullptr ? info->name : Tag::kUnknownTagName;
        element.length = node.value.size();
        element.value = shown.substr(2 * offsetIn(data, node.value), 2 * node.value.size());
        element.depth = node.depth;
        element.subtreeEnd = node.subtreeEnd;
        element.constructed = node.constructed;
        if (!node.constructed && FieldDecoders::has(tag, context.scheme)) {
            element.meaning = FieldDecoders::decode(tag, node.value, context);
            element.decoded = true;
        }
        addKernelCandidates(element, tag, context.scheme);
    }
    addRangeCheck(explanation, read.nodes, context.scheme);
    return explanation;
}

}  // namespace vastrel
