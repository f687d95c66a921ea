#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "LibraryLog.hpp"

namespace vastrel::tool {

// What a subcommand prints once it has succeeded. Nothing is printed before that, so a
// failure never leaves half an answer on stdout.
struct CommandOutput {
    std::string text;                   // for stdout
    std::vector<std::string> warnings;  // for stderr, one "vastrel: warning: " line each
    // Set when the input was bad but part of it could still be shown: text is printed, then
    // this as a "vastrel: error: " line, and the tool exits with status 1.
    std::optional<std::string> error;
};

// Where piped data comes from: standard input for the program, a string in tests.
struct InputSource {
    std::istream& stream;
    bool isTerminal = false;  // nothing was piped in

    // Everything left in the stream.
    [[nodiscard]] std::string readAll() const;
};

// What a running subcommand may use besides its own options.
struct CommandContext {
    LibraryLog& log;
    const InputSource& input;
    bool showSensitive = false;  // card data in full, for --show-sensitive
};

// A registered subcommand: its parser, and what runs when the user chose it. run throws
// InputError or UsageError (or a library exception) on failure.
struct Command {
    CLI::App* parser = nullptr;
    std::function<CommandOutput(CommandContext&)> run;
};

Command addDecodeCommand(CLI::App& app);
Command addExplainCommand(CLI::App& app);
Command addSplitCommand(CLI::App& app);
Command addTagCommand(CLI::App& app);
Command addTagsCommand(CLI::App& app);
Command addCvmCommand(CLI::App& app);
Command addBrandCommand(CLI::App& app);
Command addEnumCommand(CLI::App& app);
Command addIccCommand(CLI::App& app);
Command addReceiptCommand(CLI::App& app);
Command addMaskCommand(CLI::App& app);
Command addCapkCommand(CLI::App& app);

// The help text shared by the subcommands that read hex.
inline constexpr const char* kHexHelp =
    "EMV data as hex; read from standard input when absent. Blanks, newlines and a "
    "leading 0x are removed, so data pasted from a log works as it is";

}  // namespace vastrel::tool
