#pragma once

#include <stdexcept>
#include <string>

namespace vastrel {

// Thrown when input breaks an operation's documented assertion (for example hex text
// of odd length). what() holds the assertion's message exactly.
class AssertionFailure : public std::logic_error {
  public:
    using std::logic_error::logic_error;
};

}  // namespace vastrel
