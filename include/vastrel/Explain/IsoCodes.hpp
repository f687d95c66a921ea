#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vastrel {

struct IsoCurrency {
    std::uint16_t numeric = 0;
    std::string_view alpha3;  // "USD"
    std::string_view name;    // "US Dollar"
};

struct IsoCountry {
    std::uint16_t numeric = 0;
    std::string_view alpha2;  // "US"
    std::string_view alpha3;  // "USA"
    std::string_view name;    // "United States"
};

struct IsoLanguage {
    std::string_view alpha2;  // "en"
    std::string_view name;    // "English"
};

// The ISO 4217 currencies, ISO 3166-1 countries and ISO 639-1 languages, generated from
// Debian's iso-codes data into a committed table (scripts/generate-iso-tables.py). Lookups are
// binary searches over constant tables.
class IsoCodes {
  public:
    [[nodiscard]] static std::optional<IsoCurrency> currency(std::uint16_t numeric) noexcept;
    [[nodiscard]] static std::optional<IsoCountry> country(std::uint16_t numeric) noexcept;
    // alpha2 in lower case, as the 639-1 codes are written; EMV cards send them so too.
    [[nodiscard]] static std::optional<IsoLanguage> language(std::string_view alpha2) noexcept;

    // The currency's minor units (2 for USD, 0 for JPY, 3 for KWD), which the iso-codes
    // data does not carry: a short table of the exceptions, and 2 for every other code.
    [[nodiscard]] static int minorUnits(std::uint16_t numeric) noexcept;
};

}  // namespace vastrel
