#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Tags/PaymentScheme.hpp"

namespace vastrel {

// How the value of a card-data element is shown when it may not be shown in full. Every
// form keeps the value's length, so masked data still parses.
enum class CardDataMasking : std::uint8_t {
    CardNumber,  // first six and last four digits kept, the rest '*'
    Track2,      // the card number as above, the separator, expiry and service code kept
    Whole,       // every digit '*'
};

// One tag whose value is card data.
struct CardDataTag {
    std::uint32_t tag;  // big-endian tag bytes: 0x9F6B
    std::string_view what;
    CardDataMasking masking;
    // Masked in the nested decoder's log summary as well. That summary keeps its own older,
    // shorter list and its own form ("<8 bytes>"); every other output follows this table.
    bool inDecoderLog;
    // A kernel in which the tag means something else and holds no card data (9F6B is Visa's
    // Card CVM Limit); Any when the tag is card data everywhere.
    PaymentScheme notUnder = PaymentScheme::Any;
};

// The one list of card data, and how each is masked: by the tool's commands, the explainer,
// the C, Java and Python interfaces and the log lines beyond the nested decoder's summary.
class CardDataPolicy {
  public:
    [[nodiscard]] static std::span<const CardDataTag> tags() noexcept;

    // The row for tag, or nullptr when tag holds no card data in scheme's kernel. With
    // scheme Any (no AID known) every listed tag counts.
    [[nodiscard]] static const CardDataTag* find(std::uint32_t tag, PaymentScheme scheme) noexcept;

    // Masks valueHex (the value's hex digits) in place as tag's row says; false, and nothing
    // changed, when tag holds no card data.
    static bool maskValue(std::uint32_t tag, PaymentScheme scheme,
                          std::span<char> valueHex) noexcept;

    // BER-TLV data (hex) with every card-data value inside it masked, at any depth. The
    // data is read strictly; what cannot be read (bad hex, or the bytes from a fault on) is
    // masked whole, since it may hold anything.
    [[nodiscard]] static std::string maskedTlvHex(std::string_view hex, PaymentScheme scheme);

    // The same in place, for a caller that already holds data, its strict read and its hex
    // (two digits a byte of data): nothing is decoded or read again.
    static void maskTlvHex(std::span<const std::uint8_t> data, const BerReadResult& read,
                           PaymentScheme scheme, std::span<char> hex) noexcept;

    // An element's value (hex) as it may be shown: masked by its row when tagHex is card
    // data, with the card data inside it masked when tagHex is a template, else unchanged.
    [[nodiscard]] static std::string maskedValueHex(std::string_view tagHex, PaymentScheme scheme,
                                                    std::string_view valueHex);
};

}  // namespace vastrel
