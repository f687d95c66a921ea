#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "vastrel/Tags/TagNameEntry.hpp"

// The EMV tag-name table behind Tag::tagName, open to the tests.
namespace vastrel::tagnames {

using vastrel::TagNameEntry;

// Every entry, in the order listed; no tag appears twice.
std::span<const TagNameEntry> allEntries();

// The name listed for exactly this tag text (case-sensitive), or absent.
std::optional<std::string_view> findName(std::string_view tag);

}  // namespace vastrel::tagnames
