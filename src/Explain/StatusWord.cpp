#include "vastrel/Explain/StatusWord.hpp"

#include <string_view>

namespace vastrel {
namespace {

struct KnownWord {
    std::uint16_t word;
    std::string_view meaning;
};

constexpr KnownWord kExact[] = {
    {0x9000, "normal processing"},
    {0x6200, "warning: no information given, state of non-volatile memory unchanged"},
    {0x6281, "warning: part of returned data may be corrupted"},
    {0x6282, "warning: end of file or record reached before reading Ne bytes"},
    {0x6283, "warning: selected file invalidated"},
    {0x6284, "warning: file control information not formatted"},
    {0x6285, "warning: selected file in termination state"},
    {0x6286, "warning: no input data available from a sensor on the card"},
    {0x6300, "warning: no information given, state of non-volatile memory changed"},
    {0x6381, "warning: file filled up by the last write"},
    {0x6400, "execution error: state of non-volatile memory unchanged"},
    {0x6401, "execution error: immediate response required by the card"},
    {0x6500, "execution error: no information given, state of non-volatile memory changed"},
    {0x6581, "execution error: memory failure"},
    {0x6700, "checking error: wrong length"},
    {0x6800, "checking error: functions in CLA not supported"},
    {0x6881, "checking error: logical channel not supported"},
    {0x6882, "checking error: secure messaging not supported"},
    {0x6883, "checking error: last command of the chain expected"},
    {0x6884, "checking error: command chaining not supported"},
    {0x6900, "checking error: command not allowed"},
    {0x6981, "checking error: command incompatible with file structure"},
    {0x6982, "checking error: security status not satisfied"},
    {0x6983, "checking error: authentication method blocked"},
    {0x6984, "checking error: reference data not usable"},
    {0x6985, "checking error: conditions of use not satisfied"},
    {0x6986, "checking error: command not allowed (no current EF)"},
    {0x6987, "checking error: expected secure messaging data objects missing"},
    {0x6988, "checking error: incorrect secure messaging data objects"},
    {0x6A00, "checking error: wrong parameters P1-P2"},
    {0x6A80, "checking error: incorrect parameters in the command data field"},
    {0x6A81, "checking error: function not supported"},
    {0x6A82, "checking error: file or application not found"},
    {0x6A83, "checking error: record not found"},
    {0x6A84, "checking error: not enough memory space in the file"},
    {0x6A85, "checking error: Nc inconsistent with TLV structure"},
    {0x6A86, "checking error: incorrect parameters P1-P2"},
    {0x6A87, "checking error: Nc inconsistent with parameters P1-P2"},
    {0x6A88, "checking error: referenced data or reference data not found"},
    {0x6A89, "checking error: file already exists"},
    {0x6A8A, "checking error: DF name already exists"},
    {0x6B00, "checking error: wrong parameters P1-P2"},
    {0x6D00, "checking error: instruction code not supported or invalid"},
    {0x6E00, "checking error: class not supported"},
    {0x6F00, "checking error: no precise diagnosis"},
};

struct KnownGroup {
    std::uint8_t sw1;
    std::string_view meaning;
};

constexpr KnownGroup kGroups[] = {
    {0x62, "warning: state of non-volatile memory unchanged"},
    {0x63, "warning: state of non-volatile memory changed"},
    {0x64, "execution error: state of non-volatile memory unchanged"},
    {0x65, "execution error: state of non-volatile memory changed"},
    {0x66, "execution error: security-related issue"},
    {0x67, "checking error: wrong length"},
    {0x68, "checking error: functions in CLA not supported"},
    {0x69, "checking error: command not allowed"},
    {0x6A, "checking error: wrong parameters P1-P2"},
    {0x6B, "checking error: wrong parameters P1-P2"},
    {0x6D, "checking error: instruction code not supported or invalid"},
    {0x6E, "checking error: class not supported"},
    {0x6F, "checking error: no precise diagnosis"},
    {0x90, "normal processing (proprietary qualifier)"},
};

}  // namespace

bool StatusWord::isStatusWord(std::uint8_t sw1, std::uint8_t /*sw2*/) noexcept {
    return sw1 == 0x90 || (sw1 >= 0x61 && sw1 <= 0x6F);
}

std::string StatusWord::meaning(std::uint8_t sw1, std::uint8_t sw2) {
    if (sw1 == 0x61) {
        return "normal processing, " + std::to_string(sw2) + " more bytes available (GET RESPONSE)";
    }
    if (sw1 == 0x6C) {
        return "checking error: wrong Le field, " + std::to_string(sw2) + " bytes available";
    }
    if (sw1 == 0x63 && (sw2 & 0xF0) == 0xC0) {
        const int tries = sw2 & 0x0F;
        return "verification failed, " + std::to_string(tries) +
               (tries == 1 ? " try left" : " tries left");
    }
    const std::uint16_t word = static_cast<std::uint16_t>(sw1 << 8 | sw2);
    for (const auto& known : kExact) {
        if (known.word == word) return std::string(known.meaning);
    }
    for (const auto& group : kGroups) {
        if (group.sw1 == sw1) return std::string(group.meaning);
    }
    return "not a status word ISO 7816-4 defines";
}

}  // namespace vastrel
