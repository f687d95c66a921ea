// vastrel: the Vastrel library on the command line, for payment engineers with a hex dump
// from a reader log and a question about it.
#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Commands.hpp"
#include "LibraryLog.hpp"
#include "ToolError.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace {

using namespace vastrel::tool;

constexpr int kInputFailure = 1;
constexpr int kUsageFailure = 2;

int fail(int status, const std::string& message) {
    std::cerr << "vastrel: error: " << message << '\n';
    return status;
}

// Runs the chosen subcommand and prints its output, turning every failure into one error
// line and an exit status: 1 for bad input, 2 for a wrong command line.
int runChosen(const std::vector<Command>& commands, bool verbose) {
    LibraryLog log(verbose);
    try {
        for (const auto& command : commands) {
            if (!command.parser->parsed()) continue;
            const CommandOutput output = command.run(log);
            std::cout << output.text << std::flush;
            for (const auto& warning : output.warnings) {
                std::cerr << "vastrel: warning: " << warning << '\n';
            }
            return 0;
        }
        return fail(kUsageFailure, "no subcommand given (see vastrel --help)");
    } catch (const UsageError& e) {
        return fail(kUsageFailure, std::string(e.what()) + " (see vastrel --help)");
    } catch (const InputError& e) {
        return fail(kInputFailure, e.what());
    } catch (const vastrel::AssertionFailure& e) {
        return fail(kInputFailure, e.what());
    } catch (const vastrel::RangeError& e) {
        return fail(kInputFailure, std::string("the data ends inside an element: ") + e.what());
    } catch (const std::invalid_argument& e) {
        return fail(kInputFailure, e.what());
    } catch (const std::exception& e) {
        return fail(kInputFailure, e.what());
    }
}

// The first word that is not an option, when it names no subcommand. CLI11 would only say
// that a subcommand is required, which hides the typo.
std::optional<std::string> unknownSubcommand(const CLI::App& app, int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
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

int main(int argc, char** argv) {
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
                 "Show card numbers, track data, cardholder names and PIN blocks in full, in "
                 "decode and split output and in the library's log lines (masked by default)");
    app.require_subcommand(1);
    app.fallthrough();  // --verbose may also come after the subcommand

    const std::vector<Command> commands = {
        addDecodeCommand(app), addSplitCommand(app), addTagCommand(app),
        addTagsCommand(app),   addCvmCommand(app),   addBrandCommand(app),
        addEnumCommand(app),   addIccCommand(app),   addReceiptCommand(app),
    };

    if (const auto word = unknownSubcommand(app, argc, argv)) {
        return fail(kUsageFailure,
                    "unknown subcommand '" + *word + "'; choose one of " + subcommandNames(app));
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) return app.exit(e);  // --help, --version
        return fail(kUsageFailure, std::string(e.what()) + " (see vastrel --help)");
    }
    if (showSensitive) vastrel::log::setMaskSensitiveData(false);
    return runChosen(commands, verbose);
}
