#include "vastrel/Codec/TLVFlatten.hpp"

#include <utility>

namespace vastrel {
namespace {

bool hasChildren(const TLVObject& element) {
    return element.innerTlvs() && !element.innerTlvs()->empty();
}

}  // namespace

std::vector<TLVObject> TLVFlatten::primitives(const std::vector<TLVObject>& elements) {
    std::vector<TLVObject> flat;
    // A stack of (list, next index) instead of recursion: a hand-built tree may be deep.
    std::vector<std::pair<const std::vector<TLVObject>*, std::size_t>> pending{{&elements, 0}};
    while (!pending.empty()) {
        auto& [list, next] = pending.back();
        if (next == list->size()) {
            pending.pop_back();
            continue;
        }
        const TLVObject& element = (*list)[next++];
        if (hasChildren(element)) {
            pending.emplace_back(&*element.innerTlvs(), 0);
        } else {
            flat.push_back(element);
        }
    }
    return flat;
}

}  // namespace vastrel
