#pragma once

#include <span>

#include "vastrel/Tags/TagNameEntry.hpp"

// The EMV tag-name table behind Tag::tagName, open to the tests.
namespace vastrel::tagnames {

using vastrel::TagNameEntry;

// Every entry, in the order listed; no tag appears twice.
std::span<const TagNameEntry> allEntries();

}  // namespace vastrel::tagnames
