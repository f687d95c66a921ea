/*
 * Vastrel's C interface: the codec, the tag names, the CVM readings, brand detection, the
 * enumeration display strings and the receipt builders, for Swift, Objective-C, JNI and
 * any other caller that speaks C. C99; every name starts with vastrel_.
 *
 * Conventions, the same for every function:
 * - Every function returns a vastrel_status, except the *_free functions, which return
 *   nothing, and vastrel_status_text and vastrel_last_error_message, which return text.
 * - Text comes in as a pointer and a byte count; it need not end in a NUL. A NULL pointer
 *   with a count of 0 is the empty text, except where a function says that NULL means
 *   "absent". A NULL pointer with any other count is VASTREL_ERROR_NULL_ARGUMENT.
 * - Text goes out into the caller's buffer out of out_capacity bytes, always NUL-terminated.
 *   *out_length receives the text's length without the NUL, also when the buffer is too
 *   small: then nothing is written and VASTREL_ERROR_BUFFER_TOO_SMALL is returned, so a
 *   first call with (NULL, 0) asks for the size. out_length may be NULL.
 * - Handles (vastrel_tlv_list, vastrel_string_list, vastrel_receipt) are created by the
 *   library and released with their own free function, which accepts NULL. Element
 *   pointers (const vastrel_tlv *) belong to their list and live as long as it does.
 * - No exception, assertion or abort crosses this interface: bad input gives a status.
 * - Every function may be called from any thread. A handle may be read from several
 *   threads at once; it is never changed after it is made.
 */
#ifndef VASTREL_H
#define VASTREL_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define VASTREL_API __declspec(dllexport)
#else
#define VASTREL_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Status and errors ---- */

/* Fields and statuses are passed as int, so that any value a caller sends is well defined
   and answered with VASTREL_ERROR_INVALID_ARGUMENT when it names nothing. */

typedef enum vastrel_status {
    VASTREL_OK = 0,
    /* Not an error: the value asked for is absent (an empty output is written). */
    VASTREL_ABSENT = 1,
    VASTREL_ERROR_NULL_ARGUMENT = -1,
    VASTREL_ERROR_BUFFER_TOO_SMALL = -2,
    /* Text that should be hex is not: odd length or a character that is not a digit. */
    VASTREL_ERROR_INVALID_HEX = -3,
    /* An element's length runs past the end of the data. */
    VASTREL_ERROR_OUT_OF_RANGE = -4,
    /* An index past the end, an unknown enumeration, an amount or card number that cannot
       be read. */
    VASTREL_ERROR_INVALID_ARGUMENT = -5,
    VASTREL_ERROR_OUT_OF_MEMORY = -6,
    VASTREL_ERROR_INTERNAL = -7
} vastrel_status;

/* A fixed name for status ("VASTREL_OK", ...); "VASTREL_UNKNOWN_STATUS" for other values. */
VASTREL_API const char* vastrel_status_text(int status);

/* The message of the last call on this thread that returned an error (a negative status);
   "" when none has. Valid until the next call on this thread. */
VASTREL_API const char* vastrel_last_error_message(void);

/* ---- Hex ---- */

/* The bytes of hex: two hex digits (either case) a byte and nothing else, so blanks, signs
   and a 0x prefix are refused. VASTREL_ERROR_INVALID_HEX for an odd number of digits or a
   character that is not a hex digit; the message gives the fault and its offset, never the
   text. out is not NUL-terminated. */
VASTREL_API vastrel_status vastrel_hex_to_bytes(const char* hex, size_t hex_length, uint8_t* out,
                                                size_t out_capacity, size_t* out_length);

/* Two uppercase hex digits per byte. */
VASTREL_API vastrel_status vastrel_bytes_to_hex(const uint8_t* bytes, size_t length, char* out,
                                                size_t out_capacity, size_t* out_length);

/* Two lowercase hex digits per byte of text, up to its first NUL byte. */
VASTREL_API vastrel_status vastrel_text_to_hex(const char* text, size_t length, char* out,
                                               size_t out_capacity, size_t* out_length);

/* One character per pair of hex (a pair without digits gives a NUL byte, counted in
 *out_length); "" for an odd length. */
VASTREL_API vastrel_status vastrel_hex_to_text(const char* hex, size_t hex_length, char* out,
                                               size_t out_capacity, size_t* out_length);

/* ---- BER-TLV ---- */

typedef struct vastrel_tlv_list vastrel_tlv_list;
typedef struct vastrel_tlv vastrel_tlv;
typedef struct vastrel_string_list vastrel_string_list;

/* The nested decoder: the elements of hex, templates decoded into children, the last element
   of each level left whole. NULL hex is absent (logged as "TLV is nil"); odd-length hex is
   logged as "Invalid TLV". Both, and "", give an empty list. Malformed data never fails. */
VASTREL_API vastrel_status vastrel_tlv_decode(const char* hex, size_t hex_length,
                                              vastrel_tlv_list** out);

VASTREL_API vastrel_status vastrel_tlv_list_count(const vastrel_tlv_list* list, size_t* count);
VASTREL_API vastrel_status vastrel_tlv_list_at(const vastrel_tlv_list* list, size_t index,
                                               const vastrel_tlv** element);
VASTREL_API void vastrel_tlv_list_free(vastrel_tlv_list* list);

/* The children of a template (0 for any other element). */
VASTREL_API vastrel_status vastrel_tlv_child_count(const vastrel_tlv* element, size_t* count);
VASTREL_API vastrel_status vastrel_tlv_child_at(const vastrel_tlv* element, size_t index,
                                                const vastrel_tlv** child);

/* The tag as uppercase hex ("9F02"), its display name ("Unknown" when unlisted) and the value
   as hex. The value is empty when the element's length ran past the data. */
VASTREL_API vastrel_status vastrel_tlv_tag(const vastrel_tlv* element, char* out,
                                           size_t out_capacity, size_t* out_length);
VASTREL_API vastrel_status vastrel_tlv_name(const vastrel_tlv* element, char* out,
                                            size_t out_capacity, size_t* out_length);
VASTREL_API vastrel_status vastrel_tlv_value(const vastrel_tlv* element, char* out,
                                             size_t out_capacity, size_t* out_length);
/* The value's length in bytes as the element declares it; a four-byte length with the top
   bit set reads as negative, as the decoder reads it. */
VASTREL_API vastrel_status vastrel_tlv_length(const vastrel_tlv* element, int64_t* length);

/* The flat splitter: one uppercase hex string per top-level element. Only one-byte lengths
   are read: at a longer one it logs "unimplemented" and keeps the elements before.
   VASTREL_ERROR_OUT_OF_RANGE when a value runs past the end, VASTREL_ERROR_INVALID_HEX for
   bad hex. */
VASTREL_API vastrel_status vastrel_tlv_split(const char* hex, size_t hex_length,
                                             vastrel_string_list** out);

VASTREL_API vastrel_status vastrel_string_list_count(const vastrel_string_list* list,
                                                     size_t* count);
VASTREL_API vastrel_status vastrel_string_list_at(const vastrel_string_list* list, size_t index,
                                                  char* out, size_t out_capacity,
                                                  size_t* out_length);
VASTREL_API void vastrel_string_list_free(vastrel_string_list* list);

/* ---- Tags, CVM, brands, enumerations ---- */

/* The display name of the tag written as uppercase hex; "Unknown" when unlisted. */
VASTREL_API vastrel_status vastrel_tag_name(const char* tag, size_t tag_length, char* out,
                                            size_t out_capacity, size_t* out_length);

/* Values of the receipt's CVM result (enumeration type 9). */
enum {
    VASTREL_CVM_NOT_AVAILABLE = 0,
    VASTREL_CVM_PIN_ONLINE = 1,
    VASTREL_CVM_PIN_OFFLINE_ENCRYPTED = 2,
    VASTREL_CVM_PIN_OFFLINE_PLAIN = 3,
    VASTREL_CVM_NO_CVM_REQUESTED = 31,
    VASTREL_CVM_SIGNATURE_REQUIRED = 94
};

/* The CVM result a receipt prints, from the 9F34 value as hex (NULL is absent). */
VASTREL_API vastrel_status vastrel_cvm_result_from_tlv(const char* value, size_t value_length,
                                                       int64_t* result);

/* The cardholder authentication method (0, 1, 2, 4 or 9) from the 9F34 value as hex, matched
   as written: lower-case hex matches nothing. NULL or "" gives 9. */
VASTREL_API vastrel_status vastrel_cardholder_authentication_method_from_tlv(const char* value,
                                                                             size_t value_length,
                                                                             uint64_t* method);

/* Card brands (enumeration type 8). */
enum {
    VASTREL_CARD_VISA = 0,
    VASTREL_CARD_MASTER = 1,
    VASTREL_CARD_AMEX = 2,
    VASTREL_CARD_DISCOVER = 3,
    VASTREL_CARD_JCB = 4,
    VASTREL_CARD_DINERS_CLUB = 5,
    VASTREL_CARD_MAESTRO = 6,
    VASTREL_CARD_UNION_PAY = 7,
    VASTREL_CARD_UNKNOWN = 8
};

/* The brand of a card number whose first six characters are digits (the rest may be mask
   characters). VASTREL_ERROR_INVALID_ARGUMENT when one of the first six is not a digit. */
VASTREL_API vastrel_status vastrel_card_type_from_pan(const char* pan, size_t pan_length,
                                                      uint64_t* card_type);

/* The enumeration tables of vastrel_enum_display_string. */
enum {
    VASTREL_ENUM_TERMINAL_TYPE = 1,
    VASTREL_ENUM_GATEWAY_TYPE = 2,
    VASTREL_ENUM_CONNECTION_TYPE = 3,
    VASTREL_ENUM_TRANSACTION_TYPE = 4,
    VASTREL_ENUM_COMMERCIAL_CARD_DATA_FIELD = 5,
    VASTREL_ENUM_EMV_ERROR_TYPE = 6,
    VASTREL_ENUM_TERMINAL_INTERACTION_TYPE = 7,
    VASTREL_ENUM_CARD_TYPE = 8,
    VASTREL_ENUM_CVM_RESULT = 9,
    VASTREL_ENUM_CARD_DATA_SOURCE_TYPE = 10,
    VASTREL_ENUM_PIN_STATEMENT_TYPE = 11,
    VASTREL_ENUM_CURRENCY_CODE = 12,
    VASTREL_ENUM_COUNTRY_CODE = 13,
    VASTREL_ENUM_TRANSACTION_RESULT_TYPE = 14
};

/* The display string of value in the table enum_type selects ("VISA" for card type 0).
   VASTREL_ERROR_INVALID_ARGUMENT for a type outside 1 to 14; VASTREL_ABSENT when the table
   has no string for value. Values from 17 up share one entry, as the tables do. */
VASTREL_API vastrel_status vastrel_enum_display_string(uint64_t enum_type, uint64_t value,
                                                       char* out, size_t out_capacity,
                                                       size_t* out_length);

/* ---- Receipts ---- */

/* The card as the reader reported it. Every pointer may be NULL (absent); texts end in NUL. */
typedef struct vastrel_card_input {
    const char* pan; /* as the receipt prints it, usually masked */
    const char* cardholder_name;
    uint64_t card_data_source_type; /* enumeration type 10 */
    const char* emv_tlv_hex;        /* the chip data as hex; templates are opened up */
} vastrel_card_input;

/* The gateway's answer. Every pointer may be NULL (absent); texts end in NUL. */
typedef struct vastrel_gateway_input {
    const char* auth_code;
    const char* gateway_transaction_id;
    const char* approved_amount; /* plain decimal text, "12.50" */
} vastrel_gateway_input;

typedef struct vastrel_receipt vastrel_receipt;

/* A chip receipt. gateway or card may be NULL. VASTREL_ERROR_INVALID_HEX for chip data that
   is not hex, VASTREL_ERROR_INVALID_ARGUMENT for an amount that is not plain decimal text. */
VASTREL_API vastrel_status vastrel_receipt_build_emv(const vastrel_gateway_input* gateway,
                                                     const vastrel_card_input* card,
                                                     vastrel_receipt** out);

/* A magnetic-stripe receipt for a transaction of transaction_type (enumeration type 4). */
VASTREL_API vastrel_status vastrel_receipt_build_msr(uint64_t transaction_type,
                                                     const vastrel_gateway_input* gateway,
                                                     const vastrel_card_input* card,
                                                     vastrel_receipt** out);

VASTREL_API void vastrel_receipt_free(vastrel_receipt* receipt);

typedef enum vastrel_receipt_text_field {
    VASTREL_RECEIPT_INVOICE_NUMBER,
    VASTREL_RECEIPT_TRANSACTION_AMOUNT,
    VASTREL_RECEIPT_AUTHORIZATION_CODE,
    VASTREL_RECEIPT_MASKED_PAN,
    VASTREL_RECEIPT_TRANSACTION_ID,
    VASTREL_RECEIPT_CARDHOLDER_NAME,
    VASTREL_RECEIPT_AID,
    VASTREL_RECEIPT_APPLICATION_LABEL,
    VASTREL_RECEIPT_APPLICATION_EXPIRY_DATE,
    VASTREL_RECEIPT_APPLICATION_EFFECTIVE_DATE,
    VASTREL_RECEIPT_APPLICATION_INTERCHANGE_PROFILE,
    VASTREL_RECEIPT_APPLICATION_VERSION_NUMBER,
    VASTREL_RECEIPT_APPLICATION_TRANSACTION_COUNTER,
    VASTREL_RECEIPT_PAN_SEQUENCE_NUMBER,
    VASTREL_RECEIPT_CRYPTOGRAM,
    VASTREL_RECEIPT_ISSUER_APPLICATION_DATA,
    VASTREL_RECEIPT_TERMINAL_VERIFICATION_RESULT,
    VASTREL_RECEIPT_UNPREDICTABLE_NUMBER,
    VASTREL_RECEIPT_CASH_BACK_AMOUNT,
    VASTREL_RECEIPT_TERMINAL_TYPE,
    VASTREL_RECEIPT_IFD_SERIAL_NUMBER,
    VASTREL_RECEIPT_CRYPTOGRAM_INFORMATION_DATA
} vastrel_receipt_text_field;

/* A text field of the receipt (a vastrel_receipt_text_field); VASTREL_ABSENT when the receipt
   has none. */
VASTREL_API vastrel_status vastrel_receipt_text(const vastrel_receipt* receipt, int field,
                                                char* out, size_t out_capacity, size_t* out_length);

typedef enum vastrel_receipt_number_field {
    VASTREL_RECEIPT_TRANSACTION_TYPE,      /* enumeration type 4 */
    VASTREL_RECEIPT_CURRENCY_CODE,         /* 12 */
    VASTREL_RECEIPT_CARD_TYPE,             /* 8 */
    VASTREL_RECEIPT_CVM_RESULT,            /* 9 */
    VASTREL_RECEIPT_POS_ENTRY_MODE,        /* 10 */
    VASTREL_RECEIPT_TERMINAL_COUNTRY_CODE, /* 13 */
    VASTREL_RECEIPT_PIN_STATEMENT_TYPE,    /* 11 */
    /* milliseconds since 1970-01-01 UTC; the builders leave it absent */
    VASTREL_RECEIPT_TRANSACTION_DATE_TIME
} vastrel_receipt_number_field;

/* A number field of the receipt (a vastrel_receipt_number_field); VASTREL_ABSENT (and 0) for
   an absent date. */
VASTREL_API vastrel_status vastrel_receipt_number(const vastrel_receipt* receipt, int field,
                                                  int64_t* value);

/* ---- Strict reading and explanations ---- */

/* Why a strict read stopped; VASTREL_BER_OK when it read everything. */
typedef enum vastrel_ber_error_kind {
    VASTREL_BER_OK = 0,
    VASTREL_BER_TRUNCATED_TAG = 1,
    VASTREL_BER_TRUNCATED_LENGTH = 2,
    VASTREL_BER_LENGTH_PAST_END = 3,
    VASTREL_BER_LENGTH_TOO_LARGE = 4,
    VASTREL_BER_INDEFINITE_LENGTH = 5,
    VASTREL_BER_TOO_DEEP = 6
} vastrel_ber_error_kind;

#define VASTREL_BER_NO_PARENT 0xFFFFFFFFu

/* One element of a strict read, in document order: a template is followed by its subtree,
   which ends at index subtree_end. Offsets count bytes from the start of the data. */
typedef struct vastrel_ber_node {
    size_t offset; /* of the first tag byte */
    size_t tag_length;
    size_t value_offset;
    size_t value_length;
    uint32_t tag;    /* the tag's bytes big-endian (0x9F26); 0xFFFFFFFF above 4 bytes */
    uint32_t depth;  /* 0 at the top level */
    uint32_t parent; /* index of the enclosing template, or VASTREL_BER_NO_PARENT */
    uint32_t subtree_end;
    int constructed;
} vastrel_ber_node;

/* Reads data strictly as BER-TLV: every template expanded, 00 padding skipped, lengths in
   short form or 81 to 84, elements nested at most max_depth levels (0: the default, 32).
   Writes up to node_capacity nodes and sets *node_count to the number read (nodes may be
   NULL when node_capacity is 0); VASTREL_ERROR_BUFFER_TOO_SMALL when they do not all fit.
   Malformed data is not a failure of the call: *error_kind says why the read stopped and
   *error_offset where (the first tag byte of the element that could not be read), and the
   nodes read before it are written. */
VASTREL_API vastrel_status vastrel_ber_read(const uint8_t* data, size_t length, uint32_t max_depth,
                                            vastrel_ber_node* nodes, size_t node_capacity,
                                            size_t* node_count, int* error_kind,
                                            size_t* error_offset);

/* The explanation of data (an R-APDU or plain TLV data) as one JSON object: {"elements":
   [...], "status": null or {"sw", "meaning"}, "error": null or {"offset", "reason"}}, each
   element with "tag", "name", "length", "value", "children" for templates and "meaning"
   for decoded values. Card data is masked unless show_sensitive is non-zero. */
VASTREL_API vastrel_status vastrel_explain_json(const uint8_t* data, size_t length,
                                                int show_sensitive, char* out, size_t out_capacity,
                                                size_t* out_length);

/* ---- Log ---- */

/* Receives each of the library's log lines, NUL-terminated, with its length. Called on the
   thread that logs, possibly on several threads at once. */
typedef void (*vastrel_log_callback)(void* context, const char* line, size_t length);

/* Routes the library's log lines to callback, with context passed back untouched. NULL
   restores the default, which writes each line to stderr. */
VASTREL_API vastrel_status vastrel_set_log_callback(vastrel_log_callback callback, void* context);

/* Turns the library's logging on (non-zero, the default) or off. */
VASTREL_API vastrel_status vastrel_set_logging_enabled(int enabled);

#ifdef __cplusplus
}
#endif

#endif /* VASTREL_H */
