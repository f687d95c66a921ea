#pragma once

#include <cstdint>
#include <span>

#include "vastrel/Explain/PaymentScheme.hpp"

namespace vastrel::explain {

// Masks, in place, the hex digits of a card-data element's value: a card number keeps its
// first six and last four digits, track 2 data its expiry date and service code as well,
// and the rest of these values (track 1, names, PIN data, discretionary data) become '*'.
// Values of other tags are left alone.
void maskCardData(std::uint32_t tag, PaymentScheme scheme, std::span<char> valueHex);

}  // namespace vastrel::explain
