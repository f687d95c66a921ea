#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Model/CardData.hpp"
#include "vastrel/Model/GatewayResponse.hpp"
#include "vastrel/Model/TransactionRequest.hpp"
#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel {

// Receipt support for card transactions. Class operations only; no state.
class ReceiptHelper {
  public:
    // A receipt for a magnetic-stripe transaction: the request's transaction type, the
    // gateway's auth code, transaction id and approved amount, and the card's brand, name,
    // entry mode and number. Never fails: absent arguments leave their fields empty, and an
    // absent response is logged.
    static TransactionReceipt buildMsrReceiptFor(const TransactionRequest* request,
                                                 const GatewayResponse* response,
                                                 const CardData* cardData);

    // A receipt for a chip transaction: the fields of the stripe receipt but the transaction
    // type, plus the EMV values card schemes require on receipts, copied from the card's
    // emvTLVData when it holds both 4F and 50. Never fails: missing EMV data is logged and
    // leaves the EMV fields empty.
    static TransactionReceipt buildEmvReceiptWith(const GatewayResponse* response,
                                                  const CardData* cardData);

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
