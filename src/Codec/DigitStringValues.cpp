#include "vastrel/Codec/DigitStringValues.hpp"

#include "Codec/DigitKeys.hpp"

namespace vastrel {

std::string DigitStringValues::stringForDigit(std::uint64_t value) {
    return std::string(digitkeys::kKeys[digitkeys::keyIndex(value)]);
}

}  // namespace vastrel
