#include "DisplayValue.hpp"

#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel::tool {

ValueDisplay::ValueDisplay(std::string_view data, bool showSensitive)
    : showSensitive_(showSensitive) {
    if (!showSensitive) scheme_ = ApplicationIdentifier::schemeOfHex(data);
}

std::string ValueDisplay::operator()(std::string_view tagHex, std::string_view valueHex) const {
    if (showSensitive_) return std::string(valueHex);
    return CardDataPolicy::maskedValueHex(tagHex, scheme_, valueHex);
}

std::string ValueDisplay::element(std::string_view tlvHex) const {
    if (showSensitive_) return std::string(tlvHex);
    return CardDataPolicy::maskedTlvHex(tlvHex, scheme_);
}

}  // namespace vastrel::tool
