// Explainer::toJson: the explanation as one JSON object, written in one pass.
#include <vector>

#include "ExplanationJson.hpp"

#include "vastrel/Explain/Explainer.hpp"

namespace vastrel {
namespace explain {
namespace {

void writeElementFields(JsonWriter& json, const ExplainedElement& element) {
    json.key("tag");
    json.string(element.tag);
    json.key("name");
    json.string(element.name);
    json.key("length");
    json.number(element.length);
    json.key("value");
    json.string(element.value);
    if (element.decoded) {
        json.key("meaning");
        json.beginArray();
        for (const auto& finding : element.meaning)
            json.string(finding);
        json.endArray();
    }
}

}  // namespace

void writeElements(JsonWriter& json, const std::vector<ExplainedElement>& elements) {
    std::vector<std::uint32_t> openEnds;
    json.beginArray();
    for (std::uint32_t i = 0; i <= elements.size(); ++i) {
        while (!openEnds.empty() && openEnds.back() <= i) {
            json.endArray();
            json.endObject();
            openEnds.pop_back();
        }
        if (i == elements.size()) break;
        const ExplainedElement& element = elements[i];
        json.beginObject();
        writeElementFields(json, element);
        if (element.constructed) {
            json.key("children");
            json.beginArray();
            openEnds.push_back(element.subtreeEnd);
        } else {
            json.endObject();
        }
    }
    json.endArray();
}

void writeExplanationFields(JsonWriter& json, const Explanation& explanation) {
    json.key("elements");
    writeElements(json, explanation.elements);
    json.key("status");
    if (explanation.status) {
        json.beginObject();
        json.key("sw");
        json.string(explanation.status->word);
        json.key("meaning");
        json.string(explanation.status->meaning);
        json.endObject();
    } else {
        json.null();
    }
    json.key("error");
    if (explanation.error) {
        json.beginObject();
        json.key("offset");
        json.number(explanation.error->offset);
        json.key("reason");
        json.string(describe(explanation.error->kind));
        json.endObject();
    } else {
        json.null();
    }
}

}  // namespace explain

std::string Explainer::toJson(const Explanation& explanation) {
    explain::JsonWriter json;
    json.beginObject();
    explain::writeExplanationFields(json, explanation);
    json.endObject();
    return json.finish();
}

}  // namespace vastrel
