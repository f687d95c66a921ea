#include "vastrel/Explain/IsoCodes.hpp"

#include <algorithm>
#include <iterator>

namespace vastrel {
namespace {

#include "IsoTables.inc"

template <typename Entry, typename Key, typename KeyOf>
std::optional<Entry> findEntry(const Entry* first, const Entry* last, const Key& key, KeyOf keyOf) {
    const auto* found = std::lower_bound(
        first, last, key,
        [&](const Entry& entry, const Key& wanted) { return keyOf(entry) < wanted; });
    if (found == last || keyOf(*found) != key) return std::nullopt;
    return *found;
}

struct MinorUnits {
    std::uint16_t numeric;
    std::uint8_t digits;
};

// ISO 4217 currencies whose minor unit is not 2, by numeric code.
constexpr MinorUnits kMinorUnitExceptions[] = {
    {48, 3},   // BHD
    {108, 0},  // BIF
    {152, 0},  // CLP
    {262, 0},  // DJF
    {324, 0},  // GNF
    {352, 0},  // ISK
    {368, 3},  // IQD
    {392, 0},  // JPY
    {400, 3},  // JOD
    {410, 0},  // KRW
    {414, 3},  // KWD
    {434, 3},  // LYD
    {512, 3},  // OMR
    {600, 0},  // PYG
    {646, 0},  // RWF
    {704, 0},  // VND
    {548, 0},  // VUV
    {788, 3},  // TND
    {800, 0},  // UGX
    {940, 0},  // UYI
    {927, 4},  // UYW
    {950, 0},  // XAF
    {952, 0},  // XOF
    {953, 0},  // XPF
    {990, 4},  // CLF
    {174, 0},  // KMF
};

}  // namespace

std::optional<IsoCurrency> IsoCodes::currency(std::uint16_t numeric) noexcept {
    return findEntry(std::begin(kIsoCurrencies), std::end(kIsoCurrencies), numeric,
                     [](const IsoCurrency& entry) { return entry.numeric; });
}

std::optional<IsoCountry> IsoCodes::country(std::uint16_t numeric) noexcept {
    return findEntry(std::begin(kIsoCountries), std::end(kIsoCountries), numeric,
                     [](const IsoCountry& entry) { return entry.numeric; });
}

std::optional<IsoLanguage> IsoCodes::language(std::string_view alpha2) noexcept {
    return findEntry(std::begin(kIsoLanguages), std::end(kIsoLanguages), alpha2,
                     [](const IsoLanguage& entry) { return entry.alpha2; });
}

int IsoCodes::minorUnits(std::uint16_t numeric) noexcept {
    const auto* found =
        std::find_if(std::begin(kMinorUnitExceptions), std::end(kMinorUnitExceptions),
                     [numeric](const MinorUnits& entry) { return entry.numeric == numeric; });
    return found == std::end(kMinorUnitExceptions) ? 2 : found->digits;
}

}  // namespace vastrel
