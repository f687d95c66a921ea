#include "Workload.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>

#include "vastrel/Codec/TLVParser.hpp"

namespace vastrel::bench {
namespace {

std::string dataDirectory() {
    if (const char* overridden = std::getenv("VASTREL_BENCH_DATA")) return overridden;
    return VASTREL_BENCH_DATA_DIR;
}

[[noreturn]] void stop(const std::string& path, const char* reason) {
    std::fprintf(stderr, "vastrel_bench: %s: %s\n", path.c_str(), reason);
    std::exit(EXIT_FAILURE);
}

std::string readFile(const std::string& name) {
    const std::string path = dataDirectory() + "/" + name;
    std::ifstream in(path, std::ios::binary);
    if (!in) stop(path, "cannot open");
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

std::string readHex(const std::string& name) {
    std::string hex = trimmed(readFile(name));
    if (hex.empty()) stop(name, "no hex text");
    return hex;
}

std::vector<std::string> readLines(const std::string& name) {
    std::vector<std::string> lines;
    std::istringstream in(readFile(name));
    for (std::string line; std::getline(in, line);) {
        line = trimmed(line);
        if (!line.empty()) lines.push_back(line);
    }
    if (lines.empty()) stop(name, "no lines");
    return lines;
}

// The flat blob's elements, each as its hex encoding.
const std::vector<std::string>& flatElements() {
    static const std::vector<std::string> elements = TLVParser::splitTLVData(workload().flatHex);
    return elements;
}

// Whole elements of the flat blob, taken in turn from the given one, up to about bytes.
std::string elementsOfAbout(std::size_t bytes, std::size_t& next) {
    const std::vector<std::string>& elements = flatElements();
    std::string hex;
    while (hex.size() < 2 * bytes) {
        hex += elements[next];
        next = (next + 1) % elements.size();
    }
    return hex;
}

// A BER length field as hex: the short form below 128, else 81 to 84 and the length's bytes.
std::string lengthFieldHex(std::size_t n) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string bytes;
    for (std::size_t rest = n; rest > 0 || bytes.empty(); rest >>= 8) {
        bytes.insert(0, {kDigits[(rest >> 4) & 0xF], kDigits[rest & 0xF]});
    }
    if (n < 0x80) return bytes;
    return std::string{'8', kDigits[bytes.size() / 2]} + bytes;
}

std::string templateOf(const std::string& contentHex) {
    return "70" + lengthFieldHex(contentHex.size() / 2) + contentHex;
}

}  // namespace

std::string repeatedFlatHex(std::size_t bytes) {
    const std::string& blob = workload().flatHex;
    const std::size_t copies =
        std::max<std::size_t>(1, (2 * bytes + blob.size() / 2) / blob.size());
    std::string hex;
    hex.reserve(copies * blob.size());
    for (std::size_t i = 0; i < copies; ++i)
        hex += blob;
    return hex;
}

std::string nestedHex(std::size_t depth, std::size_t bytes) {
    const std::size_t share = bytes / std::max<std::size_t>(depth, 1);
    std::size_t next = 0;
    std::string level = elementsOfAbout(share, next);  // the innermost level
    for (std::size_t d = 1; d < depth; ++d)
        level = templateOf(level) + elementsOfAbout(share, next);
    return level;
}

std::string smallElementsHex(std::size_t hexCharacters) {
    std::vector<std::string> tags;
    for (const std::string& element : flatElements()) {
        const auto first = std::stoi(element.substr(0, 2), nullptr, 16);
        if ((first & 0x1F) != 0x1F && (first & 0x20) == 0) tags.push_back(element.substr(0, 2));
    }
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    hex.reserve(hexCharacters);
    for (std::size_t i = 0; hex.size() + kSmallElementHexSize <= hexCharacters; ++i) {
        hex += tags[i % tags.size()];
        hex += "01";
        hex += kDigits[(i >> 4) & 0xF];
        hex += kDigits[i & 0xF];
    }
    return hex;
}

const Workload& workload() {
    static const Workload loaded{
        readHex("emv_flat.hex"), readHex("emv_flat_lower.hex"), readHex("emv_nested.hex"),
        readLines("pans.txt"),   readFile("session-20.txt"),
    };
    return loaded;
}

}  // namespace vastrel::bench
