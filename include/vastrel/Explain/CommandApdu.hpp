#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel {

// The ISO 7816-4 commands of an EMV session, by instruction byte.
enum class EmvCommand : std::uint8_t {
    Unknown,
    Select,
    ReadRecord,
    GetProcessingOptions,
    GenerateAc,
    GetData,
    Verify,
    InternalAuthenticate,
    ExternalAuthenticate,
    GetChallenge,
    ComputeCryptographicChecksum,
    ExchangeRelayResistanceData,
    GetResponse,
    ApplicationBlock,
    ApplicationUnblock,
    CardBlock,
    PinChangeUnblock,
    PutData,
    UpdateRecord,
};

// A command APDU taken apart: CLA INS P1 P2, then Lc and the data, and Le, in the short
// form. Data points into the bytes it was read from.
struct CommandApdu {
    std::uint8_t cla = 0;
    std::uint8_t ins = 0;
    std::uint8_t p1 = 0;
    std::uint8_t p2 = 0;
    std::optional<std::uint8_t> lc;
    std::span<const std::uint8_t> data;
    std::optional<std::uint8_t> le;
    EmvCommand command = EmvCommand::Unknown;

    // Reads apdu; nullopt when it is shorter than four bytes or its Lc disagrees with its
    // length.
    [[nodiscard]] static std::optional<CommandApdu> parse(std::span<const std::uint8_t> apdu);

    // "SELECT", "READ RECORD", ...; "UNKNOWN COMMAND" for an instruction not listed.
    [[nodiscard]] std::string_view name() const noexcept;

    // The parameters in words: the file or AID selected, the record read, the cryptogram asked
    // for, the tag asked for, the PIN's form. The PIN block itself is never shown.
    [[nodiscard]] std::vector<std::string> parameters() const;
};

}  // namespace vastrel
