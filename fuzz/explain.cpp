// Explainer on raw bytes: the JSON it writes always parses, has one element per element read
// and an error exactly when the read failed; a closing status word comes only with a
// successful read.
#include <nlohmann/json.hpp>

#include "FuzzSupport.hpp"
#include "vastrel/Explain/Explainer.hpp"

using namespace vastrel;

namespace {

std::size_t countElements(const nlohmann::json& elements) {
    std::size_t count = 0;
    for (const auto& element : elements) {
        ++count;
        if (element.contains("children")) count += countElements(element["children"]);
    }
    return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ExplainOptions options;
    options.showSensitive = size > 0 && data[0] == 0xFF;
    const Explanation explanation = Explainer::explain({data, size}, options);
    FUZZ_CHECK(!(explanation.status && explanation.error));
    const auto json = nlohmann::json::parse(Explainer::toJson(explanation), nullptr, false);
    FUZZ_CHECK(!json.is_discarded());
    FUZZ_CHECK(countElements(json["elements"]) == explanation.elements.size());
    FUZZ_CHECK(json["error"].is_null() == !explanation.error.has_value());
    FUZZ_CHECK(json["status"].is_null() == !explanation.status.has_value());
    return 0;
}
