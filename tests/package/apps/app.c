/* An app's native layer over the installed C library, as docs/apps.md shows it: decode a
   card's response, read it strictly, explain it, build a receipt from one 77 template, tell
   the brand, and get a clear error for bad input; the same work on four threads at once.
   Prints "ok" and exits 0 when every answer is right. */
#include <pthread.h>
#include <stdio.h>
#include <string.h>

#include <vastrel/vastrel.h>

/* 77 { 4F A0000000031010, 50 "VISA", 5A card number, 9F26 cryptogram } */
static const char kResponse[] =
    "77244F07A00000000310105004564953415A0847617390010100109F26081122334455667788";

static int fails(const char* what) {
    fprintf(stderr, "app: %s: %s\n", what, vastrel_last_error_message());
    return 1;
}

static int run(void) {
    vastrel_tlv_list* list = NULL;
    const vastrel_tlv* response = NULL;
    const vastrel_tlv* child = NULL;
    char text[256];
    size_t count = 0;
    uint64_t brand = 0;
    vastrel_receipt* receipt = NULL;
    const vastrel_card_input card = {sizeof card, "476173******0010", NULL, 1, kResponse};

    /* Decode: every template opened, elements named. */
    if (vastrel_tlv_decode(kResponse, strlen(kResponse), &list) != VASTREL_OK) return fails("decode");
    vastrel_tlv_list_at(list, 0, &response);
    vastrel_tlv_child_count(response, &count);
    vastrel_tlv_child_at(response, 1, &child);
    vastrel_tlv_name(child, text, sizeof text, NULL);
    vastrel_tlv_list_free(list);
    if (count != 4 || strcmp(text, "Application Label") != 0) return fails("decoded tree");

    /* Read strictly into a flat array. */
    {
        uint8_t data[64];
        size_t length = 0, nodes_read = 0, offset = 0;
        vastrel_ber_node nodes[8];
        int kind = 0;
        if (vastrel_hex_to_bytes(kResponse, strlen(kResponse), data, sizeof data, &length) !=
                VASTREL_OK ||
            vastrel_ber_read(data, length, 0, nodes, 8, sizeof nodes[0], &nodes_read, &kind,
                             &offset) != VASTREL_OK ||
            nodes_read != 5 || kind != VASTREL_BER_OK || nodes[4].tag != 0x9F26) {
            return fails("strict read");
        }
        /* Explain: JSON with the card number masked. */
        if (vastrel_explain_json(data, length, 0, NULL, 0, &count) != VASTREL_OK) {
            return fails("explain size");
        }
        {
            char json[4096];
            if (count >= sizeof json ||
                vastrel_explain_json(data, length, 0, json, sizeof json, NULL) != VASTREL_OK ||
                strstr(json, "476173******0010") == NULL || strstr(json, "4761739001") != NULL) {
                return fails("explain");
            }
        }
    }

    /* A receipt from one 77 template. */
    if (vastrel_receipt_build_emv(NULL, &card, &receipt) != VASTREL_OK) return fails("receipt");
    vastrel_receipt_text(receipt, VASTREL_RECEIPT_APPLICATION_LABEL, text, sizeof text, NULL);
    vastrel_receipt_free(receipt);
    if (strcmp(text, "VISA") != 0) return fails("receipt label");

    /* The brand. */
    if (vastrel_card_type_from_pan("476173******0010", 16, &brand) != VASTREL_OK ||
        brand != VASTREL_CARD_VISA) {
        return fails("brand");
    }

    /* Bad input: an error with the fault and its place, never OK, never the data. */
    list = NULL;
    if (vastrel_tlv_decode("77245A08476173", 14, &list) != VASTREL_ERROR_MALFORMED_DATA ||
        strcmp(vastrel_last_error_message(), "length past the end at byte 0") != 0) {
        return fails("malformed data accepted");
    }
    vastrel_tlv_list_free(list);
    if (vastrel_card_type_from_pan("4", 1, &brand) != VASTREL_ERROR_INVALID_ARGUMENT ||
        vastrel_hex_to_bytes("47617390010", 11, NULL, 0, NULL) != VASTREL_ERROR_INVALID_HEX ||
        strstr(vastrel_last_error_message(), "4761739") != NULL) {
        return fails("bad input accepted");
    }
    return 0;
}

static void* worker(void* result) {
    int* failed = (int*)result;
    for (int i = 0; i < 200 && !*failed; ++i) *failed = run();
    return NULL;
}

int main(void) {
    pthread_t threads[4];
    int failed[4] = {0, 0, 0, 0};
    if (run() != 0) return 1;
    for (int i = 0; i < 4; ++i) pthread_create(&threads[i], NULL, worker, &failed[i]);
    for (int i = 0; i < 4; ++i) pthread_join(threads[i], NULL);
    for (int i = 0; i < 4; ++i) {
        if (failed[i]) return 1;
    }
    printf("ok: vastrel %s from C\n", vastrel_version());
    return 0;
}
