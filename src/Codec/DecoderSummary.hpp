#pragma once

// The decoder's per-level log line: a dictionary of the level's elements, written as the
// platform describes a dictionary.

#include <cstdint>
#include <functional>
#include <map>
#include <string>

namespace vastrel::codec {

// One tag's entry in a level's log summary.
struct SummaryEntry {
    std::string name;
    std::int32_t length = 0;
    std::string value;
};

// Keyed by tag text; sorted, so the logged line does not depend on input order.
using Summary = std::map<std::string, SummaryEntry, std::less<>>;

// The summary as a dictionary description, e.g.
//   {
//       9F02 =     {
//           length = 6;
//           name = "Amount, Authorised (Numeric)";
//           value = 000000001000;
//       };
//   }
// A text made of letters, digits and _$/:.- only is written bare, any other quoted with "
// and \ escaped.
std::string describeSummary(const Summary& summary);

}  // namespace vastrel::codec
