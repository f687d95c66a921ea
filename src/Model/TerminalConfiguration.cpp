#include "vastrel/Model/TerminalConfiguration.hpp"

namespace vastrel {

TerminalConfiguration TerminalConfiguration::copy() const {
    TerminalConfiguration result = *this;
    result.setCapks(std::nullopt);
    return result;
}

}  // namespace vastrel
