#pragma once

#include <cstdint>
#include <vector>

namespace vastrel {

// A growable byte buffer. Read-only inputs take std::span<const std::uint8_t> instead.
using Bytes = std::vector<std::uint8_t>;

}  // namespace vastrel
