/* The C interface from several threads at once, as an app's worker threads call it: four
   threads decode, explain and build receipts while the main thread keeps replacing the log
   callback and frees each old callback's context as soon as the replacement returns. A call
   of a replaced callback after that would touch freed memory, which AddressSanitizer reports,
   and the check below counts. Built as C99 with POSIX threads. */
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "vastrel/vastrel.h"

/* At least kRounds replacements, and more (up to kMaxRounds) until lines have arrived: on a
   loaded machine the workers may not run at all during the first rounds. */
enum { kThreads = 4, kRounds = 300, kMaxRounds = 100000, kLinesWanted = 100 };

/* A callback's context: a live marker while installed, cleared just before it is freed. */
typedef struct sink {
    int live;
    long lines;
} sink;

static volatile int stop = 0;
static volatile long late_calls = 0;
static volatile long wrong_answers = 0;

/* Takes its time, so that a replacement often comes while a call is in flight: the
   replacement must wait for it, so the context is still live when the call ends. */
static void count_line(void* context, const char* line, size_t length) {
    sink* target = (sink*)context;
    int live_on_entry = __atomic_load_n(&target->live, __ATOMIC_RELAXED);
    for (volatile int spin = 0; spin < 2000; ++spin) {
    }
    if (!live_on_entry || !__atomic_load_n(&target->live, __ATOMIC_RELAXED) ||
        strlen(line) != length) {
        __atomic_add_fetch(&late_calls, 1, __ATOMIC_RELAXED);
    }
    __atomic_add_fetch(&target->lines, 1, __ATOMIC_RELAXED);
}

static void* work(void* unused) {
    /* 77 { 4F, 50 }: a receipt without 9F34 logs; the decode answers the same every time. */
    static const char chip[] = "770F4F07A0000000031010500456495341";
    const vastrel_card_input card = {sizeof card, "476173******0119", NULL, 1, chip};
    const vastrel_card_input no_chip = {sizeof no_chip, NULL, NULL, 0, ""};
    (void)unused;
    while (!__atomic_load_n(&stop, __ATOMIC_RELAXED)) {
        vastrel_tlv_list* list = NULL;
        vastrel_receipt* receipt = NULL;
        char text[64];
        size_t count = 0;
        const vastrel_tlv* element = NULL;
        if (vastrel_tlv_decode(chip, strlen(chip), &list) != VASTREL_OK ||
            vastrel_tlv_list_at(list, 0, &element) != VASTREL_OK ||
            vastrel_tlv_child_count(element, &count) != VASTREL_OK || count != 2) {
            __atomic_add_fetch(&wrong_answers, 1, __ATOMIC_RELAXED);
        }
        vastrel_tlv_list_free(list);
        if (vastrel_receipt_build_emv(NULL, &card, &receipt) != VASTREL_OK ||
            vastrel_receipt_text(receipt, VASTREL_RECEIPT_APPLICATION_LABEL, text, sizeof text,
                                 NULL) != VASTREL_OK ||
            strcmp(text, "VISA") != 0) {
            __atomic_add_fetch(&wrong_answers, 1, __ATOMIC_RELAXED);
        }
        vastrel_receipt_free(receipt);
        if (vastrel_receipt_build_emv(NULL, &no_chip, &receipt) != VASTREL_OK) {
            __atomic_add_fetch(&wrong_answers, 1, __ATOMIC_RELAXED);
        }
        vastrel_receipt_free(receipt);
        if (vastrel_hex_to_bytes("ZZ", 2, NULL, 0, NULL) != VASTREL_ERROR_INVALID_HEX ||
            strcmp(vastrel_last_error_message(), "hex: not a hex digit at offset 0") != 0) {
            __atomic_add_fetch(&wrong_answers, 1, __ATOMIC_RELAXED);
        }
    }
    return NULL;
}

int main(void) {
    pthread_t threads[kThreads];
    long delivered = 0;
    int round;
    for (int i = 0; i < kThreads; ++i)
        pthread_create(&threads[i], NULL, work, NULL);
    for (round = 0; round < kMaxRounds && (round < kRounds || delivered < kLinesWanted); ++round) {
        sink* current = calloc(1, sizeof *current);
        current->live = 1;
        vastrel_set_log_callback(count_line, current);
        for (volatile int spin = 0; spin < 20000; ++spin) {
        }
        /* Once this returns, current must never be used again: free it at once. */
        vastrel_set_log_callback(NULL, NULL);
        delivered += __atomic_load_n(&current->lines, __ATOMIC_RELAXED);
        __atomic_store_n(&current->live, 0, __ATOMIC_RELAXED);
        free(current);
    }
    __atomic_store_n(&stop, 1, __ATOMIC_RELAXED);
    for (int i = 0; i < kThreads; ++i)
        pthread_join(threads[i], NULL);
    if (late_calls != 0 || wrong_answers != 0 || delivered == 0) {
        fprintf(stderr, "late callback calls %ld, wrong answers %ld, lines delivered %ld\n",
                late_calls, wrong_answers, delivered);
        return 1;
    }
    printf("%d threads, %d callback replacements, %ld lines delivered\n", kThreads, round,
           delivered);
    return 0;
}
