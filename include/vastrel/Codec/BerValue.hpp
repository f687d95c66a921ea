#pragma once

#include <optional>
#include <utility>

#include "vastrel/Platform/Bytes.hpp"

namespace vastrel {

// The value bytes of one TLV element; absent until set.
class BerValue {
  public:
    BerValue() = default;

    const std::optional<Bytes>& value() const { return value_; }
    void setValue(std::optional<Bytes> v);

  private:
    std::optional<Bytes> value_;
};

}  // namespace vastrel
