#include "vastrel/Codec/Tag.hpp"

#include <string_view>

// Tag::tagNameView is defined beside the name table, in Tags/TagNames.cpp.

std::size_t std::hash<vastrel::Tag>::operator()(const vastrel::Tag& tag) const noexcept {
    const vastrel::Bytes& bytes = tag.value();
    return std::hash<std::string_view>{}(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}
