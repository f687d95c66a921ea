#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <vector>

#include "DisplayValue.hpp"
#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel::tool {

// Keys keep the order they are written in, so scripts and diffs see a stable layout.
using Json = nlohmann::ordered_json;

// Decoded elements as an array of {"tag", "name", "length" (a number), "value",
// "children"}; children is an empty array unless the element was decoded into children, and
// then value is null.
// Values are shown through display. Recurses once per level of a decoded tree, which the
// decoder keeps within kMaxTLVDepth.
Json tlvTreeJson(const std::vector<TLVObject>& elements, const ValueDisplay& display);

// An enumeration value with its display string: {"value": 94, "name": "SIGNATURE
// REQUIRED"}; name is null when the table has no string for the value.
Json enumJson(EnumType type, std::uint64_t value);

// A CVMResult as enumJson writes it, but named by cvmResultText, so 31 and 94 differ.
Json cvmResultJson(CVMResult result);

// Every field of the receipt in declaration order: enumerations as enumJson, strings as
// strings or null, the date as "2025-03-15T13:45:02Z" or null.
Json receiptJson(const TransactionReceipt& receipt);

// The JSON text as printed: two-blank indentation and a final newline.
std::string dumpJson(const Json& json);

}  // namespace vastrel::tool
