#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Enums/Enumerations.hpp"
#include "vastrel/Tags/TagNameEntry.hpp"

namespace vastrel {

// The tags that receipts and reports ask for most, and the point-of-sale reading of the
// CVM Results. Class operations only; no state.
class EMVTagHelper {
  public:
    // Every entry of the dictionary behind Tag::tagName, in the dictionary's own order.
    static std::span<const TagNameEntry> tagNameDictionary();

    // The tag read from the front of tlv (hex), as TLVUtility::tagFromTLVString reads it;
    // absent when no tag can be read.
    static std::optional<Tag> berTagFromInt(std::string_view tlv);

    // Fixed tags. The names are published as they are: cryptogram() is 9F27 (Cryptogram
    // Information Data, not 9F26) and emvChipIndicator() is 9F6E, which has no tag name.
    static Tag applicationIdentifier();         // 4F
    static Tag applicationLabel();              // 50
    static Tag applicationPrefName();           // 9F12
    static Tag bankIdentifier();                // 5F54
    static Tag cryptogram();                    // 9F27
    static Tag emvChipIndicator();              // 9F6E
    static Tag merchantIdentifier();            // 9F16
    static Tag cardholderVerificationMethod();  // 9F34
    static Tag terminalIdentifier();            // 9F1C
    static Tag terminalVerificationResults();   // 95
    static Tag transactionStatusInformation();  // 9B
    static Tag cardHolderName();                // 5F20

    // The cardholder authentication method from the first byte of the 9F34 value, matched
    // exactly as written (lower-case hex matches nothing): 0, 1, 2, 4 or 9. Absent or empty
    // gives 9; a one-character value or an unlisted code gives 0.
    static CardholderAuthenticationMethod cardholderAuthenticationMethodfromTlv(
        std::optional<std::string_view> value);
};

}  // namespace vastrel
