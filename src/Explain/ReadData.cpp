// What the elements of a strict read hold: lookups shared by the explainer, the session
// explainer and the AID reader.
#include <algorithm>

#include "DecoderParts.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"

namespace vastrel::explain {
namespace {

constexpr std::uint32_t kPanTag = 0x5A;
constexpr std::uint32_t kTrack2Tag = 0x57;

}  // namespace

const BerNode* firstPrimitive(std::span<const BerNode> nodes, std::uint32_t tag) {
    const auto found = std::find_if(nodes.begin(), nodes.end(), [tag](const BerNode& node) {
        return !node.constructed && node.tagNumber() == tag;
    });
    return found == nodes.end() ? nullptr : &*found;
}

const BerNode* cardNumberHolder(std::span<const BerNode> nodes) {
    const BerNode* holder = firstPrimitive(nodes, kPanTag);
    return holder != nullptr ? holder : firstPrimitive(nodes, kTrack2Tag);
}

std::string cardNumberDigits(const BerNode& holder) {
    std::string digits = hex(holder.value);
    digits.erase(std::find(digits.begin(), digits.end(), holder.tagNumber() == kPanTag ? 'F' : 'D'),
                 digits.end());
    return digits;
}

std::string describeAid(Value aid) {
    const AidInfo info = ApplicationIdentifier::identify(aid);
    std::string words = hex(aid);
    if (info.scheme != PaymentScheme::Any) words += ", " + std::string(schemeName(info.scheme));
    if (!info.product.empty()) words += " (" + std::string(info.product) + ")";
    return words;
}

}  // namespace vastrel::explain
