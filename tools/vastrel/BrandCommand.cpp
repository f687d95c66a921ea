// `vastrel brand`: the card brand from the leading digits of a (masked) card number.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "CardNumber.hpp"
#include "Commands.hpp"
#include "EnumNames.hpp"
#include "JsonRender.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"

namespace vastrel::tool {
namespace {

struct BrandOptions {
    std::string pan;
    bool json = false;
};

CommandOutput runBrand(const BrandOptions& options) {
    std::string pan = options.pan;
    // Numbers are often written in groups: "4761 7390 0101 0010".
    pan.erase(std::remove(pan.begin(), pan.end(), ' '), pan.end());
    requireDigitPrefix(pan);
    const auto type =
        static_cast<std::uint64_t>(CreditCardHelper().getCardTypeFromRedactedPan(pan));
    if (options.json)
        return {dumpJson(Json{{"cardType", enumJson(EnumType::CardType, type)}}), {}, {}};
    return {displayString(EnumType::CardType, type) + " (CardType " + std::to_string(type) + ")\n",
            {},
            {}};
}

}  // namespace

Command addBrandCommand(CLI::App& app) {
    auto options = std::make_shared<BrandOptions>();
    auto* parser = app.add_subcommand(
        "brand", "Tell the card brand from a card number; only the first six digits are read");
    parser
        ->add_option("PAN", options->pan,
                     "Card number, masked or not (411111XXXXXX1111); the first six "
                     "characters must be digits")
        ->required();
    parser->add_flag("--json", options->json, "Print the brand as JSON");
    return {parser, [options](CommandContext&) { return runBrand(*options); }};
}

}  // namespace vastrel::tool
