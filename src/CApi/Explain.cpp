#include <algorithm>
#include <cstring>
#include <span>

#include "CApiSupport.hpp"
#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Explain/Explainer.hpp"

using namespace vastrel;
using namespace vastrel::capi;

namespace {

// Fills out field by field: a node built on the stack and copied whole stalls on the
// store of its parts.
void writeNode(vastrel_ber_node& out, const BerNode& node, std::span<const std::uint8_t> data) {
    out.offset = node.offset;
    out.tag_length = node.tag.size();
    out.value_offset = static_cast<std::size_t>(node.value.data() - data.data());
    out.value_length = node.value.size();
    out.tag = node.tagNumber();
    out.depth = node.depth;
    out.parent = node.parent;
    out.subtree_end = node.subtreeEnd;
    out.constructed = node.constructed ? 1 : 0;
}

}  // namespace

extern "C" {

vastrel_status vastrel_ber_read(const uint8_t* data, size_t length, uint32_t max_depth,
                                vastrel_ber_node* nodes, size_t node_capacity, size_t node_size,
                                size_t* node_count, int* error_kind, size_t* error_offset) {
    return guarded([&] {
        const auto input = bytesArgument(data, length, "data");
        if (node_capacity != 0) {
            require(nodes, "nodes");
            if (node_size == 0) {
                return fail(VASTREL_ERROR_INVALID_ARGUMENT,
                            "node_size is 0; pass sizeof(vastrel_ber_node)");
            }
        }
        require(node_count, "node_count");
        require(error_kind, "error_kind");
        require(error_offset, "error_offset");
        // Each thread reads into its own result, which keeps its room from call to call.
        thread_local BerReadResult room;
        BerReadResult& result = room;  // the thread's storage looked up once
        BerReader::read(input, result, max_depth == 0 ? BerReader::kDefaultMaxDepth : max_depth);
        *node_count = result.nodes.size();
        *error_kind = result.error ? berErrorKindOf(result.error->kind) : VASTREL_BER_OK;
        *error_offset = result.error ? result.error->offset : 0;
        const std::size_t written = std::min(node_capacity, result.nodes.size());
        // The caller's nodes may be shorter (an older header) or longer (a newer one).
        const BerNode* read = result.nodes.data();
        if (node_size == sizeof(vastrel_ber_node)) {
            for (std::size_t i = 0; i < written; ++i)
                writeNode(nodes[i], read[i], input);
        } else {
            auto* out = reinterpret_cast<unsigned char*>(nodes);
            for (std::size_t i = 0; i < written; ++i) {
                vastrel_ber_node node{};
                writeNode(node, read[i], input);
                std::memcpy(out + i * node_size, &node, std::min(node_size, sizeof node));
            }
        }
        if (written < result.nodes.size()) {
            return fail(VASTREL_ERROR_BUFFER_TOO_SMALL, "more nodes were read than fit");
        }
        return VASTREL_OK;
    });
}

vastrel_status vastrel_explain_json(const uint8_t* data, size_t length, int show_sensitive,
                                    char* out, size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        ExplainOptions options;
        options.showSensitive = show_sensitive != 0;
        const Explanation explanation =
            Explainer::explain(bytesArgument(data, length, "data"), options);
        return writeText(Explainer::toJson(explanation), out, out_capacity, out_length);
    });
}

vastrel_status vastrel_explain_session_json(const char* trace, size_t trace_length,
                                            int show_sensitive, char* out, size_t out_capacity,
                                            size_t* out_length) {
    return vastrel_explain_session_json_with_keys(trace, trace_length, nullptr, 0, show_sensitive,
                                                  out, out_capacity, out_length);
}

}  // extern "C"
