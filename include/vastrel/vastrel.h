/*
 * Vastrel's C interface, for apps: Swift, Objective-C, JNI and any other caller that speaks C.
 * C99; every name starts with vastrel_ or VASTREL_.
 *
 * It reads card data strictly. Hex is two hex digits a byte and nothing else; BER-TLV is read
 * with every template expanded at every level, and data that does not read is an error that
 * names the fault and its byte offset, with the elements read before it. Nothing is guessed.
 *
 * Rules that hold for every function:
 * - Every function returns a vastrel_status, except the *_free functions (nothing),
 *   vastrel_status_text, vastrel_last_error_message and vastrel_version (text).
 *   VASTREL_OK and VASTREL_ABSENT are successes; every error is negative.
 * - Text comes in as a pointer and a byte count; it need not end in a NUL. A NULL pointer
 *   with a count of 0 is the empty text; a NULL pointer with any other count is
 *   VASTREL_ERROR_NULL_ARGUMENT.
 * - Text and bytes go out into the caller's buffer `out` of `out_capacity` bytes. Text is
 *   always NUL-terminated. `*out_length` (out_length may be NULL) receives the length without
 *   the NUL. A size query, out NULL with out_capacity 0, is not an error: it writes only
 *   *out_length and returns what the full call would return. A buffer too small for the
 *   result is VASTREL_ERROR_BUFFER_TOO_SMALL, with *out_length set and nothing written.
 * - Handles (vastrel_tlv_list, vastrel_receipt) are made by the library and released by
 *   their own free function, which accepts NULL. Element pointers (const vastrel_tlv *)
 *   belong to their list and live as long as it does. A handle is never changed after it is
 *   made, so it may be read from several threads at once.
 * - Input structs begin with struct_size, which the caller sets to sizeof the struct as its
 *   header declares it, so that later versions can add fields at the end. Output arrays of
 *   structs take the element size the same way.
 * - Errors set a message for the calling thread (vastrel_last_error_message). It names the
 *   fault and where it is (an offset, a field), never the caller's data, which may be card
 *   data. Successful calls and size queries leave it as it was.
 * - No exception, assertion or abort crosses this interface.
 * - Every function may be called from any thread at once.
 */
#ifndef VASTREL_H
#define VASTREL_H

#include <stddef.h>
#include <stdint.h>

#define VASTREL_VERSION_MAJOR 2
#define VASTREL_VERSION_MINOR 1
#define VASTREL_VERSION_PATCH 0

/* How the library's functions are declared. Define VASTREL_API before including this header
   to declare them otherwise (for a static build, or to import them on Windows). */
#ifndef VASTREL_API
#if defined(_WIN32)
#define VASTREL_API __declspec(dllimport)
#elif defined(__GNUC__)
#define VASTREL_API __attribute__((visibility("default")))
#else
#define VASTREL_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The version of the library that is loaded, "2.1.0", which may be newer than the header's
   VASTREL_VERSION_* (same major). */
VASTREL_API const char* vastrel_version(void);

/* ---- Status and errors ---- */

/* Fields and kinds are passed as int, so that any value a caller sends is well defined and
   answered with VASTREL_ERROR_INVALID_ARGUMENT when it names nothing. */
typedef enum vastrel_status {
    VASTREL_OK = 0,
    /* Not an error: the value asked for is absent (an empty output is written). */
    VASTREL_ABSENT = 1,
    VASTREL_ERROR_NULL_ARGUMENT = -1,
    VASTREL_ERROR_BUFFER_TOO_SMALL = -2,
    /* Text that should be hex is not: an odd number of digits, or a character that is not a
       hex digit. */
    VASTREL_ERROR_INVALID_HEX = -3,
    /* Bytes that should be BER-TLV do not read as such (see vastrel_tlv_list_error). */
    VASTREL_ERROR_MALFORMED_DATA = -4,
    /* An index past the end, an unknown field or enumeration, a value of the wrong size, an
       amount or card number that cannot be read. */
    VASTREL_ERROR_INVALID_ARGUMENT = -5,
    VASTREL_ERROR_OUT_OF_MEMORY = -6,
    VASTREL_ERROR_INTERNAL = -7
} vastrel_status;

/* A fixed name for status ("VASTREL_OK", ...); "VASTREL_UNKNOWN_STATUS" for other values. */
VASTREL_API const char* vastrel_status_text(int status);

/* The message of the last call on this thread that returned an error; "" when none has.
   Valid until the next failing call on this thread. */
VASTREL_API const char* vastrel_last_error_message(void);

/* ---- Hex ---- */

/* The bytes of hex: two hex digits (either case) a byte and nothing else. Blanks, signs and
   a 0x prefix are VASTREL_ERROR_INVALID_HEX, as is an odd number of digits; the message gives
   the offset of the first bad character. out is not NUL-terminated. */
VASTREL_API vastrel_status vastrel_hex_to_bytes(const char* hex, size_t hex_length, uint8_t* out,
                                                size_t out_capacity, size_t* out_length);

/* Hex pasted from a log or a document, made strict: blanks, tabs, line breaks and colons are
   removed, as is one leading 0x or 0X, and the digits are upper-cased. Anything else that is
   not a hex digit, or an odd number of digits, is VASTREL_ERROR_INVALID_HEX, with the offset
   in text of the first bad character. */
VASTREL_API vastrel_status vastrel_hex_clean(const char* text, size_t length, char* out,
                                             size_t out_capacity, size_t* out_length);

/* Two uppercase hex digits per byte. */
VASTREL_API vastrel_status vastrel_bytes_to_hex(const uint8_t* bytes, size_t length, char* out,
                                                size_t out_capacity, size_t* out_length);

/* ---- Reading BER-TLV ---- */

typedef struct vastrel_tlv_list vastrel_tlv_list;
typedef struct vastrel_tlv vastrel_tlv;

/* Why a read stopped; VASTREL_BER_OK when it read everything. */
typedef enum vastrel_ber_error_kind {
    VASTREL_BER_OK = 0,
    VASTREL_BER_TRUNCATED_TAG = 1,
    VASTREL_BER_TRUNCATED_LENGTH = 2,
    VASTREL_BER_LENGTH_PAST_END = 3,
    VASTREL_BER_LENGTH_TOO_LARGE = 4, /* more than 4 length bytes */
    VASTREL_BER_INDEFINITE_LENGTH = 5,
    VASTREL_BER_TOO_DEEP = 6 /* templates nested more than 32 levels */
} vastrel_ber_error_kind;

/* Reads EMV data given as strict hex: every template expanded, at every level; tags of any
   length; lengths in short form or 81 to 84; 00 bytes between elements skipped as padding.
   Each element is named from the full EMV dictionary, in the kernel of the first AID (4F, 84,
   9F06) in the same data.
   - VASTREL_OK: *out holds every element.
   - VASTREL_ERROR_MALFORMED_DATA: the data does not read to its end; *out holds the elements
     read before the fault, and vastrel_tlv_list_error says which fault and where. Free it.
   - VASTREL_ERROR_INVALID_HEX: *out is NULL. */
VASTREL_API vastrel_status vastrel_tlv_decode(const char* hex, size_t hex_length,
                                              vastrel_tlv_list** out);

/* The same from bytes. */
VASTREL_API vastrel_status vastrel_tlv_decode_bytes(const uint8_t* data, size_t length,
                                                    vastrel_tlv_list** out);

/* Why the read of list stopped (a vastrel_ber_error_kind) and the offset of the first byte of
   the element that could not be read; VASTREL_BER_OK and 0 when it read everything. */
VASTREL_API vastrel_status vastrel_tlv_list_error(const vastrel_tlv_list* list, int* kind,
                                                  size_t* offset);

/* The payment schemes whose kernels give some tags their own meaning. */
typedef enum vastrel_scheme {
    VASTREL_SCHEME_UNKNOWN = 0, /* no AID, or one of a scheme not listed */
    VASTREL_SCHEME_VISA = 1,
    VASTREL_SCHEME_MASTERCARD = 2,
    VASTREL_SCHEME_MAESTRO = 3,
    VASTREL_SCHEME_AMEX = 4,
    VASTREL_SCHEME_DISCOVER = 5,
    VASTREL_SCHEME_DINERS = 6,
    VASTREL_SCHEME_JCB = 7,
    VASTREL_SCHEME_UNION_PAY = 8,
    VASTREL_SCHEME_MIR = 9,
    VASTREL_SCHEME_TROY = 10,
    VASTREL_SCHEME_RUPAY = 11,
    VASTREL_SCHEME_INTERAC = 12,
    VASTREL_SCHEME_CARTES_BANCAIRES = 13,
    VASTREL_SCHEME_EFTPOS = 14
} vastrel_scheme;

/* The scheme (a vastrel_scheme) of the first AID in the data, whose kernel names its
   elements. */
VASTREL_API vastrel_status vastrel_tlv_list_scheme(const vastrel_tlv_list* list, int* scheme);

/* The top-level elements. */
VASTREL_API vastrel_status vastrel_tlv_list_count(const vastrel_tlv_list* list, size_t* count);
VASTREL_API vastrel_status vastrel_tlv_list_at(const vastrel_tlv_list* list, size_t index,
                                               const vastrel_tlv** element);
VASTREL_API void vastrel_tlv_list_free(vastrel_tlv_list* list);

/* The elements inside a template; 0 for a primitive element. */
VASTREL_API vastrel_status vastrel_tlv_child_count(const vastrel_tlv* element, size_t* count);
VASTREL_API vastrel_status vastrel_tlv_child_at(const vastrel_tlv* element, size_t index,
                                                const vastrel_tlv** child);

/* What an element is. */
typedef struct vastrel_tlv_info {
    size_t struct_size;   /* set by the caller: sizeof(vastrel_tlv_info) */
    uint32_t tag;         /* the tag's bytes big-endian (0x9F26); 0xFFFFFFFF above 4 bytes */
    uint32_t depth;       /* 0 at the top level */
    int constructed;      /* 1 for a template */
    size_t offset;        /* of the tag's first byte in the data */
    size_t value_length;  /* in bytes */
    const uint8_t* value; /* the value's bytes, owned by the list */
} vastrel_tlv_info;

VASTREL_API vastrel_status vastrel_tlv_get_info(const vastrel_tlv* element, vastrel_tlv_info* info);

/* The tag as uppercase hex ("9F26"). */
VASTREL_API vastrel_status vastrel_tlv_tag(const vastrel_tlv* element, char* out,
                                           size_t out_capacity, size_t* out_length);

/* The element's name from the full EMV dictionary; VASTREL_ABSENT and "" when the dictionary
   has none for the tag. */
VASTREL_API vastrel_status vastrel_tlv_name(const vastrel_tlv* element, char* out,
                                            size_t out_capacity, size_t* out_length);

/* The value as uppercase hex (a template's value holds its children's bytes). */
VASTREL_API vastrel_status vastrel_tlv_value(const vastrel_tlv* element, char* out,
                                             size_t out_capacity, size_t* out_length);

/* One element of a strict read, flat, in document order: a template is followed by its
   subtree, which ends at index subtree_end. Offsets count bytes from the start of data. */
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

#define VASTREL_BER_NO_PARENT 0xFFFFFFFFu

/* The strict read as a flat array, for callers that walk it themselves: up to node_capacity
   nodes of node_size bytes each (the caller's sizeof(vastrel_ber_node)) are written, and
   *node_count receives the number read. max_depth limits the nesting (0: 32). Data that does
   not read to its end is not a failure of the call: *error_kind and *error_offset say why and
   where, and the nodes read before it are written. VASTREL_ERROR_BUFFER_TOO_SMALL when the
   nodes do not all fit; nodes NULL with node_capacity 0 asks for the count. */
VASTREL_API vastrel_status vastrel_ber_read(const uint8_t* data, size_t length, uint32_t max_depth,
                                            vastrel_ber_node* nodes, size_t node_capacity,
                                            size_t node_size, size_t* node_count, int* error_kind,
                                            size_t* error_offset);

/* The explanation of data (an R-APDU or plain TLV data) as one JSON object: {"elements":
   [...], "status": null or {"sw", "meaning"}, "error": null or {"offset", "reason"}}, each
   element with "tag", "name", "length", "value", "children" for templates and "meaning"
   for decoded values. Card data is masked unless show_sensitive is non-zero. */
VASTREL_API vastrel_status vastrel_explain_json(const uint8_t* data, size_t length,
                                                int show_sensitive, char* out, size_t out_capacity,
                                                size_t* out_length);

/* The explanation of a card session given as a trace (text, one APDU a line, marked by
   direction or alternating command and response) as one JSON object: {"exchanges": [{"line",
   "command": {"hex", "name", "header", "parameters", "dol", "note"}, "response": {"elements",
   "status", "error"}, "notes"}], "summary": {...}, "error": null or {"line", "reason"}}.
   A line that cannot be read ends the explanation there and is named in "error"; it is not a
   failure of the call. Card data is masked unless show_sensitive is non-zero. */
VASTREL_API vastrel_status vastrel_explain_session_json(const char* trace, size_t trace_length,
                                                        int show_sensitive, char* out,
                                                        size_t out_capacity, size_t* out_length);

/* The same with the terminal's own CA public keys: ca_keys is text in the key file format
   (one key a line: rid, index, exponent, modulus, then optionally the published SHA-1
   checksum, the scheme and the source; tab-separated, or blank-separated in a line without
   tabs; a first line starting with "rid" is a header). Its keys join the built-in table,
   replacing built-in keys of the same RID and index; NULL with ca_keys_length 0 uses the
   built-in table alone. The offline data authentication replayed from the trace is under
   "summary" "oda": {"methods": [{"method", "result", "failed_check", "reason"}], "steps":
   [{"object", "key": {"rid", "index"}, "exchange", "fields", "checks": [{"name", "ok",
   "detail"}]}], "tvr"}. A key line that cannot be read is VASTREL_ERROR_MALFORMED_DATA, its
   line number in vastrel_last_error_message. */
VASTREL_API vastrel_status vastrel_explain_session_json_with_keys(
    const char* trace, size_t trace_length, const char* ca_keys, size_t ca_keys_length,
    int show_sensitive, char* out, size_t out_capacity, size_t* out_length);

/* ---- CA public keys ---- */

/* Checks CA public keys given in the key file format (see above) as a terminal should before
   loading them: the published SHA-1 checksum over RID, index, modulus and exponent, a modulus
   length the schemes use, an exponent of 3 or 65537, and no index given twice within a RID.
   The JSON array holds one verdict per key: [{"rid", "index", "scheme", "source" ("line N"),
   "verdict": "passed", "failed" or "unverified" (no checksum published), "checks": [{"name",
   "ok" (null when not checked), "detail"}]}]. *failed_count receives the number of keys that
   failed. A line that cannot be read is VASTREL_ERROR_MALFORMED_DATA, its line number in
   vastrel_last_error_message. */
VASTREL_API vastrel_status vastrel_ca_keys_check_json(const char* keys, size_t keys_length,
                                                      size_t* failed_count, char* out,
                                                      size_t out_capacity, size_t* out_length);

/* ---- Tags, CVM, brands, enumerations ---- */

/* The name of the tag written as hex ("9F34", either case) from the full EMV dictionary;
   VASTREL_ABSENT and "" when it has none. */
VASTREL_API vastrel_status vastrel_tag_name(const char* tag, size_t tag_length, char* out,
                                            size_t out_capacity, size_t* out_length);

/* The name of tag (its bytes big-endian, 0x9F6C) in the kernel of scheme (a vastrel_scheme),
   as vastrel_tlv_name gives it; VASTREL_ABSENT and "" when the dictionary has none. */
VASTREL_API vastrel_status vastrel_tag_name_in_scheme(uint32_t tag, int scheme, char* out,
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

/* The CVM result a receipt prints, from the CVM Results (9F34): three bytes as six hex
   digits, either case. VASTREL_ERROR_INVALID_HEX for text that is not hex,
   VASTREL_ERROR_INVALID_ARGUMENT for any other number of bytes. */
VASTREL_API vastrel_status vastrel_cvm_result_from_tlv(const char* value, size_t value_length,
                                                       int64_t* result);

/* The cardholder authentication method (0, 1, 2, 4 or 9) from the CVM Results, read as
   vastrel_cvm_result_from_tlv reads them. */
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

/* The brand of a card number from its first six digits; the rest may be mask characters.
   VASTREL_ERROR_INVALID_ARGUMENT when the number is shorter than six characters or one of
   the first six is not a digit. */
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
    size_t struct_size; /* sizeof(vastrel_card_input) */
    const char* pan;    /* as the receipt prints it, usually masked */
    const char* cardholder_name;
    uint64_t card_data_source_type; /* enumeration type 10 */
    const char* emv_tlv_hex;        /* the chip data as strict hex; every template is opened */
} vastrel_card_input;

/* The gateway's answer. Every pointer may be NULL (absent); texts end in NUL. */
typedef struct vastrel_gateway_input {
    size_t struct_size; /* sizeof(vastrel_gateway_input) */
    const char* auth_code;
    const char* gateway_transaction_id;
    const char* approved_amount; /* plain decimal text, "12.50" */
} vastrel_gateway_input;

typedef struct vastrel_receipt vastrel_receipt;

/* A chip receipt. gateway or card may be NULL. The chip data is read strictly, every template
   opened at any depth: VASTREL_ERROR_INVALID_HEX or VASTREL_ERROR_MALFORMED_DATA when it does
   not read; VASTREL_ERROR_INVALID_ARGUMENT for an amount that is not plain decimal text or a
   struct_size of 0. */
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

/* ---- Log ---- */

/* Receives each of the library's log lines (the receipt builders' complaints), NUL-terminated,
   with its length. Called on the thread that logs, possibly on several threads at once. It
   must not call vastrel_set_log_callback; other calls are fine, but lines they log while it
   runs are dropped. */
typedef void (*vastrel_log_callback)(void* context, const char* line, size_t length);

/* The library logs nothing until a callback is installed. This routes its lines to callback,
   with context passed back untouched; NULL turns logging off again. Once this returns, the
   callback it replaced is not running on any thread and is never called again, so its
   context may be freed. VASTREL_ERROR_INVALID_ARGUMENT when called from inside the callback. */
VASTREL_API vastrel_status vastrel_set_log_callback(vastrel_log_callback callback, void* context);

#ifdef __cplusplus
}
#endif

#endif /* VASTREL_H */
