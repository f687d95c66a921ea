/* The C interface, called from C as an app would: every function, its results and its
   error paths. Built as C99 with warnings as errors; prints each failed check and exits 1. */
#include <stdio.h>
#include <string.h>

#include "vastrel/vastrel.h"

static int failures = 0;

#define CHECK(condition)                                                                  \
    do {                                                                                  \
        if (!(condition)) {                                                               \
            fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                                   \
        }                                                                                 \
    } while (0)

#define CHECK_STATUS(call, expected) CHECK((call) == (expected))

/* The output arguments of a call that writes text into the shared buffer below. */
#define OUT text, sizeof text, &text_length
#define CHECK_TEXT(call, expected) CHECK((call) == VASTREL_OK && text_is(expected))

/* Text of a call that writes text, read into a static buffer. */
static char text[512];
static size_t text_length;

static int text_is(const char* expected) {
    return text_length == strlen(expected) && strcmp(text, expected) == 0;
}

/* Log lines the callback received, joined by '|'. */
static char log_lines[1024];
static int log_count;

static void collect_log(void* context, const char* line, size_t length) {
    CHECK(context == (void*)log_lines);
    CHECK(strlen(line) == length);
    if (strlen(log_lines) + length + 2 < sizeof log_lines) {
        strcat(log_lines, line);
        strcat(log_lines, "|");
    }
    ++log_count;
}

static void clear_log(void) {
    log_lines[0] = '\0';
    log_count = 0;
}

static void test_status(void) {
    CHECK(strcmp(vastrel_status_text(VASTREL_OK), "VASTREL_OK") == 0);
    CHECK(strcmp(vastrel_status_text(VASTREL_ABSENT), "VASTREL_ABSENT") == 0);
    CHECK(strcmp(vastrel_status_text(VASTREL_ERROR_INTERNAL), "VASTREL_ERROR_INTERNAL") == 0);
    CHECK(strcmp(vastrel_status_text(42), "VASTREL_UNKNOWN_STATUS") == 0);
    CHECK(strcmp(vastrel_last_error_message(), "") == 0);
}

static void test_hex(void) {
    uint8_t bytes[8];
    size_t length = 99;
    static const uint8_t data[] = {0x00, 0x9F, 0xA0, 0xFF};

    CHECK_STATUS(vastrel_hex_to_bytes("009fA0ff", 8, bytes, sizeof bytes, &length), VASTREL_OK);
    CHECK(length == 4 && memcmp(bytes, data, 4) == 0);
    CHECK_STATUS(vastrel_hex_to_bytes(" A-1", 4, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_INVALID_HEX);
    CHECK(strcmp(vastrel_last_error_message(), "hex: not a hex digit at offset 0") == 0);
    CHECK_STATUS(vastrel_hex_to_bytes("+F", 2, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_hex_to_bytes(NULL, 0, NULL, 0, &length), VASTREL_OK);
    CHECK(length == 0);
    /* A card number cut short: the message names the fault, not the digits. */
    CHECK_STATUS(vastrel_hex_to_bytes("476173900101001", 15, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_INVALID_HEX);
    CHECK(strcmp(vastrel_last_error_message(), "hex: odd number of hex digits at offset 15") == 0);
    CHECK_STATUS(vastrel_hex_to_bytes("00Z0", 4, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_INVALID_HEX);
    CHECK(strcmp(vastrel_last_error_message(), "hex: not a hex digit at offset 2") == 0);
    CHECK_STATUS(vastrel_hex_to_bytes("0011", 4, bytes, 1, &length),
                 VASTREL_ERROR_BUFFER_TOO_SMALL);
    CHECK(length == 2);
    CHECK_STATUS(vastrel_hex_to_bytes("0011", 4, NULL, 2, &length), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_hex_to_bytes(NULL, 2, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_NULL_ARGUMENT);

    CHECK_TEXT(vastrel_bytes_to_hex(data, 4, OUT), "009FA0FF");
    /* A size query is no error and keeps the last error's message; then a buffer one byte
       short of the NUL. */
    CHECK_STATUS(vastrel_hex_to_bytes("00Z0", 4, bytes, sizeof bytes, &length),
                 VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_bytes_to_hex(data, 4, NULL, 0, &text_length), VASTREL_OK);
    CHECK(text_length == 8);
    CHECK(strcmp(vastrel_last_error_message(), "hex: not a hex digit at offset 2") == 0);
    CHECK_STATUS(vastrel_bytes_to_hex(data, 4, text, 8, NULL), VASTREL_ERROR_BUFFER_TOO_SMALL);
    CHECK_STATUS(vastrel_bytes_to_hex(data, 4, text, 9, NULL), VASTREL_OK);
    CHECK_STATUS(vastrel_bytes_to_hex(NULL, 1, text, sizeof text, NULL),
                 VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_TEXT(vastrel_bytes_to_hex(NULL, 0, OUT), "");

    /* Pasted text made strict; faults are placed in the text as given. */
    CHECK_TEXT(vastrel_hex_clean(" 0x9f 02:06\r\n00 0a", 18, OUT), "9F0206000A");
    CHECK_TEXT(vastrel_hex_clean("", 0, OUT), "");
    CHECK_STATUS(vastrel_hex_clean("9F 0G", 5, OUT), VASTREL_ERROR_INVALID_HEX);
    CHECK(strcmp(vastrel_last_error_message(), "text: not a hex digit at offset 4") == 0);
    CHECK_STATUS(vastrel_hex_clean("0x0x12", 6, OUT), VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_hex_clean("9F0", 3, OUT), VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_hex_clean("-1", 2, OUT), VASTREL_ERROR_INVALID_HEX);
}

/* E1 { 9F02, A5 { 88 }, 50 }, 9F1A */
static const char kTree[] = "E1149F0206000000001234A5038801025004564953419F1A020840";

static vastrel_tlv_info info_of(const vastrel_tlv* element) {
    vastrel_tlv_info info;
    memset(&info, 0, sizeof info);
    info.struct_size = sizeof info;
    CHECK_STATUS(vastrel_tlv_get_info(element, &info), VASTREL_OK);
    return info;
}

static void test_decode(void) {
    vastrel_tlv_list* list = NULL;
    const vastrel_tlv *e1 = NULL, *element = NULL, *a5 = NULL;
    vastrel_tlv_info info;
    size_t count = 0, offset = 99;
    int kind = -1;

    CHECK_STATUS(vastrel_tlv_decode(kTree, strlen(kTree), &list), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_list_error(list, &kind, &offset), VASTREL_OK);
    CHECK(kind == VASTREL_BER_OK && offset == 0);
    CHECK_STATUS(vastrel_tlv_list_count(list, &count), VASTREL_OK);
    CHECK(count == 2);
    CHECK_STATUS(vastrel_tlv_list_at(list, 0, &e1), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_tag(e1, OUT), "E1");
    info = info_of(e1);
    CHECK(info.tag == 0xE1 && info.constructed == 1 && info.depth == 0 && info.value_length == 20);
    CHECK_STATUS(vastrel_tlv_child_count(e1, &count), VASTREL_OK);
    CHECK(count == 3);

    CHECK_STATUS(vastrel_tlv_child_at(e1, 0, &element), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_name(element, OUT), "Amount, Authorised (Numeric)");
    CHECK_TEXT(vastrel_tlv_value(element, OUT), "000000001234");
    info = info_of(element);
    CHECK(info.tag == 0x9F02 && info.depth == 1 && info.offset == 2 && info.value[5] == 0x34);

    /* The last element of a level is expanded like any other. */
    CHECK_STATUS(vastrel_tlv_child_at(e1, 1, &a5), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_child_count(a5, &count), VASTREL_OK);
    CHECK(count == 1);
    CHECK_STATUS(vastrel_tlv_child_at(a5, 0, &element), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_tag(element, OUT), "88");
    CHECK(info_of(element).depth == 2);
    CHECK_STATUS(vastrel_tlv_child_count(element, &count), VASTREL_OK);
    CHECK(count == 0);
    CHECK_STATUS(vastrel_tlv_child_at(element, 0, &element), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_child_at(e1, 3, &element), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK(strstr(vastrel_last_error_message(), "index 3") != NULL);
    CHECK_STATUS(vastrel_tlv_child_at(e1, 2, &element), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_tag(element, OUT), "50");

    CHECK_STATUS(vastrel_tlv_list_at(list, 1, &element), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_name(element, OUT), "Terminal Country Code");
    CHECK_STATUS(vastrel_tlv_list_at(list, 2, &element), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_value(e1, text, 4, &text_length), VASTREL_ERROR_BUFFER_TOO_SMALL);
    CHECK(text_length == 40);
    info.struct_size = 0;
    CHECK_STATUS(vastrel_tlv_get_info(e1, &info), VASTREL_ERROR_INVALID_ARGUMENT);

    CHECK_STATUS(vastrel_tlv_list_count(NULL, &count), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_list_count(list, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_list_at(NULL, 0, &element), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_list_at(list, 0, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_child_count(NULL, &count), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_child_at(e1, 0, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_tag(NULL, text, sizeof text, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_get_info(e1, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_tlv_decode(kTree, strlen(kTree), NULL), VASTREL_ERROR_NULL_ARGUMENT);
    vastrel_tlv_list_free(list);
    vastrel_tlv_list_free(NULL);

    /* A lone template, as a card answers: opened, its children named. Unknown tags have no
       name. */
    CHECK_STATUS(vastrel_tlv_decode("7707DF7F01019F6C00", 18, &list), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_list_at(list, 0, &element), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_child_count(element, &count), VASTREL_OK);
    CHECK(count == 2);
    CHECK_STATUS(vastrel_tlv_child_at(element, 0, &a5), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_name(a5, OUT), VASTREL_ABSENT);
    CHECK(text_is(""));
    CHECK_STATUS(vastrel_tlv_child_at(element, 1, &a5), VASTREL_OK);
    CHECK_TEXT(vastrel_tlv_name(a5, OUT), "Card Transaction Qualifiers (CTQ)");
    vastrel_tlv_list_free(list);

    /* Data that does not read: an error with its place, and the elements before it. */
    list = NULL;
    CHECK_STATUS(vastrel_tlv_decode("9F02010050085A0812", 18, &list), VASTREL_ERROR_MALFORMED_DATA);
    CHECK(strcmp(vastrel_last_error_message(), "length past the end at byte 4") == 0);
    CHECK_STATUS(vastrel_tlv_list_error(list, &kind, &offset), VASTREL_OK);
    CHECK(kind == VASTREL_BER_LENGTH_PAST_END && offset == 4);
    CHECK_STATUS(vastrel_tlv_list_count(list, &count), VASTREL_OK);
    CHECK(count == 1);
    vastrel_tlv_list_free(list);

    /* Hex that is not strict hex is refused before anything is read. */
    list = NULL;
    CHECK_STATUS(vastrel_tlv_decode("5A0", 3, &list), VASTREL_ERROR_INVALID_HEX);
    CHECK(list == NULL);
    CHECK_STATUS(vastrel_tlv_decode("5A 01 47", 8, &list), VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_tlv_decode("", 0, &list), VASTREL_OK);
    CHECK_STATUS(vastrel_tlv_list_count(list, &count), VASTREL_OK);
    CHECK(count == 0);
    vastrel_tlv_list_free(list);
    {
        static const uint8_t bytes[] = {0x5A, 0x01, 0x47};
        CHECK_STATUS(vastrel_tlv_decode_bytes(bytes, sizeof bytes, &list), VASTREL_OK);
        CHECK_STATUS(vastrel_tlv_list_at(list, 0, &element), VASTREL_OK);
        CHECK_TEXT(vastrel_tlv_value(element, OUT), "47");
        vastrel_tlv_list_free(list);
        CHECK_STATUS(vastrel_tlv_decode_bytes(NULL, 1, &list), VASTREL_ERROR_NULL_ARGUMENT);
    }
}

static void test_explain(void) {
    /* 70 { 5A 01 47 } 9F27 01 80 */
    static const uint8_t data[] = {0x70, 0x03, 0x5A, 0x01, 0x47, 0x9F, 0x27, 0x01, 0x80};
    static const uint8_t cut[] = {0x9F, 0x27, 0x05, 0x80};
    static const uint8_t response[] = {0x5A, 0x08, 0x47, 0x61, 0x73, 0x90,
                                       0x01, 0x01, 0x00, 0x10, 0x90, 0x00};
    vastrel_ber_node nodes[3];
    const size_t node_size = sizeof(vastrel_ber_node);
    size_t count = 0;
    int kind = -1;
    size_t offset = 99;
    char json[1024];

    CHECK_STATUS(
        vastrel_ber_read(data, sizeof data, 0, nodes, 3, node_size, &count, &kind, &offset),
        VASTREL_OK);
    CHECK(count == 3 && kind == VASTREL_BER_OK && offset == 0);
    CHECK(nodes[0].constructed == 1 && nodes[1].constructed == 0 && nodes[0].subtree_end == 2 &&
          nodes[0].parent == VASTREL_BER_NO_PARENT);
    CHECK(nodes[1].tag == 0x5A && nodes[1].depth == 1 && nodes[1].parent == 0);
    CHECK(nodes[1].value_offset == 4 && nodes[1].value_length == 1);
    CHECK(nodes[2].tag == 0x9F27 && nodes[2].offset == 5 && nodes[2].tag_length == 2);
    CHECK_STATUS(
        vastrel_ber_read(data, sizeof data, 1, nodes, 3, node_size, &count, &kind, &offset),
        VASTREL_OK);
    CHECK(count == 1 && kind == VASTREL_BER_TOO_DEEP && offset == 2);
    CHECK_STATUS(vastrel_ber_read(cut, sizeof cut, 0, nodes, 3, node_size, &count, &kind, &offset),
                 VASTREL_OK);
    CHECK(count == 0 && kind == VASTREL_BER_LENGTH_PAST_END && offset == 0);
    CHECK_STATUS(
        vastrel_ber_read(data, sizeof data, 0, nodes, 2, node_size, &count, &kind, &offset),
        VASTREL_ERROR_BUFFER_TOO_SMALL);
    CHECK(count == 3 && nodes[1].tag == 0x5A);
    CHECK_STATUS(vastrel_ber_read(data, sizeof data, 0, NULL, 0, node_size, &count, &kind, &offset),
                 VASTREL_ERROR_BUFFER_TOO_SMALL);
    /* A caller whose nodes are shorter (an older header) gets the fields it has. */
    memset(nodes, 0xAA, sizeof nodes);
    CHECK_STATUS(
        vastrel_ber_read(data, sizeof data, 0, nodes, 3, sizeof(size_t), &count, &kind, &offset),
        VASTREL_OK);
    CHECK(nodes[0].offset == 0 && ((const size_t*)nodes)[1] == 2 && nodes[0].tag_length != 0);
    CHECK_STATUS(vastrel_ber_read(NULL, 0, 0, NULL, 0, node_size, &count, &kind, &offset),
                 VASTREL_OK);
    CHECK(count == 0);
    CHECK_STATUS(vastrel_ber_read(NULL, 2, 0, nodes, 3, node_size, &count, &kind, &offset),
                 VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_ber_read(data, sizeof data, 0, nodes, 3, node_size, &count, NULL, &offset),
                 VASTREL_ERROR_NULL_ARGUMENT);

    CHECK_STATUS(
        vastrel_explain_json(response, sizeof response, 0, json, sizeof json, &text_length),
        VASTREL_OK);
    CHECK(strstr(json, "\"sw\": \"9000\"") != NULL);
    CHECK(strstr(json, "476173******0010") != NULL);
    CHECK(strstr(json, "4761739001010010") == NULL);
    CHECK_STATUS(
        vastrel_explain_json(response, sizeof response, 1, json, sizeof json, &text_length),
        VASTREL_OK);
    CHECK(strstr(json, "4761739001010010") != NULL);
    CHECK_STATUS(vastrel_explain_json(cut, sizeof cut, 0, json, sizeof json, &text_length),
                 VASTREL_OK);
    CHECK(strstr(json, "\"reason\": \"length past the end\"") != NULL);
    CHECK_STATUS(vastrel_explain_json(cut, sizeof cut, 0, json, 8, &text_length),
                 VASTREL_ERROR_BUFFER_TOO_SMALL);
    CHECK_STATUS(vastrel_explain_json(NULL, 4, 0, json, sizeof json, &text_length),
                 VASTREL_ERROR_NULL_ARGUMENT);

    /* A session: the PIN block never shows; a line that cannot be read is named, not failed. */
    {
        static const char trace[] = ">> 00200080022412\n<< 63C1\n?? 9000\n";
        static char session[4096];
        CHECK_STATUS(vastrel_explain_session_json(trace, strlen(trace), 0, session, sizeof session,
                                                  &text_length),
                     VASTREL_OK);
        CHECK(strstr(session, "\"hex\": \"0020008002****\"") != NULL);
        CHECK(strstr(session, "verification failed, 1 try left") != NULL);
        CHECK(strstr(session, "\"line\": 3") != NULL);
        CHECK(strstr(session, "2412") == NULL);
    }
}

static void test_lookups(void) {
    int64_t cvm = -1;
    uint64_t number = 99;

    CHECK_TEXT(vastrel_tag_name("9F34", 4, OUT), "Cardholder Verification Method (CVM) Results");
    CHECK_TEXT(vastrel_tag_name("9f6e", 4, OUT), "Form Factor Indicator");
    CHECK_STATUS(vastrel_tag_name("DF7F", 4, OUT), VASTREL_ABSENT);
    CHECK(text_is(""));
    CHECK_STATUS(vastrel_tag_name("9F3", 3, OUT), VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_tag_name(NULL, 0, OUT), VASTREL_ABSENT);

    CHECK_STATUS(vastrel_cvm_result_from_tlv("1f0302", 6, &cvm), VASTREL_OK);
    CHECK(cvm == VASTREL_CVM_NO_CVM_REQUESTED);
    CHECK_STATUS(vastrel_cvm_result_from_tlv("5E0300", 6, &cvm), VASTREL_OK);
    CHECK(cvm == VASTREL_CVM_SIGNATURE_REQUIRED);
    CHECK_STATUS(vastrel_cvm_result_from_tlv("ZZ0300", 6, &cvm), VASTREL_ERROR_INVALID_HEX);
    CHECK_STATUS(vastrel_cvm_result_from_tlv("1E03", 4, &cvm), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK(strcmp(vastrel_last_error_message(), "value: the CVM Results are 3 bytes, not 2") == 0);
    CHECK_STATUS(vastrel_cvm_result_from_tlv(NULL, 0, &cvm), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_cvm_result_from_tlv("010302", 6, NULL), VASTREL_ERROR_NULL_ARGUMENT);

    CHECK_STATUS(vastrel_cardholder_authentication_method_from_tlv("410302", 6, &number),
                 VASTREL_OK);
    CHECK(number == 0);
    CHECK_STATUS(vastrel_cardholder_authentication_method_from_tlv("1e0300", 6, &number),
                 VASTREL_OK);
    CHECK(number == 4);
    CHECK_STATUS(vastrel_cardholder_authentication_method_from_tlv("", 0, &number),
                 VASTREL_ERROR_INVALID_ARGUMENT);

    CHECK_STATUS(vastrel_card_type_from_pan("371449******8431", 16, &number), VASTREL_OK);
    CHECK(number == VASTREL_CARD_AMEX);
    CHECK_STATUS(vastrel_card_type_from_pan("476173", 6, &number), VASTREL_OK);
    CHECK(number == VASTREL_CARD_VISA);
    CHECK_STATUS(vastrel_card_type_from_pan("47617", 5, &number), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_card_type_from_pan("", 0, &number), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_card_type_from_pan("4111*1", 6, &number), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK(strcmp(vastrel_last_error_message(), "pan: a card number starts with six digits") == 0);
    CHECK_STATUS(vastrel_card_type_from_pan("411111", 6, NULL), VASTREL_ERROR_NULL_ARGUMENT);

    CHECK_TEXT(vastrel_enum_display_string(VASTREL_ENUM_CARD_TYPE, VASTREL_CARD_VISA, OUT), "VISA");
    CHECK_STATUS(vastrel_enum_display_string(VASTREL_ENUM_CVM_RESULT, 31, OUT), VASTREL_OK);
    CHECK(text_is("SIGNATURE REQUIRED")); /* 31 shares the key of 17 and up */
    CHECK_STATUS(vastrel_enum_display_string(VASTREL_ENUM_CARD_TYPE, 12, OUT), VASTREL_ABSENT);
    CHECK(text_is(""));
    CHECK_STATUS(vastrel_enum_display_string(0, 0, OUT), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_enum_display_string(15, 0, OUT), VASTREL_ERROR_INVALID_ARGUMENT);
}

/* 6F { 4F, 50, 9F34, 95, 5F2A, 9F26 }, 9F1A */
static const char kChipData[] =
    "6F2C4F07A00000000310105004564953419F3403020300950500000080005F2A0208409F26081122334455667788"
    "9F1A020840";

static int receipt_text_is(const vastrel_receipt* receipt, int field, const char* expected) {
    return vastrel_receipt_text(receipt, field, OUT) == VASTREL_OK && text_is(expected);
}

static int receipt_number_is(const vastrel_receipt* receipt, int field, int64_t expected) {
    int64_t value = -1;
    return vastrel_receipt_number(receipt, field, &value) == VASTREL_OK && value == expected;
}

static void test_receipts(void) {
    const vastrel_card_input card = {sizeof card, "476173******0119", "CARD/HOLDER", 1, kChipData};
    const vastrel_gateway_input gateway = {sizeof gateway, "A1B2C3", "TX-42", "12.50"};
    vastrel_receipt* receipt = NULL;
    int64_t value = 0;

    CHECK_STATUS(vastrel_receipt_build_emv(&gateway, &card, &receipt), VASTREL_OK);
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_TRANSACTION_AMOUNT, "12.5"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_AUTHORIZATION_CODE, "A1B2C3"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_TRANSACTION_ID, "TX-42"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_MASKED_PAN, "476173******0119"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_AID, "A0000000031010"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_APPLICATION_LABEL, "VISA"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_TERMINAL_VERIFICATION_RESULT, "0000008000"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_CRYPTOGRAM, "1122334455667788"));
    CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_CARDHOLDER_NAME, "CARD/HOLDER"));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_CARD_TYPE, VASTREL_CARD_VISA));
    CHECK(
        receipt_number_is(receipt, VASTREL_RECEIPT_CVM_RESULT, VASTREL_CVM_PIN_OFFLINE_ENCRYPTED));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_PIN_STATEMENT_TYPE, 1));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_POS_ENTRY_MODE, 1));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_CURRENCY_CODE, 0));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_TERMINAL_COUNTRY_CODE, 0));
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_TRANSACTION_TYPE, 0));
    CHECK_STATUS(vastrel_receipt_number(receipt, VASTREL_RECEIPT_TRANSACTION_DATE_TIME, &value),
                 VASTREL_ABSENT);
    CHECK_STATUS(vastrel_receipt_text(receipt, VASTREL_RECEIPT_INVOICE_NUMBER, OUT),
                 VASTREL_ABSENT);
    CHECK_STATUS(
        vastrel_receipt_text(receipt, VASTREL_RECEIPT_CRYPTOGRAM_INFORMATION_DATA + 1, OUT),
        VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_receipt_text(receipt, -1, OUT), VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_receipt_number(receipt, VASTREL_RECEIPT_TRANSACTION_DATE_TIME + 1, &value),
                 VASTREL_ERROR_INVALID_ARGUMENT);
    CHECK_STATUS(vastrel_receipt_number(receipt, VASTREL_RECEIPT_CARD_TYPE, NULL),
                 VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_receipt_text(NULL, VASTREL_RECEIPT_AID, text, sizeof text, NULL),
                 VASTREL_ERROR_NULL_ARGUMENT);
    CHECK_STATUS(vastrel_receipt_number(NULL, VASTREL_RECEIPT_CARD_TYPE, &value),
                 VASTREL_ERROR_NULL_ARGUMENT);
    vastrel_receipt_free(receipt);
    vastrel_receipt_free(NULL);

    /* Chip data that is one 77 template, as a card's response is: every field is found. */
    {
        const vastrel_card_input template77 = {
            sizeof template77, "476173******0119", NULL, 1,
            "771A4F07A00000000310105004564953419F26081122334455667788"};
        CHECK_STATUS(vastrel_receipt_build_emv(&gateway, &template77, &receipt), VASTREL_OK);
        CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_AID, "A0000000031010"));
        CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_APPLICATION_LABEL, "VISA"));
        CHECK(receipt_text_is(receipt, VASTREL_RECEIPT_CRYPTOGRAM, "1122334455667788"));
        vastrel_receipt_free(receipt);
    }

    /* A stripe receipt with no gateway answer: logged, and the gateway's fields are absent. */
    clear_log();
    CHECK_STATUS(vastrel_receipt_build_msr(2, NULL, &card, &receipt), VASTREL_OK);
    CHECK(strstr(log_lines, "Unable to populate required MSR receipt") != NULL);
    CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_TRANSACTION_TYPE, 2));
    CHECK_STATUS(vastrel_receipt_text(receipt, VASTREL_RECEIPT_AUTHORIZATION_CODE, OUT),
                 VASTREL_ABSENT);
    CHECK_STATUS(vastrel_receipt_text(receipt, VASTREL_RECEIPT_AID, OUT), VASTREL_ABSENT);
    vastrel_receipt_free(receipt);

    /* Chip data without 4F and 50 leaves the EMV fields empty, and says so. */
    {
        const vastrel_card_input no_chip = {sizeof no_chip, NULL, NULL, 0, ""};
        clear_log();
        CHECK_STATUS(vastrel_receipt_build_emv(NULL, &no_chip, &receipt), VASTREL_OK);
        CHECK(strcmp(log_lines, "AID and Application Label are missing from EMV tags.|") == 0);
        CHECK(receipt_number_is(receipt, VASTREL_RECEIPT_CARD_TYPE, VASTREL_CARD_UNKNOWN));
        vastrel_receipt_free(receipt);
    }

    /* Bad input is refused before anything is built. */
    {
        const vastrel_card_input bad_chip = {sizeof bad_chip, NULL, NULL, 0, "4F0"};
        const vastrel_card_input junk_chip = {sizeof junk_chip, NULL, NULL, 0, "4F01ZZ"};
        const vastrel_card_input cut_chip = {sizeof cut_chip, NULL, NULL, 0, "6F054F07A000"};
        const vastrel_card_input unsized = {0, NULL, NULL, 0, NULL};
        const vastrel_gateway_input bad_amount = {sizeof bad_amount, NULL, NULL, "12,50"};
        receipt = NULL;
        CHECK_STATUS(vastrel_receipt_build_emv(NULL, &bad_chip, &receipt),
                     VASTREL_ERROR_INVALID_HEX);
        CHECK(receipt == NULL);
        CHECK_STATUS(vastrel_receipt_build_msr(0, NULL, &junk_chip, &receipt),
                     VASTREL_ERROR_INVALID_HEX);
        CHECK_STATUS(vastrel_receipt_build_emv(NULL, &cut_chip, &receipt),
                     VASTREL_ERROR_MALFORMED_DATA);
        CHECK(strcmp(vastrel_last_error_message(),
                     "card.emv_tlv_hex: length past the end at byte 0") == 0);
        CHECK_STATUS(vastrel_receipt_build_emv(&bad_amount, NULL, &receipt),
                     VASTREL_ERROR_INVALID_ARGUMENT);
        CHECK(strstr(vastrel_last_error_message(), "12,50") == NULL);
        CHECK_STATUS(vastrel_receipt_build_emv(NULL, &unsized, &receipt),
                     VASTREL_ERROR_INVALID_ARGUMENT);
        CHECK(strstr(vastrel_last_error_message(), "card.struct_size") != NULL);
        CHECK_STATUS(vastrel_receipt_build_emv(NULL, NULL, NULL), VASTREL_ERROR_NULL_ARGUMENT);
        CHECK_STATUS(vastrel_receipt_build_msr(0, NULL, NULL, NULL), VASTREL_ERROR_NULL_ARGUMENT);
    }
}

static void test_logging(void) {
    const vastrel_card_input no_chip = {sizeof no_chip, NULL, NULL, 0, ""};
    vastrel_receipt* receipt = NULL;
    /* Off again: nothing reaches the callback, nor stderr. */
    clear_log();
    CHECK_STATUS(vastrel_set_log_callback(NULL, NULL), VASTREL_OK);
    CHECK_STATUS(vastrel_receipt_build_emv(NULL, &no_chip, &receipt), VASTREL_OK);
    vastrel_receipt_free(receipt);
    CHECK(log_count == 0);
}

/* Visa's published CA key 92, as a key-file line, with its checksum. */
#define VISA_92                                                        \
    "A000000003\t92\t03\t"                                             \
    "996AF56F569187D09293C14810450ED8EE3357397B18A2458EFAA92DA3B6DF65" \
    "14EC060195318FD43BE9B8F0CC669E3F844057CBDDF8BDA191BB64473BC8DC9A" \
    "730DB8F6B4EDE3924186FFD9B8C7735789C23A36BA0B8AF65372EB57EA5D89E7" \
    "D14E9C7B6B557460F10885DA16AC923F15AF3758F0F03EBD3C5C2C949CBA306D" \
    "B44E6A2C076C5F67E281D7EF56785DC4D75945E491F01918800A9E2DC66F6008" \
    "0566CE0DAF8D17EAD46AD8E30A247C9F"                                 \
    "\t429C954A3859CEF91295F663C963E582ED6EB253\tVISA\n"

static char* read_example(const char* name) {
    static char contents[2][16384];
    static int next;
    char path[512];
    char* out = contents[next++ % 2];
    size_t length;
    FILE* file;
    snprintf(path, sizeof path, "%s/examples/%s", VASTREL_SOURCE_DIR, name);
    file = fopen(path, "rb");
    CHECK(file != NULL);
    if (file == NULL) return strcpy(out, "");
    length = fread(out, 1, sizeof contents[0] - 1, file);
    out[length] = '\0';
    fclose(file);
    return out;
}

static size_t count_of(const char* text, const char* part) {
    size_t count = 0;
    for (text = strstr(text, part); text != NULL; text = strstr(text + 1, part))
        ++count;
    return count;
}

static void test_ca_keys(void) {
    static char json[65536];
    static const char bad_checksum[] =
        "A000000003 92 03 C0FFEE 0000000000000000000000000000000000000000\n";
    static const char bad_line[] = "rid\tindex\nA000000003\t92\t03\tC0FFEE\nA0000003\t92\t03\t01\n";
    size_t failed = 99;
    const char* trace;
    const char* key;

    CHECK_STATUS(vastrel_ca_keys_check_json(VISA_92, strlen(VISA_92), &failed, json, sizeof json,
                                            &text_length),
                 VASTREL_OK);
    CHECK(failed == 0);
    CHECK(strstr(json, "\"verdict\": \"passed\"") != NULL);
    CHECK_STATUS(vastrel_ca_keys_check_json(bad_checksum, strlen(bad_checksum), &failed, json,
                                            sizeof json, &text_length),
                 VASTREL_OK);
    CHECK(failed == 1);
    CHECK(strstr(json, "\"source\": \"line 1\"") != NULL);
    /* A line that cannot be read is named by its number, never by its content. */
    CHECK_STATUS(vastrel_ca_keys_check_json(bad_line, strlen(bad_line), &failed, json, sizeof json,
                                            &text_length),
                 VASTREL_ERROR_MALFORMED_DATA);
    CHECK(strstr(vastrel_last_error_message(), "line 3") != NULL);
    CHECK(strstr(vastrel_last_error_message(), "A0000003") == NULL);
    CHECK_STATUS(
        vastrel_ca_keys_check_json(VISA_92, strlen(VISA_92), NULL, json, sizeof json, &text_length),
        VASTREL_ERROR_NULL_ARGUMENT);

    /* The example session is signed by the tests' own CA: only with its key does it pass. */
    trace = read_example("oda-session.txt");
    key = read_example("oda-test-ca.tsv");
    CHECK_STATUS(vastrel_explain_session_json_with_keys(trace, strlen(trace), key, strlen(key), 0,
                                                        json, sizeof json, &text_length),
                 VASTREL_OK);
    CHECK(count_of(json, "\"result\": \"passed\"") == 3);
    CHECK(strstr(json, "476173******0010") != NULL);
    CHECK_STATUS(
        vastrel_explain_session_json(trace, strlen(trace), 0, json, sizeof json, &text_length),
        VASTREL_OK);
    CHECK(count_of(json, "\"failed_check\": \"issuer certificate: length\"") == 3);
    CHECK_STATUS(
        vastrel_explain_session_json_with_keys(trace, strlen(trace), bad_line, strlen(bad_line), 0,
                                               json, sizeof json, &text_length),
        VASTREL_ERROR_MALFORMED_DATA);
}

static void test_version(void) {
    char expected[32];
    snprintf(expected, sizeof expected, "%d.%d.%d", VASTREL_VERSION_MAJOR, VASTREL_VERSION_MINOR,
             VASTREL_VERSION_PATCH);
    CHECK(strcmp(vastrel_version(), expected) == 0);
}

int main(void) {
    CHECK_STATUS(vastrel_set_log_callback(collect_log, log_lines), VASTREL_OK);
    test_status();
    test_hex();
    test_decode();
    test_explain();
    test_lookups();
    test_receipts();
    test_logging();
    test_ca_keys();
    test_version();
    if (failures != 0) {
        fprintf(stderr, "%d checks failed\n", failures);
        return 1;
    }
    puts("all C interface checks passed");
    return 0;
}
