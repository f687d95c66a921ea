#pragma once

#include <stdexcept>
#include <string>

namespace vastrel {

// Thrown when a byte range is taken past the end of its data, or a length field is
// written beyond what the encoder supports.
class RangeError : public std::out_of_range {
  public:
    using std::out_of_range::out_of_range;
};

}  // namespace vastrel
