#include "HexInput.hpp"

#include <cctype>
#include <fstream>
#include <istream>
#include <iterator>
#include <sstream>

#include "ToolError.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel::tool {
namespace {

// The character as a reader can see it in an error message.
std::string describeCharacter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isprint(byte) != 0) return std::string("'") + c + "'";
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return std::string("byte 0x") + kDigits[byte >> 4] + kDigits[byte & 0x0F];
}

}  // namespace

std::string cleanHex(std::string_view text, std::string_view what, std::string_view separators) {
    HexDecoder::Cleaned cleaned = HexDecoder::clean(text, separators);
    if (cleaned.error && cleaned.error->kind == HexErrorKind::NotHexDigit) {
        const std::size_t at = cleaned.error->offset;
        std::ostringstream message;
        message << "in " << what << ": " << describeCharacter(text[at]) << " at position " << at + 1
                << " is not a hex digit";
        throw InputError(message.str());
    }
    if (cleaned.digits.empty()) throw InputError("no " + std::string(what) + " given");
    if (cleaned.error) {
        throw InputError(std::string(what) + " has an odd number of digits (" +
                         std::to_string(cleaned.digits.size()) + "); every byte takes two");
    }
    return std::move(cleaned.digits);
}

std::string InputSource::readAll() const {
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string readFileText(const std::string& file, const InputSource& input) {
    if (file == "-") return input.readAll();
    std::ifstream in(file, std::ios::binary);
    if (!in) throw InputError("cannot read " + file);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string readText(const std::vector<std::string>& args, const InputSource& input) {
    if (!args.empty()) {
        std::string joined;
        for (const auto& arg : args)
            joined += arg + ' ';
        return joined;
    }
    if (input.isTerminal) {
        throw UsageError("no HEX given: pass it as an argument or pipe it on standard input");
    }
    return input.readAll();
}

std::string readHexInput(const std::vector<std::string>& args, const InputSource& input,
                         std::string_view separators) {
    return cleanHex(readText(args, input), "hex data", separators);
}

Bytes hexBytes(std::string_view text, std::string_view separators) {
    Bytes bytes;
    // cleanHex has checked every digit; a fault here would be ours, not the input's.
    if (HexDecoder::decode(cleanHex(text, "hex data", separators), bytes)) {
        throw InputError("hex data could not be decoded");
    }
    return bytes;
}

}  // namespace vastrel::tool
