#include "DisplayValue.hpp"

#include "vastrel/Platform/Log.hpp"
#include "vastrel/Tags/SensitiveData.hpp"

namespace vastrel::tool {

// Masked as the library masks its own log lines, and shown in full when they are
// (--show-sensitive turns both off).
std::string displayValue(std::string_view tag, std::string_view value) {
    if (!log::masksSensitiveData()) return std::string(value);
    return SensitiveData::maskedValue(tag, value);
}

}  // namespace vastrel::tool
