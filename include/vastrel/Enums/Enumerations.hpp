#pragma once

#include <cstdint>

// The enumerations shared by the records, the codec and the receipts. Values are the
// published integers: records store whatever value they are given, unchecked. Display
// strings come from EnumStringValues.
namespace vastrel {

// Selects one of the fourteen string tables of EnumStringValues; 0 selects none.
enum class EnumType : std::uint64_t {
    TerminalType = 1,
    GatewayType = 2,
    ConnectionType = 3,
    TransactionType = 4,
    CommercialCardDataField = 5,
    EMVErrorType = 6,
    TerminalInteractionType = 7,
    CardType = 8,
    CVMResult = 9,
    CardDataSourceType = 10,
    PinStatementType = 11,
    CurrencyCode = 12,
    CountryCode = 13,
    TransactionResultType = 14,
};

// Card reader model.
enum class TerminalType : std::uint64_t {
    IngenicoRP450C = 0,
    IngenicoRP45BT = 1,
    IngenicoMoby3000 = 2,
    IngenicoMoby8500 = 3,
    BbposChipper2X = 4,
    NoReader = 5,
};

// Payment gateway provider.
enum class GatewayType : std::uint64_t {
    GatewayTypeDemoMode = 0,
    GatewayTypeCorvane = 1,
    GatewayTypeLumtek = 2,
    GatewayTypeAstrinel = 3,
};

// Link between the phone and the card reader.
enum class ConnectionType : std::uint64_t {
    AudioJack = 0,
    Bluetooth = 1,
    TcpIp = 2,
    Usb = 3,
};

enum class TransactionType : std::uint64_t {
    TransactionTypeSale = 0,
    TransactionTypeAuth = 1,
    TransactionTypeCapture = 2,
    TransactionTypeForcedAuth = 3,
    TransactionTypeVoid = 4,
    TransactionTypeRefundWithCard = 5,
    TransactionTypeRefundWithReference = 6,
    TransactionTypeTipAdjust = 7,
    TransactionTypeBatchClose = 8,
    TransactionTypeNone = 9,
};

// Fields that commercial (purchasing) cards ask for.
enum class CommercialCardDataField : std::uint64_t {
    CommercialCardDataFieldPurchaseOrderNumber = 0,
    CommercialCardDataFieldSupplierRefNumber = 1,
    CommercialCardDataFieldCustomerRefID = 2,
    CommercialCardDataFieldShipToZip = 3,
    CommercialCardDataFieldChargeDescriptor = 4,
};

// Error codes; an error's domain is the code's display string.
enum class EMVErrorType : std::uint64_t {
    NotInitialized = 0,
    ConfigurationError = 1,
    InitializationError = 2,
    NotConnected = 3,
    HostConfigNotSupported = 4,
    InvalidData = 5,
    TerminalConfigNotSupported = 6,
    TerminalError = 7,
    TransactionError = 8,
    InvalidRequest = 9,
    GeneralError = 10,
    BatteryTooLow = 11,
};

// Reader states and prompts raised during a transaction.
enum class TerminalInteractionType : std::uint64_t {
    Idle = 0,
    WaitingForTransaction = 1,
    Transaction = 2,
    WaitingForAmount = 3,
    WaitingForApplicationSelection = 4,
    Processing = 5,
    WaitingForCard = 6,
    BadReadDetected = 7,
    MultipleCardsDetected = 8,
    IccSwipeDetected = 9,
    TechnicalFallbackInitiated = 10,
    CardDetected = 11,
    CardReadError = 12,
    CardRemovedAfterTransactionComplete = 13,
    ContactlessCardStillInField = 14,
    ContactlessInterfaceFailedTryContact = 15,
    DoNotRemoveCard = 16,
    DeviceBusy = 17,
    EnterPin = 18,
    LastPinAttempt = 19,
    PinAccepted = 20,
    RetryPin = 21,
    RemoveCard = 22,
    Configuring = 23,
    SeePhone = 24,
    None = 25,
};

// Card brand.
enum class CardType : std::uint64_t {
    Visa = 0,
    Master = 1,
    Amex = 2,
    Discover = 3,
    Jcb = 4,
    DinersClub = 5,
    Maestro = 6,
    UnionPay = 7,
    Unknown = 8,
};

// Cardholder verification performed, as printed on receipts. Signed, unlike the others.
enum class CVMResult : std::int64_t {
    NotAvailable = 0,
    PinOnline = 1,
    PinOfflineEncr = 2,
    PinOfflinePlain = 3,
    NoCvmRequested = 31,
    SignatureRequired = 94,
};

// How the card data was captured.
enum class CardDataSourceType : std::uint64_t {
    Msr = 0,
    Emv = 1,
    ContactlessMsr = 2,
    ContactlessEmv = 3,
    Keyed = 4,
    Phone = 5,
    Mail = 6,
    Internet = 7,
    Fallback = 8,
    None = 9,
};

// Which PIN statement a receipt prints.
enum class PinStatementType : std::uint64_t {
    PinNotSupported = 0,
    PinVerified = 1,
    PinBypassed = 2,
    PinLocked = 3,
};

enum class CurrencyCode : std::uint64_t {
    Usd = 0,
};

enum class CountryCode : std::uint64_t {
    Us = 0,
};

enum class TransactionResultType : std::uint64_t {
    TransactionApproved = 0,
    TransactionDeclinedOffline = 1,
    TransactionDeclinedOnline = 2,
    TransactionPartiallyApproved = 3,
    TransactionPostAuthReversal = 4,
    TransactionCallIssuer = 5,
    TransactionCancelled = 6,
};

// Produced by ConversionHelper::toReversalReason (1, 2, 3 or 6); the gateway layer gives
// the values their meaning.
enum class ReversalReason : std::uint64_t {};

// The CVM Results read for the point-of-sale application (0, 1, 2, 4 or 9).
enum class CardholderAuthenticationMethod : std::uint64_t {};

// Enumerations that the layers above define; Vastrel stores and copies them unread.
enum class TenderType : std::uint64_t {};
enum class TaxCategory : std::uint64_t {};
enum class AvsType : std::uint64_t {};
enum class GatewayAction : std::uint64_t {};
enum class CommercialCard : std::uint64_t {};
enum class FallbackReason : std::uint64_t {};
enum class EncryptionType : std::uint64_t {};
enum class LastChipRead : std::uint64_t {};
enum class TerminalAction : std::uint64_t {};
enum class TerminalDecisionType : std::uint64_t {};
enum class CardholderInteractionType : std::uint64_t {};
enum class GatewayMode : std::uint64_t {};

}  // namespace vastrel
