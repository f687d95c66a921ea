#include "vastrel/Enums/EnumStringValues.hpp"

#include <array>
#include <cstddef>
#include <iterator>
#include <span>
#include <string_view>

#include "Codec/DigitKeys.hpp"
#include "vastrel/Enums/EnumRows.hpp"

namespace vastrel {
namespace {

// The rows of each table in the order they are listed; the order decides which row a key
// collision keeps.

constexpr EnumRow kTerminalTypes[] = {
    {0, "INGENICO_RP450C"},    {1, "INGENICO_RP45BT"},  {2, "INGENICO_MOBY_3000"},
    {3, "INGENICO_MOBY_8500"}, {4, "BBPOS_CHIPPER_2X"}, {5, "NO_READER"},
};

constexpr EnumRow kGatewayTypes[] = {
    {0, "GatewayTypeDemoMode"},
    {1, "GatewayTypeCorvane"},
    {2, "GatewayTypeLumtek"},
    {3, "GatewayTypeAstrinel"},
};

constexpr EnumRow kConnectionTypes[] = {
    {0, "AUDIO_JACK"},
    {1, "BLUETOOTH"},
    {2, "TCP_IP"},
    {3, "USB"},
};

constexpr EnumRow kTransactionTypes[] = {
    {0, "TransactionTypeSale"},
    {1, "TransactionTypeAuth"},
    {2, "TransactionTypeCapture"},
    {3, "TransactionTypeForcedAuth"},
    {4, "TransactionTypeVoid"},
    {5, "TransactionTypeRefundWithCard"},
    {6, "TransactionTypeRefundWithReference"},
    {7, "TransactionTypeTipAdjust"},
    {8, "TransactionTypeBatchClose"},
    {9, "TransactionTypeNone"},
};

constexpr EnumRow kCommercialCardDataFields[] = {
    {0, "CommercialCardDataFieldPurchaseOrderNumber"},
    {1, "CommercialCardDataFieldSupplierRefNumber"},
    {2, "CommercialCardDataFieldCustomerRefID"},
    {3, "CommercialCardDataFieldShipToZip"},
    {4, "CommercialCardDataFieldChargeDescriptor"},
};

constexpr EnumRow kEmvErrorTypes[] = {
    {0, "NOT_INITIALIZED"},
    {1, "CONFIGURATION_ERROR"},
    {2, "INITIALIZATION_ERROR"},
    {3, "NOT_CONNECTED"},
    {4, "HOST_CONFIG_NOT_SUPPORTED"},
    {5, "INVALID_DATA"},
    {6, "TERMINAL_CONFIG_NOT_SUPPORTED"},
    {7, "TERMINAL_ERROR"},
    {8, "TRANSACTION_ERROR"},
    {9, "INVALID_REQUEST"},
    {10, "GENERAL_ERROR"},
    {11, "BATTERY_TOO_LOW"},
};

// Values 17 to 25 all land on key "17"; only DEVICE_BUSY is kept there.
constexpr EnumRow kTerminalInteractionTypes[] = {
    {0, "IDLE"},
    {1, "WAITING_FOR_TRANSACTION"},
    {2, "TRANSACTION"},
    {3, "WAITING_FOR_AMOUNT"},
    {4, "WAITING_FOR_APPLICATION_SELECTION"},
    {5, "PROCESSING"},
    {6, "WAITING_FOR_CARD"},
    {7, "BAD_READ_DETECTED"},
    {8, "MULTIPLE_CARDS_DETECTED"},
    {9, "ICC_SWIPE_DETECTED"},
    {10, "TECHNICAL_FALLBACK_INITIATED"},
    {11, "CARD_DETECTED"},
    {12, "CARD_READ_ERROR"},
    {13, "CARD_REMOVED_AFTER_TRANSACTION_COMPLETE"},
    {14, "CONTACTLESS_CARD_STILL_IN_FIELD"},
    {15, "CONTACTLESS_INTERFACE_FAILED_TRY_CONTACT"},
    {16, "DO_NOT_REMOVE_CARD"},
    {17, "DEVICE_BUSY"},
    {18, "ENTER_PIN"},
    {19, "LAST_PIN_ATTEMPT"},
    {20, "PIN_ACCEPTED"},
    {21, "RETRY_PIN"},
    {22, "REMOVE_CARD"},
    {23, "CONFIGURING"},
    {24, "SEE_PHONE"},
    {25, "NONE"},
};

constexpr EnumRow kCardTypes[] = {
    {0, "VISA"},        {1, "MASTER"},  {2, "AMEX"},      {3, "DISCOVER"}, {4, "JCB"},
    {5, "DINERS CLUB"}, {6, "MAESTRO"}, {7, "UNION PAY"}, {8, "UNKNOWN"},
};

// 94 and 31 both land on key "17"; only SIGNATURE REQUIRED is kept there.
constexpr EnumRow kCvmResults[] = {
    {1, "PIN ONLINE"},          {2, "PIN OFFLINE ENCR"},  {3, "PIN OFFLINE PLAIN"},
    {94, "SIGNATURE REQUIRED"}, {31, "NO CVM REQUESTED"}, {0, "NOT AVAILABLE"},
};

constexpr EnumRow kCardDataSourceTypes[] = {
    {0, "MSR"},   {1, "EMV"},  {2, "ContactlessMSR"}, {3, "ContactlessEMV"}, {4, "KEYED"},
    {5, "PHONE"}, {6, "MAIL"}, {7, "INTERNET"},       {8, "FALLBACK"},       {9, "NONE"},
};

constexpr EnumRow kPinStatementTypes[] = {
    {0, "PIN NOT SUPPORTED"},
    {1, "PIN VERIFIED"},
    {2, "PIN BYPASSED"},
    {3, "PIN LOCKED"},
};

constexpr EnumRow kCurrencyCodes[] = {{0, "USD"}};

constexpr EnumRow kCountryCodes[] = {{0, "US"}};

constexpr EnumRow kTransactionResultTypes[] = {
    {0, "Transaction Approved"},           {1, "Transaction Declined Offline"},
    {2, "Transaction Declined Online"},    {3, "Transaction Partially Approved"},
    {4, "Transaction Post Auth Reversal"}, {5, "Transaction Call Issuer"},
    {6, "Transaction Cancelled"},
};

constexpr std::size_t kTableCount = 14;

// Indexed by EnumType minus one.
constexpr std::array<std::span<const EnumRow>, kTableCount> kTables = {
    kTerminalTypes,
    kGatewayTypes,
    kConnectionTypes,
    kTransactionTypes,
    kCommercialCardDataFields,
    kEmvErrorTypes,
    kTerminalInteractionTypes,
    kCardTypes,
    kCvmResults,
    kCardDataSourceTypes,
    kPinStatementTypes,
    kCurrencyCodes,
    kCountryCodes,
    kTransactionResultTypes,
};

// Rows per table as listed, before key collisions.
static_assert(std::size(kTerminalTypes) == 6 && std::size(kGatewayTypes) == 4 &&
              std::size(kConnectionTypes) == 4 && std::size(kTransactionTypes) == 10 &&
              std::size(kCommercialCardDataFields) == 5 && std::size(kEmvErrorTypes) == 12 &&
              std::size(kTerminalInteractionTypes) == 26 && std::size(kCardTypes) == 9 &&
              std::size(kCvmResults) == 6 && std::size(kCardDataSourceTypes) == 10 &&
              std::size(kPinStatementTypes) == 4 && std::size(kCurrencyCodes) == 1 &&
              std::size(kCountryCodes) == 1 && std::size(kTransactionResultTypes) == 7);

// One table as the dictionary sees it: the text stored under each key, if any.
using KeyedTable = std::array<std::optional<std::string_view>, digitkeys::kKeyCount>;

constexpr KeyedTable keyedByDigitKey(std::span<const EnumRow> rows) {
    KeyedTable keyed{};
    for (const EnumRow& row : rows) {
        auto& slot = keyed[digitkeys::keyIndex(row.value)];
        if (!slot) slot = row.text;  // the first listed row keeps a shared key
    }
    return keyed;
}

constexpr std::array<KeyedTable, kTableCount> kKeyedTables = [] {
    std::array<KeyedTable, kTableCount> keyed{};
    for (std::size_t i = 0; i < kTableCount; ++i) {
        keyed[i] = keyedByDigitKey(kTables[i]);
    }
    return keyed;
}();

// The position of type's table, or absent when type selects none.
std::optional<std::size_t> tableIndex(EnumType type) {
    const std::uint64_t index = static_cast<std::uint64_t>(type) - 1;  // 0 wraps to the top
    if (index >= kTableCount) return std::nullopt;
    return static_cast<std::size_t>(index);
}

using Dictionary = std::map<std::string, std::string>;

Dictionary dictionaryFrom(const KeyedTable& keyed) {
    Dictionary dictionary;
    for (std::size_t key = 0; key < keyed.size(); ++key) {
        if (keyed[key]) dictionary.emplace(digitkeys::kKeys[key], *keyed[key]);
    }
    return dictionary;
}

}  // namespace

std::span<const EnumRow> EnumRows::rowsForEnumType(EnumType type) {
    const auto index = tableIndex(type);
    return index ? kTables[*index] : std::span<const EnumRow>();
}

std::string_view EnumRows::textFor(EnumType type, std::uint64_t value) {
    for (const EnumRow& row : rowsForEnumType(type)) {
        if (row.value == value) return row.text;
    }
    return {};
}

const std::map<std::string, std::string>* EnumStringValues::dictionaryForEnumType(EnumType type) {
    static const std::array<Dictionary, kTableCount> dictionaries = [] {
        std::array<Dictionary, kTableCount> built;
        for (std::size_t i = 0; i < kTableCount; ++i) {
            built[i] = dictionaryFrom(kKeyedTables[i]);
        }
        return built;
    }();
    const auto index = tableIndex(type);
    return index ? &dictionaries[*index] : nullptr;
}

std::optional<std::string> EnumStringValues::valueForAnEnumType(EnumType type,
                                                                std::uint64_t value) {
    const auto index = tableIndex(type);
    if (!index) return std::nullopt;
    const auto& text = kKeyedTables[*index][digitkeys::keyIndex(value)];
    if (!text) return std::nullopt;
    return std::string(*text);
}

}  // namespace vastrel
