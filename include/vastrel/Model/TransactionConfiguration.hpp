#pragma once

#include <cstdint>

#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// Which card-entry methods are enabled, and the terminal's currency and country. A new
// one has every method off, CurrencyCode 0 ("USD") and CountryCode 0 ("US").
class TransactionConfiguration {
  public:
    bool isMagStripeEnabled() const { return isMagStripeEnabled_; }
    void setIsMagStripeEnabled(bool v) { isMagStripeEnabled_ = v; }
    bool isChipEnabled() const { return isChipEnabled_; }
    void setIsChipEnabled(bool v) { isChipEnabled_ = v; }
    bool isManualEntryEnabled() const { return isManualEntryEnabled_; }
    void setIsManualEntryEnabled(bool v) { isManualEntryEnabled_ = v; }
    // The misspelt name is published; callers use it as is.
    bool isContaclessEnabled() const { return isContaclessEnabled_; }
    void setIsContaclessEnabled(bool v) { isContaclessEnabled_ = v; }
    CurrencyCode currencyCode() const { return currencyCode_; }
    void setCurrencyCode(CurrencyCode v) { currencyCode_ = v; }
    CountryCode countryCode() const { return countryCode_; }
    void setCountryCode(CountryCode v) { countryCode_ = v; }
    // The misspelt name is published; callers use it as is.
    std::uint64_t defualtCurrencyExponent() const { return defualtCurrencyExponent_; }
    void setDefualtCurrencyExponent(std::uint64_t v) { defualtCurrencyExponent_ = v; }

  private:
    bool isMagStripeEnabled_ = false;
    bool isChipEnabled_ = false;
    bool isManualEntryEnabled_ = false;
    bool isContaclessEnabled_ = false;
    CurrencyCode currencyCode_{};
    CountryCode countryCode_{};
    std::uint64_t defualtCurrencyExponent_ = 0;
};

}  // namespace vastrel
