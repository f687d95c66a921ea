#pragma once

#include <string>
#include <string_view>

#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel::tool {

// The moment written as "2025-03-15T13:45:02Z" (UTC, whole seconds). Throws InputError for
// any other form or an impossible date.
TransactionReceipt::Date parseUtcDateTime(std::string_view text);

// date in UTC with a strftime format ("%Y-%m-%dT%H:%M:%SZ").
std::string formatUtcDateTime(TransactionReceipt::Date date, const char* format);

}  // namespace vastrel::tool
