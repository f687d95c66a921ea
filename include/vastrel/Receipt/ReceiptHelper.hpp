#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Enums/Enumerations.hpp"

namespace vastrel {

// Receipt support for card transactions. Class operations only; no state.
class ReceiptHelper {
  public:
    // True when emvTags holds both an element tagged 4F (AID) and one tagged 50
    // (application label), tags compared ignoring case. Otherwise logs which is missing
    // (or that the whole list is absent) and returns false.
    static bool validateEmvTagsPresent(const std::optional<std::vector<TLVObject>>& emvTags);

    // The CVM result printed on a receipt, read from the first byte of the 9F34 value (hex,
    // either case): 01, 02, 03 and 1F give PinOnline, PinOfflineEncr, PinOfflinePlain and
    // NoCvmRequested, every other code SignatureRequired. Absent, empty or odd-length hex
    // gives NotAvailable.
    static CVMResult cvmResultFromTlv(std::optional<std::string_view> value);
};

}  // namespace vastrel
