#pragma once

// The pieces of an explanation's JSON, shared by Explainer::toJson and the session
// explanation's JSON.

#include <vector>

#include "JsonWriter.hpp"
#include "vastrel/Explain/Explainer.hpp"

namespace vastrel::explain {

// The elements as nested arrays, walked in document order: a template opens its children's
// array and its subtreeEnd closes it. No recursion, however deep the data.
void writeElements(JsonWriter& json, const std::vector<ExplainedElement>& elements);

// The keys "elements", "status" and "error" of an open object.
void writeExplanationFields(JsonWriter& json, const Explanation& explanation);

}  // namespace vastrel::explain
