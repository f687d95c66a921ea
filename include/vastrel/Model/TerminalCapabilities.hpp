#pragma once

#include <cstdint>

namespace vastrel {

// The four EMV terminal capability settings of a reader, as unread codes.
class TerminalCapabilities {
  public:
    // The misspelt name is published; callers use it as is.
    std::uint64_t terminalOperatingEnvironemt() const { return terminalOperatingEnvironemt_; }
    void setTerminalOperatingEnvironemt(std::uint64_t v) { terminalOperatingEnvironemt_ = v; }
    std::uint64_t terminalAuthenticationCapability() const {
        return terminalAuthenticationCapability_;
    }
    void setTerminalAuthenticationCapability(std::uint64_t v) {
        terminalAuthenticationCapability_ = v;
    }
    std::uint64_t terminalOutputCapability() const { return terminalOutputCapability_; }
    void setTerminalOutputCapability(std::uint64_t v) { terminalOutputCapability_ = v; }
    std::uint64_t terminalInputCapability() const { return terminalInputCapability_; }
    void setTerminalInputCapability(std::uint64_t v) { terminalInputCapability_ = v; }

    // A field-by-field copy.
    TerminalCapabilities copy() const { return *this; }

  private:
    std::uint64_t terminalOperatingEnvironemt_ = 0;
    std::uint64_t terminalAuthenticationCapability_ = 0;
    std::uint64_t terminalOutputCapability_ = 0;
    std::uint64_t terminalInputCapability_ = 0;
};

}  // namespace vastrel
