#include "vastrel/Explain/DataObjectList.hpp"

#include <algorithm>

namespace vastrel {
namespace {

constexpr std::uint8_t kMoreTagBytes = 0x1F;
constexpr std::uint8_t kNextTagByte = 0x80;
constexpr std::size_t kMaxTagBytes = 4;

// The tag at the front of bytes and its length in bytes; nullopt when bytes end inside it.
std::optional<std::pair<std::uint32_t, std::size_t>> tagAt(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) return std::nullopt;
    std::size_t size = 1;
    if ((bytes[0] & kMoreTagBytes) == kMoreTagBytes) {
        while (size < bytes.size() && (bytes[size] & kNextTagByte) != 0)
            ++size;
        ++size;
    }
    if (size > bytes.size() || size > kMaxTagBytes) return std::nullopt;
    std::uint32_t tag = 0;
    for (std::size_t i = 0; i < size; ++i)
        tag = tag << 8 | bytes[i];
    return std::make_pair(tag, size);
}

}  // namespace

std::optional<std::vector<DolEntry>> DataObjectList::parse(std::span<const std::uint8_t> dol) {
    std::vector<DolEntry> entries;
    while (!dol.empty()) {
        const auto tag = tagAt(dol);
        if (!tag || tag->second >= dol.size()) return std::nullopt;
        entries.push_back({tag->first, dol[tag->second]});
        dol = dol.subspan(tag->second + 1);
    }
    return entries;
}

std::optional<std::vector<std::uint32_t>> DataObjectList::parseTags(
    std::span<const std::uint8_t> list) {
    std::vector<std::uint32_t> tags;
    while (!list.empty()) {
        const auto tag = tagAt(list);
        if (!tag) return std::nullopt;
        tags.push_back(tag->first);
        list = list.subspan(tag->second);
    }
    return tags;
}

std::vector<DolField> DataObjectList::split(const std::vector<DolEntry>& entries,
                                            std::span<const std::uint8_t> data) {
    std::vector<DolField> fields;
    fields.reserve(entries.size());
    for (const DolEntry& entry : entries) {
        const std::size_t taken = std::min(entry.length, data.size());
        fields.push_back({entry.tag, entry.length, data.first(taken)});
        data = data.subspan(taken);
    }
    return fields;
}

std::size_t DataObjectList::totalLength(const std::vector<DolEntry>& entries) noexcept {
    std::size_t total = 0;
    for (const DolEntry& entry : entries)
        total += entry.length;
    return total;
}

}  // namespace vastrel
