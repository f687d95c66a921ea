#include "SensitiveData.hpp"

namespace vastrel::tool {

std::string displayValue(std::string_view /*tag*/, std::string_view value) {
    return std::string(value);
}

}  // namespace vastrel::tool
