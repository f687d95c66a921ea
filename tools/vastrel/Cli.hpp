#pragma once

#include <iosfwd>
#include <span>

namespace vastrel::tool {

// The streams of one run of the tool.
struct CliStreams {
    std::istream& in;
    bool inIsTerminal;  // nothing was piped in: subcommands that read input refuse to wait
    std::ostream& out;
    std::ostream& err;
};

// Runs the vastrel command line args (args[0] is the program's name) and returns its exit
// status: 0 success, 1 bad input, 2 wrong usage. A subcommand's output reaches out only
// once it has succeeded; errors and warnings go to err. Installs its own log handler for the
// run and restores the default one afterwards, so runs must not overlap.
int runCli(std::span<const char* const> args, const CliStreams& streams);

}  // namespace vastrel::tool
