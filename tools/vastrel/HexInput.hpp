#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Commands.hpp"
#include "vastrel/Platform/Bytes.hpp"

namespace vastrel::tool {

// Hex pasted from a reader log, cleaned for the library: blanks, tabs and line breaks are
// removed, as is one leading 0x or 0X, and the digits are upper-cased. Throws InputError
// when nothing is left, when a character is not a hex digit (naming it and its position in
// text, counted from 1) or when the digits do not make whole bytes. `what` names the input
// in those messages ("hex data", "tag '9F3'"). Characters in separators are removed too.
std::string cleanHex(std::string_view text, std::string_view what = "hex data",
                     std::string_view separators = "");

// The hex data of a subcommand, cleaned: the arguments joined, or all of input when there
// are none. Throws UsageError when there are no arguments and input is a terminal (nothing
// was piped in), InputError as cleanHex does, which also removes the characters in separators.
std::string readHexInput(const std::vector<std::string>& args, const InputSource& input,
                         std::string_view separators = "");

// The subcommand's input as it stands: the arguments joined by blanks, or all of input when
// there are none. Throws UsageError as readHexInput does.
std::string readText(const std::vector<std::string>& args, const InputSource& input);

// The text of a file named on the command line; "-" is standard input. Throws InputError when
// it cannot be read.
std::string readFileText(const std::string& file, const InputSource& input);

// text cleaned as cleanHex cleans it, decoded to bytes.
Bytes hexBytes(std::string_view text, std::string_view separators = "");

}  // namespace vastrel::tool
