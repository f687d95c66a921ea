#include <charconv>
#include <string>
#include <utility>
#include <vector>

#include "CApiSupport.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVParser.hpp"

using namespace vastrel;
using namespace vastrel::capi;

// The handles behind the opaque C types. An element handle is the TLVObject itself.
struct vastrel_tlv_list {
    std::vector<TLVObject> elements;
};

struct vastrel_string_list {
    std::vector<std::string> strings;
};

namespace {

const vastrel_tlv* handleOf(const TLVObject& element) {
    return reinterpret_cast<const vastrel_tlv*>(&element);
}

const TLVObject& elementOf(const vastrel_tlv* handle) {
    require(handle, "element");
    return *reinterpret_cast<const TLVObject*>(handle);
}

const std::vector<TLVObject>& childrenOf(const TLVObject& element) {
    static const std::vector<TLVObject> kNone;
    return element.innerTlvs() ? *element.innerTlvs() : kNone;
}

}  // namespace

extern "C" {

vastrel_status vastrel_tlv_decode(const char* hex, size_t hex_length, vastrel_tlv_list** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        auto elements = TLVDecoder::decodeWithTLVString(optionalTextArgument(hex, hex_length));
        *out = new vastrel_tlv_list{std::move(elements).value_or(std::vector<TLVObject>{})};
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_list_count(const vastrel_tlv_list* list, size_t* count) {
    return guarded([&] {
        require(list, "list");
        require(count, "count");
        *count = list->elements.size();
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_list_at(const vastrel_tlv_list* list, size_t index,
                                   const vastrel_tlv** element) {
    return guarded([&] {
        require(list, "list");
        require(element, "element");
        requireIndex(index, list->elements.size());
        *element = handleOf(list->elements[index]);
        return VASTREL_OK;
    });
}

void vastrel_tlv_list_free(vastrel_tlv_list* list) { delete list; }

vastrel_status vastrel_tlv_child_count(const vastrel_tlv* element, size_t* count) {
    return guarded([&] {
        const TLVObject& parent = elementOf(element);
        require(count, "count");
        *count = childrenOf(parent).size();
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_child_at(const vastrel_tlv* element, size_t index,
                                    const vastrel_tlv** child) {
    return guarded([&] {
        const auto& children = childrenOf(elementOf(element));
        require(child, "child");
        requireIndex(index, children.size());
        *child = handleOf(children[index]);
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_tag(const vastrel_tlv* element, char* out, size_t out_capacity,
                               size_t* out_length) {
    return guarded(
        [&] { return writeOptionalText(elementOf(element).tag(), out, out_capacity, out_length); });
}

vastrel_status vastrel_tlv_name(const vastrel_tlv* element, char* out, size_t out_capacity,
                                size_t* out_length) {
    return guarded([&] {
        return writeOptionalText(elementOf(element).tagName(), out, out_capacity, out_length);
    });
}

vastrel_status vastrel_tlv_value(const vastrel_tlv* element, char* out, size_t out_capacity,
                                 size_t* out_length) {
    return guarded([&] {
        return writeOptionalText(elementOf(element).value(), out, out_capacity, out_length);
    });
}

vastrel_status vastrel_tlv_length(const vastrel_tlv* element, int64_t* length) {
    return guarded([&] {
        const auto& text = elementOf(element).length();
        require(length, "length");
        *length = 0;
        if (!text) return VASTREL_ABSENT;
        const auto [end, error] =
            std::from_chars(text->data(), text->data() + text->size(), *length);
        if (error != std::errc() || end != text->data() + text->size()) {
            return fail(VASTREL_ERROR_INTERNAL, "length is not a number: " + *text);
        }
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_split(const char* hex, size_t hex_length, vastrel_string_list** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        auto pieces = TLVParser::splitTLVData(textArgument(hex, hex_length, "hex"));
        *out = new vastrel_string_list{std::move(pieces)};
        return VASTREL_OK;
    });
}

vastrel_status vastrel_string_list_count(const vastrel_string_list* list, size_t* count) {
    return guarded([&] {
        require(list, "list");
        require(count, "count");
        *count = list->strings.size();
        return VASTREL_OK;
    });
}

vastrel_status vastrel_string_list_at(const vastrel_string_list* list, size_t index, char* out,
                                      size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        require(list, "list");
        requireIndex(index, list->strings.size());
        return writeText(list->strings[index], out, out_capacity, out_length);
    });
}

void vastrel_string_list_free(vastrel_string_list* list) { delete list; }

}  // extern "C"
