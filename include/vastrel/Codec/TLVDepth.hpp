#pragma once

#include <cstddef>

namespace vastrel {

// The deepest nesting of templates that Vastrel expands, counting the top level as 1. The
// nested decoder keeps a constructed element at this depth whole, as hex, without children,
// and logs "TLV nesting too deep" once per call; everything that walks a decoded tree can
// rely on it being no deeper. Real EMV data nests three or four levels.
inline constexpr std::size_t kMaxTLVDepth = 32;

}  // namespace vastrel
