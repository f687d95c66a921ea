// TLVDecoder::decodeWithTLVString and decodeTlv. Neither ever throws nor nests deeper than
// kMaxTLVDepth (the seed deep-nesting holds 582 levels). Every level holds no more elements
// than it has bytes; a value is either empty or exactly the declared
// length; only constructed elements have children; each decoded level logs one summary;
// decodeWithTLVString is decodeTlv of its pairs read with hexToInt; and masking card data
// in the log changes nothing in the result.
//
// The first input byte chooses the entry point: with bit 2 clear, decodeWithTLVString of
// hex text (see HexText); with bit 2 set, decodeTlv of the rest read as 32-bit numbers
// (bit 3 set) or as bytes.
#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVDepth.hpp"
#include "vastrel/Tags/SensitiveData.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

using Elements = std::optional<std::vector<TLVObject>>;

// The elements as one text (tag:length:value{children}), since records do not compare.
void render(const std::vector<TLVObject>& elements, std::string& out) {
    for (const TLVObject& element : elements) {
        out += element.tag().value_or("-") + ':' + element.length().value_or("-") + ':' +
               element.value().value_or("-");
        if (const auto& children = element.innerTlvs()) {
            out += '{';
            render(*children, out);
            out += '}';
        }
        out += ' ';
    }
}

std::string render(const Elements& elements) {
    if (!elements) return "absent";
    std::string out;
    render(*elements, out);
    return out;
}

struct Walk {
    std::size_t levels = 0;  // levels decoded, each of which logs a summary
    bool wideNumbers = false;
};

void checkLevel(const std::vector<TLVObject>& elements, std::size_t levelBytes, Walk& walk,
                std::size_t depth = 1) {
    FUZZ_CHECK(depth <= kMaxTLVDepth);
    ++walk.levels;
    FUZZ_CHECK(elements.size() <= levelBytes);
    for (const TLVObject& element : elements) {
        const std::string& tag = element.tag().value();
        FUZZ_CHECK(!tag.empty());
        // "%02lX" writes a number above 0xFF with as many digits as it takes.
        if (!walk.wideNumbers) FUZZ_CHECK(tag.size() % 2 == 0 && tag.size() <= 6);
        FUZZ_CHECK(element.tagName().value() == Tag::tagName(tag));
        const long long length = std::stoll(element.length().value());
        const std::string& value = element.value().value();
        if (!walk.wideNumbers) {
            FUZZ_CHECK(value.empty() || static_cast<long long>(value.size()) == 2 * length);
        }
        if (!value.empty() && SensitiveData::isSensitive(tag)) {
            FUZZ_CHECK(SensitiveData::maskedValue(tag, value).find(value) == std::string::npos);
        }
        if (const auto& children = element.innerTlvs()) {
            FUZZ_CHECK(length > 0 && !value.empty());
            // With numbers above 0xFF the text's first two digits are not the first byte.
            if (!walk.wideNumbers) {
                FUZZ_CHECK((std::stoi(tag.substr(0, 2), nullptr, 16) & 0x20) != 0);
            }
            checkLevel(*children, static_cast<std::size_t>(length), walk, depth + 1);
        }
    }
}

// Decodes with the log captured, with masking on and off; checks what both must share.
template <class Decode>
Elements decodeBothWays(Decode&& decode, std::size_t byteCount, bool wideNumbers) {
    std::vector<std::string> maskedLog;
    Elements masked;
    {
        const LogLines log;
        masked = decode();
        maskedLog = log.lines();
    }
    log::setMaskSensitiveData(false);
    Elements plain;
    std::vector<std::string> plainLog;
    {
        const LogLines log;
        plain = decode();
        plainLog = log.lines();
    }
    log::setMaskSensitiveData(true);

    FUZZ_CHECK(render(masked) == render(plain));
    FUZZ_CHECK(maskedLog.size() == plainLog.size());
    if (!masked) return masked;
    Walk walk{0, wideNumbers};
    checkLevel(*masked, byteCount, walk);
    // One summary per level, and at most one line about a template past the depth limit.
    const auto tooDeep = std::count(maskedLog.begin(), maskedLog.end(), "TLV nesting too deep");
    FUZZ_CHECK(tooDeep <= 1);
    FUZZ_CHECK(maskedLog.size() - static_cast<std::size_t>(tooDeep) == walk.levels);
    return masked;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 0 && (data[0] & 4) != 0) {
        std::vector<std::int32_t> numbers;
        const bool wide = (data[0] & 8) != 0;
        if (wide) {
            numbers.resize((size - 1) / 4);
            if (!numbers.empty()) std::memcpy(numbers.data(), data + 1, 4 * numbers.size());
        } else {
            numbers.assign(data + 1, data + size);
        }
        const Elements elements =
            decodeBothWays([&] { return TLVDecoder::decodeTlv(numbers); }, numbers.size(), wide);
        FUZZ_CHECK(elements.has_value() == !numbers.empty());
        return 0;
    }

    const HexText input = hexTextFromInput(data, size);
    const std::string& text = input.text;
    const std::size_t pairs = text.size() / 2;
    const Elements elements =
        decodeBothWays([&] { return TLVDecoder::decodeWithTLVString(text); }, pairs, false);
    if (text.size() % 2 != 0 || text.empty()) {
        FUZZ_CHECK(!elements.has_value());
        return 0;
    }
    std::vector<std::int32_t> numbers(pairs);
    for (std::size_t i = 0; i < pairs; ++i) {
        numbers[i] = static_cast<std::uint8_t>(TLVDecoder::hexToInt(text.substr(2 * i, 2)));
    }
    const LogLines quiet;
    FUZZ_CHECK(render(TLVDecoder::decodeTlv(numbers)) == render(elements));
    return 0;
}
