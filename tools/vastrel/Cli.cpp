#include "Cli.hpp"

#include <CLI/CLI.hpp>

#include <exception>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "LibraryLog.hpp"
#include "ToolError.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel::tool {
namespace {

constexpr int kInputFailure = 1;
constexpr int kUsageFailure = 2;

int fail(std::ostream& err, int status, const std::string& message) {
    err << "vastrel: error: " << message << '\n';
    return status;
}

// Runs the chosen subcommand and prints its output, turning every failure into one error
// line and an exit status: 1 for bad input, 2 for a wrong command line.
int runChosen(const std::vector<Command>& commands, bool verbose, bool showSensitive,
              const CliStreams& streams) {
    std::ostream& err = streams.err;
    LibraryLog log(verbose, err);
    const InputSource input{streams.in, streams.inIsTerminal};
    CommandContext context{log, input, showSensitive};
    try {
        for (const auto& command : commands) {
            if (!command.parser->parsed()) continue;
            const CommandOutput output = command.run(context);
            streams.out << output.text << std::flush;
            for (const auto& warning : output.warnings) {
                err << "vastrel: warning: " << warning << '\n';
            }
            if (output.error) return fail(err, kInputFailure, *output.error);
            return 0;
        }
        return fail(err, kUsageFailure, "no subcommand given (see vastrel --help)");
    } catch (const UsageError& e) {
        return fail(err, kUsageFailure, std::string(e.what()) + " (see vastrel --help)");
    } catch (const RangeError& e) {
        return fail(err, kInputFailure,
                    std::string("the data ends inside an element: ") + e.what());
    } catch (const AssertionFailure&) {
        // Its message quotes the hex, which may be card data.
        return fail(err, kInputFailure,
                    "the hex data has an odd number of digits or a character that is not a hex "
                    "digit");
    } catch (const std::exception& e) {
        // InputError, a bad amount: the message says what is wrong.
        return fail(err, kInputFailure, e.what());
    }
}

// The first word that is not an option, when it names no subcommand. CLI11 would only say
// that a subcommand is required, which hides the typo.
std::optional<std::string> unknownSubcommand(const CLI::App& app,
                                             std::span<const char* const> args) {
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string word = args[i];
        if (word.starts_with("-")) continue;
        try {
            app.get_subcommand(word);
            return std::nullopt;
        } catch (const CLI::OptionNotFound&) {
            return word;
        }
    }
    return std::nullopt;
}

std::string subcommandNames(const CLI::App& app) {
    std::string names;
    for (const auto* sub : app.get_subcommands({})) {
        names += (names.empty() ? "" : ", ") + sub->get_name();
    }
    return names;
}

}  // namespace

int runCli(std::span<const char* const> args, const CliStreams& streams) {
    CLI::App app(
        "Decode EMV data, name tags, read CVM Results, tell card brands and print receipts "
        "with the Vastrel library.\nHEX may come as arguments or on standard input; blanks, "
        "newlines and a leading 0x are removed first.\nExit status: 0 success, 1 bad input, "
        "2 wrong usage.",
        "vastrel");
    app.set_version_flag("--version", "vastrel " VASTREL_TOOL_VERSION);
    bool verbose = false;
    app.add_flag("-v,--verbose", verbose, "Show the library's log lines on stderr");
    bool showSensitive = false;
    app.add_flag("--show-sensitive", showSensitive,
                 "Show card numbers, track data, cardholder names and PIN blocks in full in "
                 "the command's output (masked by default; the library's log lines stay "
                 "masked)");
    app.require_subcommand(1);
    app.fallthrough();  // --verbose may also come after the subcommand

    const std::vector<Command> commands = {
        addExplainCommand(app), addDecodeCommand(app),  addSplitCommand(app), addTagCommand(app),
        addTagsCommand(app),    addCvmCommand(app),     addBrandCommand(app), addEnumCommand(app),
        addIccCommand(app),     addReceiptCommand(app), addMaskCommand(app),  addCapkCommand(app),
    };

    if (const auto word = unknownSubcommand(app, args)) {
        return fail(streams.err, kUsageFailure,
                    "unknown subcommand '" + *word + "'; choose one of " + subcommandNames(app));
    }
    try {
        app.parse(static_cast<int>(args.size()), args.data());
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) return app.exit(e, streams.out, streams.err);  // --help
        return fail(streams.err, kUsageFailure, std::string(e.what()) + " (see vastrel --help)");
    }
    return runChosen(commands, verbose, showSensitive, streams);
}

}  // namespace vastrel::tool
