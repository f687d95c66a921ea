#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Commands.hpp"
#include "vastrel/Oda/CaKeyTable.hpp"

namespace vastrel::tool {

// Keys read from text in the key file format; throws InputError naming `what` and the line
// that cannot be read.
CaKeyFileRead readCaKeys(std::string_view text, std::string_view what);

// The built-in CA key table, with the keys of file (--ca-keys) added or replacing built-in
// ones of the same RID and index.
CaKeyTable caKeyTable(const std::optional<std::string>& file, const InputSource& input);

}  // namespace vastrel::tool
