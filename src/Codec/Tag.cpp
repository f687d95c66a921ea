#include "vastrel/Codec/Tag.hpp"

#include <string_view>

#include "Tags/TagNameTable.hpp"

namespace vastrel {

std::string_view Tag::tagNameView(std::string_view tag) noexcept {
    return tagnames::findName(tag).value_or(kUnknownTagName);
}

}  // namespace vastrel

std::size_t std::hash<vastrel::Tag>::operator()(const vastrel::Tag& tag) const noexcept {
    const vastrel::Bytes& bytes = tag.value();
    return std::hash<std::string_view>{}(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}
