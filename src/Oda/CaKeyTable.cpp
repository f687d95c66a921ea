#include "vastrel/Oda/CaKeyTable.hpp"

#include <algorithm>

#include "Codec/HexEncode.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel {
namespace {

struct BuiltInKey {
    std::string_view rid, index, exponent, modulus, checksum, scheme;
    CaKeyOrigin origin;
};

// Written when the library is configured, from data/ca-keys/ca-public-keys.tsv: the lines
// whose published checksum verifies, and those published without one.
constexpr BuiltInKey kBuiltInKeys[] = {
#include "CaKeysBuiltIn.inc"
};

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    const bool tabs = line.find('\t') != std::string_view::npos;
    std::size_t start = 0;
    while (start <= line.size()) {
        if (!tabs) {
            start = std::min(line.find_first_not_of(' ', start), line.size());
            if (start == line.size()) break;
        }
        const std::size_t end = std::min(line.find(tabs ? '\t' : ' ', start), line.size());
        fields.push_back(line.substr(start, end - start));
        start = end + 1;
    }
    return fields;
}

// Reads one key line; the error names the field that cannot be read.
std::optional<std::string> readKey(std::string_view line, CaPublicKey& key) {
    const std::vector<std::string_view> fields = fieldsOf(line);
    if (fields.size() < 4) return "fewer than four fields (rid, index, exponent, modulus)";
    Bytes rid, index, sum;
    if (HexDecoder::decode(fields[0], rid) || rid.size() != CaPublicKey::kRidLength) {
        return "the RID is not 5 bytes of hex";
    }
    if (HexDecoder::decode(fields[1], index) || index.size() != 1) {
        return "the index is not 1 byte of hex";
    }
    if (HexDecoder::decode(fields[2], key.exponent) || key.exponent.empty()) {
        return "the exponent is not hex";
    }
    if (HexDecoder::decode(fields[3], key.modulus) || key.modulus.empty()) {
        return "the modulus is not hex";
    }
    // "-" stands for no checksum where blanks separate the fields and a scheme follows.
    if (fields.size() > 4 && !fields[4].empty() && fields[4] != "-") {
        if (HexDecoder::decode(fields[4], sum) || sum.size() != CaPublicKey::kChecksumLength) {
            return "the checksum is not 20 bytes of hex";
        }
        key.checksum.emplace();
        std::ranges::copy(sum, key.checksum->begin());
    }
    std::ranges::copy(rid, key.rid.begin());
    key.index = index.front();
    if (fields.size() > 5) {
        // In a blank-separated line the scheme's name may itself hold blanks.
        const std::size_t at = static_cast<std::size_t>(fields[5].data() - line.data());
        const bool tabs = line.find('\t') != std::string_view::npos;
        key.scheme = std::string(tabs ? fields[5] : line.substr(at));
    }
    return std::nullopt;
}

}  // namespace

std::string CaPublicKey::name() const {
    return codec::hexUpper(rid) + " " + codec::hexUpper({&index, 1});
}

const CaKeyTable& CaKeyTable::builtIn() {
    static const CaKeyTable table = [] {
        CaKeyTable built;
        for (const BuiltInKey& entry : kBuiltInKeys) {
            const std::string line = std::string(entry.rid) + '\t' + std::string(entry.index) +
                                     '\t' + std::string(entry.exponent) + '\t' +
                                     std::string(entry.modulus) + '\t' +
                                     std::string(entry.checksum) + '\t' + std::string(entry.scheme);
            CaPublicKey key;
            if (readKey(line, key)) continue;  // the generator wrote only keys that read
            key.origin = entry.origin;
            built.keys_.push_back(std::move(key));
        }
        return built;
    }();
    return table;
}

CaKeyFileRead CaKeyTable::parse(std::string_view text) {
    CaKeyFileRead read;
    std::size_t number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        const bool blank = line.find_first_not_of(" \t") == std::string_view::npos;
        if (blank || line.front() == '#' || (number == 1 && line.starts_with("rid"))) continue;
        CaKeyLine entry{number, {}};
        if (const auto error = readKey(line, entry.key)) {
            read.errorLine = number;
            read.error = *error;
            break;
        }
        read.keys.push_back(std::move(entry));
    }
    return read;
}

void CaKeyTable::add(CaPublicKey key) {
    std::erase_if(keys_, [&key](const CaPublicKey& held) {
        return held.rid == key.rid && held.index == key.index;
    });
    keys_.push_back(std::move(key));
}

std::vector<const CaPublicKey*> CaKeyTable::find(std::span<const std::uint8_t> rid,
                                                 std::uint8_t index) const {
    std::vector<const CaPublicKey*> found;
    for (const CaPublicKey& key : keys_) {
        if (key.index == index && std::ranges::equal(key.rid, rid)) found.push_back(&key);
    }
    return found;
}

}  // namespace vastrel
