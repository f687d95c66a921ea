#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "CApiSupport.hpp"
#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"

using namespace vastrel;
using namespace vastrel::capi;

// An element handle: which node of which list, and where its children are listed.
struct vastrel_tlv {
    const vastrel_tlv_list* list;
    std::uint32_t index;       // in the list's nodes
    std::uint32_t firstChild;  // in the list's children
    std::uint32_t childCount;
};

// A strict read: the bytes it points into and its nodes in document order. The handles, and
// each template's children (and the top level) as runs of a single index array, are built
// on the first walk, once, so that a decode costs no more than the read and every lookup by
// index takes constant time.
struct vastrel_tlv_list {
    Bytes data;
    std::vector<BerNode> nodes;
    std::uint32_t topLevelCount = 0;
    PaymentScheme scheme = PaymentScheme::Any;
    std::optional<BerError> error;

    struct Index {
        std::vector<vastrel_tlv> elements;
        std::vector<std::uint32_t> children;  // indexes into elements, grouped by parent
    };
    const Index& index() const;

  private:
    mutable std::once_flag indexed_;
    mutable Index index_;
};

namespace {

const vastrel_tlv& elementOf(const vastrel_tlv* handle) {
    require(handle, "element");
    return *handle;
}

const BerNode& nodeOf(const vastrel_tlv* handle) {
    const vastrel_tlv& element = elementOf(handle);
    return element.list->nodes[element.index];
}

// Counts each parent's children, then lays the runs out: the top level first, then each
// template's run in document order.
void indexChildren(const vastrel_tlv_list& list, vastrel_tlv_list::Index& index) {
    const auto count = static_cast<std::uint32_t>(list.nodes.size());
    auto& elements = index.elements;
    elements.resize(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        elements[i] = {&list, i, 0, 0};
        const std::uint32_t parent = list.nodes[i].parent;
        if (parent != BerNode::kNoParent) ++elements[parent].childCount;
    }
    std::uint32_t next = list.topLevelCount;
    for (auto& element : elements) {
        element.firstChild = next;
        next += element.childCount;
        element.childCount = 0;  // counted again below, as the slots fill
    }
    index.children.resize(next);
    std::uint32_t topLevel = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t parent = list.nodes[i].parent;
        if (parent == BerNode::kNoParent) {
            index.children[topLevel++] = i;
        } else {
            auto& owner = elements[parent];
            index.children[owner.firstChild + owner.childCount++] = i;
        }
    }
}

vastrel_status decode(Bytes data, vastrel_tlv_list** out) {
    // Each thread reads into its own result, whose node vector is handed to the list and
    // replaced by one of the same capacity: one allocation a call, not one per doubling.
    thread_local BerReadResult read;
    auto list = std::make_unique<vastrel_tlv_list>();
    list->data = std::move(data);
    const std::size_t capacity = read.nodes.capacity();
    BerReader::read(list->data, read);
    list->nodes = std::move(read.nodes);
    read.nodes = {};
    read.nodes.reserve(std::max(capacity, list->nodes.size()));
    list->error = read.error;
    list->scheme = ApplicationIdentifier::schemeOf(list->nodes);
    list->topLevelCount = static_cast<std::uint32_t>(
        std::count_if(list->nodes.begin(), list->nodes.end(),
                      [](const BerNode& node) { return node.parent == BerNode::kNoParent; }));
    *out = list.release();
    if (!(*out)->error) return VASTREL_OK;
    const BerError& error = *(*out)->error;
    return fail(VASTREL_ERROR_MALFORMED_DATA,
                std::string(describe(error.kind)) + " at byte " + std::to_string(error.offset));
}

const vastrel_tlv* childOf(const vastrel_tlv_list& list, std::uint32_t first, std::uint32_t count,
                           std::size_t index) {
    requireIndex(index, count);
    const auto& built = list.index();
    return &built.elements[built.children[first + index]];
}

}  // namespace

const vastrel_tlv_list::Index& vastrel_tlv_list::index() const {
    std::call_once(indexed_, [this] { indexChildren(*this, index_); });
    return index_;
}

extern "C" {

vastrel_status vastrel_tlv_decode(const char* hex, size_t hex_length, vastrel_tlv_list** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        return decode(hexArgument(textArgument(hex, hex_length, "hex"), "hex"), out);
    });
}

vastrel_status vastrel_tlv_decode_bytes(const uint8_t* data, size_t length,
                                        vastrel_tlv_list** out) {
    return guarded([&] {
        require(out, "out");
        *out = nullptr;
        const auto bytes = bytesArgument(data, length, "data");
        return decode(Bytes(bytes.begin(), bytes.end()), out);
    });
}

vastrel_status vastrel_tlv_list_error(const vastrel_tlv_list* list, int* kind, size_t* offset) {
    return guarded([&] {
        require(list, "list");
        require(kind, "kind");
        require(offset, "offset");
        *kind = list->error ? berErrorKindOf(list->error->kind) : VASTREL_BER_OK;
        *offset = list->error ? list->error->offset : 0;
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_list_scheme(const vastrel_tlv_list* list, int* scheme) {
    return guarded([&] {
        require(list, "list");
        require(scheme, "scheme");
        *scheme = static_cast<int>(list->scheme);
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_list_count(const vastrel_tlv_list* list, size_t* count) {
    return guarded([&] {
        require(list, "list");
        require(count, "count");
        *count = list->topLevelCount;
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_list_at(const vastrel_tlv_list* list, size_t index,
                                   const vastrel_tlv** element) {
    return guarded([&] {
        require(list, "list");
        require(element, "element");
        *element = childOf(*list, 0, list->topLevelCount, index);
        return VASTREL_OK;
    });
}

void vastrel_tlv_list_free(vastrel_tlv_list* list) { delete list; }

vastrel_status vastrel_tlv_child_count(const vastrel_tlv* element, size_t* count) {
    return guarded([&] {
        const vastrel_tlv& parent = elementOf(element);
        require(count, "count");
        *count = parent.childCount;
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_child_at(const vastrel_tlv* element, size_t index,
                                    const vastrel_tlv** child) {
    return guarded([&] {
        const vastrel_tlv& parent = elementOf(element);
        require(child, "child");
        *child = childOf(*parent.list, parent.firstChild, parent.childCount, index);
        return VASTREL_OK;
    });
}

vastrel_status vastrel_tlv_get_info(const vastrel_tlv* element, vastrel_tlv_info* info) {
    return guarded([&] {
        const BerNode& node = nodeOf(element);
        require(info, "info");
        vastrel_tlv_info full{};
        full.struct_size = sizeof full;
        full.tag = node.tagNumber();
        full.depth = node.depth;
        full.constructed = node.constructed ? 1 : 0;
        full.offset = node.offset;
        full.value_length = node.value.size();
        full.value = node.value.data();
        return writeStruct(full, info, info->struct_size, "info");
    });
}

vastrel_status vastrel_tlv_tag(const vastrel_tlv* element, char* out, size_t out_capacity,
                               size_t* out_length) {
    return guarded([&] { return writeHex(nodeOf(element).tag, out, out_capacity, out_length); });
}

vastrel_status vastrel_tlv_name(const vastrel_tlv* element, char* out, size_t out_capacity,
                                size_t* out_length) {
    return guarded([&] {
        return writeTagName(nodeOf(element).tagNumber(), elementOf(element).list->scheme, out,
                            out_capacity, out_length);
    });
}

vastrel_status vastrel_tlv_value(const vastrel_tlv* element, char* out, size_t out_capacity,
                                 size_t* out_length) {
    return guarded([&] { return writeHex(nodeOf(element).value, out, out_capacity, out_length); });
}

}  // extern "C"
