#pragma once

// The decoder's per-level log line: a dictionary of the level's elements keyed by tag,
// written as the platform describes a dictionary.

#include <cstdint>
#include <span>
#include <string>

#include "vastrel/Codec/TLVObject.hpp"

namespace vastrel::codec {

// The summary of the elements at the listed positions, e.g.
//   {
//       9F02 =     {
//           length = 6;
//           name = "Amount, Authorised (Numeric)";
//           value = 000000001000;
//       };
//   }
// Where several listed elements share a tag, the last one listed is shown; entries are
// sorted by tag text, so the line does not depend on input order. With mask set, values
// are shown as SensitiveData::maskedValue shows them. A text made of letters, digits and
// _$/:.- only is written bare, any other quoted with " and \ escaped. Time is linear in the
// number of positions, plus sorting the distinct tags.
std::string describeLevel(std::span<const TLVObject> elements,
                          std::span<const std::uint32_t> listed, bool mask);

}  // namespace vastrel::codec
