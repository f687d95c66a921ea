#pragma once

#include <stdexcept>

namespace vastrel::tool {

// Bad input (hex, card number, JSON, file): main prints what() as one error line and
// exits with status 1.
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The command line itself is wrong: main prints what() as one error line and exits with
// status 2, as for argument-parsing errors.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace vastrel::tool
