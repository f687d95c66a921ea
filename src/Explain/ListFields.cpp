// Decoders of the fields that list other fields: data object lists, tag lists and the AFL.
#include <string>

#include "DecoderParts.hpp"
#include "vastrel/Explain/DataObjectList.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"

namespace vastrel::explain {

std::string tagHex(std::uint32_t tag) {
    std::uint8_t bytes[4];
    std::size_t size = 0;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto byte = static_cast<std::uint8_t>(tag >> shift);
        if (size == 0 && byte == 0 && shift > 0) continue;
        bytes[size++] = byte;
    }
    return hex({bytes, size});
}

namespace {

std::string tagAndName(std::uint32_t tag, PaymentScheme scheme) {
    const TagInfo* info = EmvDictionary::find(tag, scheme);
    return tagHex(tag) + " " +
           (info != nullptr ? std::string(info->name) : "(not in the dictionary)");
}

}  // namespace

void dataObjectList(Value value, const DecodeContext& context, Findings& out) {
    const auto entries = DataObjectList::parse(value);
    if (!entries) {
        out.push_back("Not a data object list: it ends inside a tag or before a length");
        return;
    }
    for (const DolEntry& entry : *entries) {
        out.push_back(tagAndName(entry.tag, context.scheme) + ", " + std::to_string(entry.length) +
                      (entry.length == 1 ? " byte" : " bytes"));
    }
    out.push_back("Data asked for: " + std::to_string(DataObjectList::totalLength(*entries)) +
                  " bytes");
}

void tagList(Value value, const DecodeContext& context, Findings& out) {
    const auto tags = DataObjectList::parseTags(value);
    if (!tags) {
        out.push_back("Not a tag list: it ends inside a tag");
        return;
    }
    for (const std::uint32_t tag : *tags)
        out.push_back(tagAndName(tag, context.scheme));
}

void applicationFileLocator(Value value, Findings& out) {
    constexpr std::size_t kEntry = 4;
    if (value.empty() || value.size() % kEntry != 0) {
        out.push_back("Length " + std::to_string(value.size()) +
                      " is not a whole number of 4-byte entries");
        return;
    }
    for (std::size_t at = 0; at < value.size(); at += kEntry) {
        const std::size_t sfi = value[at] >> 3;
        const std::size_t first = value[at + 1];
        const std::size_t last = value[at + 2];
        const std::size_t signed_ = value[at + 3];
        std::string entry = "SFI " + std::to_string(sfi);
        if (first == last) {
            entry += ", record ";
            entry += std::to_string(first);
        } else {
            entry += ", records ";
            entry += std::to_string(first);
            entry += " to ";
            entry += std::to_string(last);
        }
        entry += ", ";
        entry += signed_ == 0 ? std::string("none") : std::to_string(signed_);
        entry += " for offline data authentication";
        if ((value[at] & 0x07) != 0 || sfi == 0 || first == 0 || last < first ||
            signed_ > last - first + 1) {
            entry += " (malformed entry)";
        }
        out.push_back(entry);
    }
}

}  // namespace vastrel::explain
