#include "vastrel/Oda/CaKeyCheck.hpp"

#include <algorithm>
#include <iterator>
#include <map>

#include "Codec/HexEncode.hpp"
#include "Crypto.hpp"
#include "Explain/JsonWriter.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

namespace vastrel {
namespace {

// Modulus lengths in bytes that the schemes use for live and test keys: 768 to 1984 bits.
constexpr std::size_t kSchemeModulusLengths[] = {96, 112, 128, 144, 160, 176, 192, 224, 248};
constexpr std::size_t kLongestModulus = 248;

std::string bitsAndBytes(std::size_t bytes) {
    return std::to_string(bytes * 8) + " bits (" + std::to_string(bytes) + " bytes)";
}

oda::Sha1Digest checksumOf(const CaPublicKey& key, std::span<const std::uint8_t> exponent) {
    return oda::Sha1()
        .update(key.rid)
        .update({&key.index, 1})
        .update(key.modulus)
        .update(exponent)
        .finish();
}

OdaCheck checksum(const CaPublicKey& key) {
    if (!key.checksum) return {"checksum", std::nullopt, "none published: the key is unverified"};
    const oda::Sha1Digest computed = checksumOf(key, key.exponent);
    if (std::ranges::equal(computed, *key.checksum)) return {"checksum", true, "matches"};
    std::string detail = "SHA-1 over RID, index, modulus and exponent is " +
                         codec::hexUpper(computed) + ", not the published one";
    // A wrong exponent in a key list is a common slip; say so when it explains the mismatch.
    static constexpr std::uint8_t kThree[] = {0x03};
    static constexpr std::uint8_t kF4[] = {0x01, 0x00, 0x01};
    for (const std::span<const std::uint8_t> other :
         {std::span<const std::uint8_t>(kThree), std::span<const std::uint8_t>(kF4)}) {
        if (!std::ranges::equal(other, key.exponent) &&
            std::ranges::equal(checksumOf(key, other), *key.checksum)) {
            detail += "; it matches this modulus with exponent " + codec::hexUpper(other);
        }
    }
    return {"checksum", false, detail};
}

OdaCheck modulus(const CaPublicKey& key) {
    const std::size_t size = key.modulus.size();
    std::string detail = bitsAndBytes(size);
    if (size > kLongestModulus) {
        return {"modulus", false, detail + ": longer than the 248 bytes EMV allows"};
    }
    if (std::ranges::find(kSchemeModulusLengths, size) == std::end(kSchemeModulusLengths)) {
        return {"modulus", false, detail + ": not a length the schemes use"};
    }
    if (key.modulus.front() == 0) return {"modulus", false, detail + ": the first byte is 00"};
    if ((key.modulus.back() & 1) == 0) return {"modulus", false, detail + ": even"};
    return {"modulus", true, detail};
}

OdaCheck exponent(const CaPublicKey& key) {
    auto digits = std::ranges::find_if(key.exponent, [](std::uint8_t b) { return b != 0; });
    std::uint64_t value = 0;
    const bool small = std::distance(digits, key.exponent.end()) <= 8;
    for (auto it = digits; small && it != key.exponent.end(); ++it)
        value = value << 8 | *it;
    const std::string shown = small ? std::to_string(value) : codec::hexUpper(key.exponent);
    if (key.exponent.empty()) return {"exponent", false, "empty"};
    if (value == 3 || value == 65537) {
        if (digits != key.exponent.begin())
            return {"exponent", false, shown + " with leading zeros"};
        return {"exponent", true, shown};
    }
    return {"exponent", false, shown + ": EMV allows 3 or 65537"};
}

}  // namespace

std::vector<OdaCheck> CaKeyCheck::check(const CaPublicKey& key) {
    return {checksum(key), modulus(key), exponent(key)};
}

std::optional<CaPublicKey> CaKeyCheck::fromRecord(const EMVCAPK& record) {
    const auto bytes = [](const std::optional<std::string>& text) -> std::optional<Bytes> {
        Bytes out;
        if (!text || HexDecoder::decode(*text, out)) return std::nullopt;
        return out;
    };
    const auto rid = bytes(record.rid());
    const auto index = bytes(record.caPublicKeyIndex());
    const auto modulus = bytes(record.publicKey());
    const auto exponent = bytes(record.exponentOfPublicKey());
    const auto checksum = bytes(record.checksum());
    if (!rid || rid->size() != CaPublicKey::kRidLength || !index || index->size() != 1 ||
        !modulus || modulus->empty() || !exponent) {
        return std::nullopt;
    }
    CaPublicKey key;
    std::ranges::copy(*rid, key.rid.begin());
    key.index = index->front();
    key.modulus = *modulus;
    key.exponent = *exponent;
    if (checksum && checksum->size() == CaPublicKey::kChecksumLength) {
        key.checksum.emplace();
        std::ranges::copy(*checksum, key.checksum->begin());
    } else if (record.checksum() && !record.checksum()->empty()) {
        return std::nullopt;
    }
    return key;
}

std::vector<OdaCheck> CaKeyCheck::check(const EMVCAPK& record) {
    const auto key = fromRecord(record);
    if (!key) {
        return {{"fields", false,
                 "rid must be 5 bytes of hex, the index 1, the modulus and exponent hex, the "
                 "checksum 20 bytes of hex or absent"}};
    }
    std::vector<OdaCheck> checks{{"fields", true, "read"}};
    for (OdaCheck& each : check(*key))
        checks.push_back(std::move(each));
    return checks;
}

std::vector<std::vector<OdaCheck>> CaKeyCheck::checkAll(std::span<const CaPublicKey> keys,
                                                        std::span<const std::string> names) {
    const auto nameOf = [&names](std::size_t i) {
        return i < names.size() ? names[i] : "key " + std::to_string(i + 1);
    };
    std::map<std::pair<std::array<std::uint8_t, CaPublicKey::kRidLength>, std::uint8_t>,
             std::vector<std::size_t>>
        byName;
    for (std::size_t i = 0; i < keys.size(); ++i)
        byName[{keys[i].rid, keys[i].index}].push_back(i);
    std::vector<std::vector<OdaCheck>> verdicts;
    verdicts.reserve(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        std::vector<OdaCheck> checks = check(keys[i]);
        std::string others;
        for (const std::size_t j : byName[{keys[i].rid, keys[i].index}]) {
            // The same key given twice is no conflict; another key under the same name is.
            if (keys[i].modulus == keys[j].modulus) continue;
            others += (others.empty() ? "" : ", ") + nameOf(j);
        }
        checks.push_back(
            others.empty()
                ? OdaCheck{"index", true, "unique within the RID"}
                : OdaCheck{"index", false, "another key has the same RID and index: " + others});
        verdicts.push_back(std::move(checks));
    }
    return verdicts;
}

std::string_view describe(CaKeyVerdict verdict) noexcept {
    switch (verdict) {
        case CaKeyVerdict::Passed:
            return "passed";
        case CaKeyVerdict::Failed:
            return "failed";
        case CaKeyVerdict::Unverified:
            break;
    }
    return "unverified";
}

CaKeyVerdict CaKeyCheck::verdict(std::span<const OdaCheck> checks) noexcept {
    if (!passed(checks)) return CaKeyVerdict::Failed;
    const bool allMade =
        std::ranges::all_of(checks, [](const OdaCheck& c) { return c.ok.has_value(); });
    return allMade ? CaKeyVerdict::Passed : CaKeyVerdict::Unverified;
}

std::size_t CaKeyCheck::failures(std::span<const std::vector<OdaCheck>> checks) {
    return static_cast<std::size_t>(std::ranges::count_if(
        checks,
        [](const std::vector<OdaCheck>& key) { return verdict(key) == CaKeyVerdict::Failed; }));
}

std::string CaKeyCheck::toJson(std::span<const CaPublicKey> keys,
                               std::span<const std::string> names,
                               std::span<const std::vector<OdaCheck>> verdicts) {
    explain::JsonWriter json;
    json.beginArray();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        json.beginObject();
        json.key("rid");
        json.string(codec::hexUpper(keys[i].rid));
        json.key("index");
        json.string(codec::hexUpper({&keys[i].index, 1}));
        json.key("scheme");
        json.string(keys[i].scheme);
        json.key("source");
        json.string(i < names.size() ? names[i] : "key " + std::to_string(i + 1));
        json.key("verdict");
        json.string(describe(verdict(verdicts[i])));
        json.key("checks");
        explain::writeChecks(json, verdicts[i]);
        json.endObject();
    }
    json.endArray();
    return json.finish();
}

bool CaKeyCheck::passed(std::span<const OdaCheck> checks) noexcept {
    return std::ranges::none_of(checks, [](const OdaCheck& c) { return c.ok == false; });
}

}  // namespace vastrel
