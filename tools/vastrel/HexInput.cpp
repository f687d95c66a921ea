#include "HexInput.hpp"

#include <cctype>
#include <istream>
#include <iterator>
#include <sstream>

#include "Ascii.hpp"
#include "ToolError.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel::tool {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// The character as a reader can see it in an error message.
std::string describeCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isprint(byte) != 0) return std::string("'") + c + "'";
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return std::string("byte 0x") + kDigits[byte >> 4] + kDigits[byte & 0x0F];
}

// Index of the first character after leading blanks and an optional 0x prefix.
std::size_t digitsStart(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i]))
        ++i;
    if (i + 1 < text.size() && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X')) {
        i += 2;
    }
    return i;
}

}  // namespace

std::string cleanHex(std::string_view text, std::string_view what, std::string_view separators) {
    std::string digits;
    digits.reserve(text.size());
    for (std::size_t i = digitsStart(text); i < text.size(); ++i) {
        const char c = text[i];
        if (isBlank(c) || separators.find(c) != std::string_view::npos) continue;
        if (!HexDecoder::isHexDigit(c)) {
            std::ostringstream message;
            message << "in " << what << ": " << describeCharacter(c) << " at position " << i + 1
                    << " is not a hex digit";
            throw InputError(message.str());
        }
        digits.push_back(asciiUpper(c));
    }
    if (digits.empty()) throw InputError("no " + std::string(what) + " given");
    if (digits.size() % 2 != 0) {
        throw InputError(std::string(what) + " has an odd number of digits (" +
                         std::to_string(digits.size()) + "); every byte takes two");
    }
    return digits;
}

std::string InputSource::readAll() const {
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string readHexInput(const std::vector<std::string>& args, const InputSource& input,
                         std::string_view separators) {
    if (!args.empty()) {
        std::string joined;
        for (const auto& arg : args)
            joined += arg + ' ';
        return cleanHex(joined, "hex data", separators);
    }
    if (input.isTerminal) {
        throw UsageError("no HEX given: pass it as an argument or pipe it on standard input");
    }
    return cleanHex(input.readAll(), "hex data", separators);
}

Bytes readHexBytes(const std::vector<std::string>& args, const InputSource& input,
                   std::string_view separators) {
    Bytes bytes;
    // cleanHex has checked every digit; a fault here would be ours, not the input's.
    if (HexDecoder::decode(readHexInput(args, input, separators), bytes)) {
        throw InputError("hex data could not be decoded");
    }
    return bytes;
}

}  // namespace vastrel::tool
