#pragma once

#include <cstdint>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// Conversions of status codes for the gateway layer.
class ConversionHelper {
  public:
    // The reversal reason for a status code: 6 for 0 and 1, 1 for 5, 2 for 6, and 3 for
    // every other value.
    static ReversalReason toReversalReason(std::uint64_t status);
};

}  // namespace vastrel
