#include "vastrel/Codec/BerValue.hpp"

namespace vastrel {

void BerValue::setValue(std::optional<Bytes> v) { value_ = std::move(v); }

}  // namespace vastrel
