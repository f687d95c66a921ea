// The C interface as an app drives it: the first byte picks the path and the flags, the rest
// is the input. Decoded trees, whole or cut short by a fault, are walked through the handles,
// receipts are built from the data as chip data and as gateway texts, and every status must be one
// the header lists. Nothing may crash, leak or leave a handle behind.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "FuzzSupport.hpp"
#include "vastrel/vastrel.h"

namespace {

bool isListedStatus(vastrel_status status) {
    return status > VASTREL_ERROR_INTERNAL && status <= VASTREL_ABSENT;
}

void readText(vastrel_status (*read)(const vastrel_tlv*, char*, size_t, size_t*),
              const vastrel_tlv* element) {
    size_t length = 0;
    const vastrel_status query = read(element, nullptr, 0, &length);
    FUZZ_CHECK(query == VASTREL_OK || query == VASTREL_ABSENT);
    std::string text(length + 1, '\0');
    FUZZ_CHECK(read(element, text.data(), text.size(), &length) == query);
}

// Walks the tree with an explicit stack, reading every field of every element.
void walk(const vastrel_tlv_list* list) {
    size_t count = 0;
    FUZZ_CHECK(vastrel_tlv_list_count(list, &count) == VASTREL_OK);
    std::vector<const vastrel_tlv*> pending;
    for (size_t i = 0; i < count; ++i) {
        const vastrel_tlv* element = nullptr;
        FUZZ_CHECK(vastrel_tlv_list_at(list, i, &element) == VASTREL_OK);
        pending.push_back(element);
    }
    const vastrel_tlv* unused = nullptr;
    FUZZ_CHECK(vastrel_tlv_list_at(list, count, &unused) == VASTREL_ERROR_INVALID_ARGUMENT);
    while (!pending.empty()) {
        const vastrel_tlv* element = pending.back();
        pending.pop_back();
        readText(vastrel_tlv_tag, element);
        readText(vastrel_tlv_name, element);
        readText(vastrel_tlv_value, element);
        vastrel_tlv_info info{};
        info.struct_size = sizeof info;
        FUZZ_CHECK(vastrel_tlv_get_info(element, &info) == VASTREL_OK);
        size_t children = 0;
        FUZZ_CHECK(vastrel_tlv_child_count(element, &children) == VASTREL_OK);
        for (size_t i = 0; i < children; ++i) {
            const vastrel_tlv* child = nullptr;
            FUZZ_CHECK(vastrel_tlv_child_at(element, i, &child) == VASTREL_OK);
            pending.push_back(child);
        }
    }
}

void buildReceipts(const std::string& hex, const std::string& text) {
    const vastrel_card_input card = {sizeof card, text.c_str(), text.c_str(), 1, hex.c_str()};
    const vastrel_gateway_input gateway = {sizeof gateway, text.c_str(), text.c_str(),
                                           text.c_str()};
    const vastrel_gateway_input noAmount = {sizeof noAmount, text.c_str(), nullptr, nullptr};
    for (const vastrel_gateway_input* response : {&gateway, &noAmount}) {
        vastrel_receipt* receipt = nullptr;
        const vastrel_status status = vastrel_receipt_build_emv(response, &card, &receipt);
        FUZZ_CHECK(isListedStatus(status));
        FUZZ_CHECK((status == VASTREL_OK) == (receipt != nullptr));
        for (int field = 0;
             receipt != nullptr && field <= VASTREL_RECEIPT_CRYPTOGRAM_INFORMATION_DATA; ++field) {
            char buffer[64];
            FUZZ_CHECK(isListedStatus(
                vastrel_receipt_text(receipt, field, buffer, sizeof buffer, nullptr)));
        }
        vastrel_receipt_free(receipt);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string input(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string hex(2 * input.size() + 1, '\0');
    size_t hexLength = 0;
    FUZZ_CHECK(vastrel_bytes_to_hex(reinterpret_cast<const std::uint8_t*>(input.data()),
                                    input.size(), hex.data(), hex.size(),
                                    &hexLength) == VASTREL_OK);
    hex.resize(hexLength);
    // Odd first bytes feed the raw input as hex text, so junk and odd lengths get through.
    const std::string& text = (data[0] & 1) != 0 ? input : hex;

    // Data that does not read still gives the elements before the fault; bad hex gives none.
    vastrel_tlv_list* list = nullptr;
    const vastrel_status status = vastrel_tlv_decode(text.data(), text.size(), &list);
    FUZZ_CHECK(status == VASTREL_OK || status == VASTREL_ERROR_MALFORMED_DATA ||
               status == VASTREL_ERROR_INVALID_HEX);
    FUZZ_CHECK((list != nullptr) == (status != VASTREL_ERROR_INVALID_HEX));
    if (list != nullptr) walk(list);
    vastrel_tlv_list_free(list);

    if ((data[0] & 2) != 0) buildReceipts(text, input.substr(0, input.find('\0')));
    return 0;
}
