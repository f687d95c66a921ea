#include "CaKeyInput.hpp"

#include "HexInput.hpp"
#include "ToolError.hpp"

namespace vastrel::tool {

CaKeyFileRead readCaKeys(std::string_view text, std::string_view what) {
    CaKeyFileRead read = CaKeyTable::parse(text);
    if (read.errorLine) {
        throw InputError(std::string(what) + " line " + std::to_string(*read.errorLine) + ": " +
                         read.error);
    }
    return read;
}

CaKeyTable caKeyTable(const std::optional<std::string>& file, const InputSource& input) {
    CaKeyTable table = CaKeyTable::builtIn();
    if (!file) return table;
    for (CaKeyLine& line : readCaKeys(readFileText(*file, input), *file).keys) {
        table.add(std::move(line.key));
    }
    return table;
}

}  // namespace vastrel::tool
