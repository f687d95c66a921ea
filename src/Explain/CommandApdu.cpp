#include "vastrel/Explain/CommandApdu.hpp"

#include <algorithm>
#include <array>

#include "DecoderParts.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"

namespace vastrel {
namespace {

struct KnownCommand {
    std::uint8_t ins;
    EmvCommand command;
    std::string_view name;
};

constexpr std::array<KnownCommand, 18> kCommands = {{
    {0xA4, EmvCommand::Select, "SELECT"},
    {0xB2, EmvCommand::ReadRecord, "READ RECORD"},
    {0xA8, EmvCommand::GetProcessingOptions, "GET PROCESSING OPTIONS"},
    {0xAE, EmvCommand::GenerateAc, "GENERATE AC"},
    {0xCA, EmvCommand::GetData, "GET DATA"},
    {0x20, EmvCommand::Verify, "VERIFY"},
    {0x88, EmvCommand::InternalAuthenticate, "INTERNAL AUTHENTICATE"},
    {0x82, EmvCommand::ExternalAuthenticate, "EXTERNAL AUTHENTICATE"},
    {0x84, EmvCommand::GetChallenge, "GET CHALLENGE"},
    {0x2A, EmvCommand::ComputeCryptographicChecksum, "COMPUTE CRYPTOGRAPHIC CHECKSUM"},
    {0xD4, EmvCommand::ExchangeRelayResistanceData, "EXCHANGE RELAY RESISTANCE DATA"},
    {0xC0, EmvCommand::GetResponse, "GET RESPONSE"},
    {0x1E, EmvCommand::ApplicationBlock, "APPLICATION BLOCK"},
    {0x18, EmvCommand::ApplicationUnblock, "APPLICATION UNBLOCK"},
    {0x16, EmvCommand::CardBlock, "CARD BLOCK"},
    {0x24, EmvCommand::PinChangeUnblock, "PIN CHANGE/UNBLOCK"},
    {0xDA, EmvCommand::PutData, "PUT DATA"},
    {0xDC, EmvCommand::UpdateRecord, "UPDATE RECORD"},
}};

const KnownCommand* knownCommand(std::uint8_t ins) {
    const auto* found = std::find_if(kCommands.begin(), kCommands.end(),
                                     [ins](const KnownCommand& c) { return c.ins == ins; });
    return found == kCommands.end() ? nullptr : found;
}

bool isText(std::span<const std::uint8_t> data) {
    return !data.empty() && std::all_of(data.begin(), data.end(), explain::printable);
}

std::vector<std::string> selectParameters(const CommandApdu& apdu) {
    std::vector<std::string> words;
    if (apdu.p1 != 0x04) {
        std::string word = "Select by P1 ";
        word += explain::hex(apdu.p1);
        word += " (not by name)";
        words.push_back(word);
        return words;
    }
    const std::string name(apdu.data.begin(), apdu.data.end());
    if (name == "1PAY.SYS.DDF01") {
        words.push_back("Payment System Environment (PSE), 1PAY.SYS.DDF01");
    } else if (name == "2PAY.SYS.DDF01") {
        words.push_back("Proximity Payment System Environment (PPSE), 2PAY.SYS.DDF01");
    } else if (isText(apdu.data)) {
        words.push_back("File " + name);
    } else {
        words.push_back("Application " + explain::describeAid(apdu.data));
    }
    words.push_back(apdu.p2 == 0x02 ? "Next occurrence" : "First or only occurrence");
    return words;
}

std::vector<std::string> generateAcParameters(const CommandApdu& apdu) {
    static constexpr std::array<std::string_view, 4> kCryptograms = {
        "AAC (decline)", "TC (approve offline)", "ARQC (go online)", "RFU cryptogram type"};
    std::vector<std::string> words = {"Asks for " + std::string(kCryptograms[apdu.p1 >> 6])};
    if ((apdu.p1 & 0x10) != 0) words.push_back("CDA signature requested");
    return words;
}

}  // namespace

std::optional<CommandApdu> CommandApdu::parse(std::span<const std::uint8_t> apdu) {
    if (apdu.size() < 4) return std::nullopt;
    CommandApdu command;
    command.cla = apdu[0];
    command.ins = apdu[1];
    command.p1 = apdu[2];
    command.p2 = apdu[3];
    if (apdu.size() == 5) {
        command.le = apdu[4];
    } else if (apdu.size() > 5) {
        const std::size_t lc = apdu[4];
        if (apdu.size() != 5 + lc && apdu.size() != 6 + lc) return std::nullopt;
        command.lc = apdu[4];
        command.data = apdu.subspan(5, lc);
        if (apdu.size() == 6 + lc) command.le = apdu.back();
    }
    if (const KnownCommand* known = knownCommand(command.ins)) command.command = known->command;
    return command;
}

std::string_view CommandApdu::name() const noexcept {
    const KnownCommand* known = knownCommand(ins);
    return known != nullptr ? known->name : "UNKNOWN COMMAND";
}

std::vector<std::string> CommandApdu::parameters() const {
    switch (command) {
        case EmvCommand::Select:
            return selectParameters(*this);
        case EmvCommand::ReadRecord:
            return {"Record " + std::to_string(p1) + " of SFI " + std::to_string(p2 >> 3)};
        case EmvCommand::GenerateAc:
            return generateAcParameters(*this);
        case EmvCommand::GetData: {
            // A one-byte tag is sent with P1 00.
            const std::array<std::uint8_t, 2> tagBytes = {p1, p2};
            const auto tag = std::span<const std::uint8_t>(tagBytes).subspan(p1 == 0 ? 1 : 0);
            const TagInfo* info = EmvDictionary::find(p1 == 0 ? p2 : (std::uint32_t{p1} << 8 | p2));
            return {"Data object " + explain::hex(tag) +
                    (info != nullptr ? " (" + std::string(info->name) + ")" : "")};
        }
        case EmvCommand::Verify:
            if (p2 == 0x80) return {"Plaintext PIN (PIN block masked)"};
            if (p2 == 0x88) return {"Enciphered PIN (PIN block masked)"};
            return {"PIN qualifier " + explain::hex(p2) + " (data masked)"};
        default:
            return {};
    }
}

}  // namespace vastrel
