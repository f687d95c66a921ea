#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/AIDConfiguration.hpp"
#include "vastrel/Model/EMVCAPK.hpp"
#include "vastrel/Model/TerminalActionCodes.hpp"

namespace vastrel {

// The settings the point-of-sale application loads into the card reader. Nothing is
// checked: negative or crossed PIN lengths and empty lists are kept as given.
//
// The lists and the dictionary hold their elements through shared_ptr because a copy is
// shallow: each copy gets its own container, but an element changed in place is seen
// through every configuration that holds it. The contact lists hold AIDConfiguration
// records (one per application the reader accepts); the Terminal Action Codes are keyed
// by whatever the reader layer chooses (usually the AID's hex string).
class TerminalConfiguration {
  public:
    using AIDList = std::vector<std::shared_ptr<AIDConfiguration>>;
    using TerminalActionCodesDictionary =
        std::map<std::string, std::shared_ptr<TerminalActionCodes>>;
    using CAPKList = std::vector<std::shared_ptr<EMVCAPK>>;

    const std::optional<std::string>& host() const { return host_; }
    void setHost(std::optional<std::string> v) { host_ = std::move(v); }
    std::uint64_t port() const { return port_; }
    void setPort(std::uint64_t v) { port_ = v; }
    std::uint64_t timeout() const { return timeout_; }
    void setTimeout(std::uint64_t v) { timeout_ = v; }
    std::int64_t minPinLength() const { return minPinLength_; }
    void setMinPinLength(std::int64_t v) { minPinLength_ = v; }
    std::int64_t maxPinLength() const { return maxPinLength_; }
    void setMaxPinLength(std::int64_t v) { maxPinLength_ = v; }
    // Not owned, unlike the two other delays: it reads absent once the caller's last
    // shared_ptr to the number is gone. Callers rely on this; keep it.
    const std::weak_ptr<const std::int64_t>& energySaverModeDelay() const {
        return energySaverModeDelay_;
    }
    void setEnergySaverModeDelay(std::weak_ptr<const std::int64_t> v) {
        energySaverModeDelay_ = std::move(v);
    }
    const std::shared_ptr<const std::int64_t>& shutDownDelay() const { return shutDownDelay_; }
    void setShutDownDelay(std::shared_ptr<const std::int64_t> v) { shutDownDelay_ = std::move(v); }
    const std::shared_ptr<const std::int64_t>& screenTurnOffDelay() const {
        return screenTurnOffDelay_;
    }
    void setScreenTurnOffDelay(std::shared_ptr<const std::int64_t> v) {
        screenTurnOffDelay_ = std::move(v);
    }
    std::uint64_t operatingEnvironment() const { return operatingEnvironment_; }
    void setOperatingEnvironment(std::uint64_t v) { operatingEnvironment_ = v; }
    std::uint64_t authenticationCapability() const { return authenticationCapability_; }
    void setAuthenticationCapability(std::uint64_t v) { authenticationCapability_ = v; }
    std::uint64_t outputCapability() const { return outputCapability_; }
    void setOutputCapability(std::uint64_t v) { outputCapability_ = v; }
    std::uint64_t inputCapability() const { return inputCapability_; }
    void setInputCapability(std::uint64_t v) { inputCapability_ = v; }
    TerminalType terminalType() const { return terminalType_; }
    void setTerminalType(TerminalType v) { terminalType_ = v; }
    ConnectionType connectionType() const { return connectionType_; }
    void setConnectionType(ConnectionType v) { connectionType_ = v; }
    const std::optional<AIDList>& contactAIDs() const { return contactAIDs_; }
    void setContactAIDs(std::optional<AIDList> v) { contactAIDs_ = std::move(v); }
    const std::optional<AIDList>& contactLessAIDs() const { return contactLessAIDs_; }
    void setContactLessAIDs(std::optional<AIDList> v) { contactLessAIDs_ = std::move(v); }
    const std::optional<TerminalActionCodesDictionary>& terminalActionCodesDictionary() const {
        return terminalActionCodesDictionary_;
    }
    void setTerminalActionCodesDictionary(std::optional<TerminalActionCodesDictionary> v) {
        terminalActionCodesDictionary_ = std::move(v);
    }
    const std::optional<CAPKList>& capks() const { return capks_; }
    void setCapks(std::optional<CAPKList> v) { capks_ = std::move(v); }
    const std::optional<std::string>& bluetoothName() const { return bluetoothName_; }
    void setBluetoothName(std::optional<std::string> v) { bluetoothName_ = std::move(v); }

    // A shallow copy without capks: a copied configuration never carries CA public keys,
    // whatever the source held. Callers rely on this; keep it. The delays stay shared
    // (the energy-saver delay still unowned), the containers are new, their elements shared.
    TerminalConfiguration copy() const;

  private:
    std::optional<std::string> host_;
    std::uint64_t port_ = 0;
    std::uint64_t timeout_ = 0;
    std::int64_t minPinLength_ = 0;
    std::int64_t maxPinLength_ = 0;
    std::weak_ptr<const std::int64_t> energySaverModeDelay_;
    std::shared_ptr<const std::int64_t> shutDownDelay_;
    std::shared_ptr<const std::int64_t> screenTurnOffDelay_;
    std::uint64_t operatingEnvironment_ = 0;
    std::uint64_t authenticationCapability_ = 0;
    std::uint64_t outputCapability_ = 0;
    std::uint64_t inputCapability_ = 0;
    TerminalType terminalType_{};
    ConnectionType connectionType_{};
    std::optional<AIDList> contactAIDs_;
    std::optional<AIDList> contactLessAIDs_;
    std::optional<TerminalActionCodesDictionary> terminalActionCodesDictionary_;
    std::optional<CAPKList> capks_;
    std::optional<std::string> bluetoothName_;
};

}  // namespace vastrel
