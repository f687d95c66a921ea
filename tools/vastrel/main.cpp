// vastrel: the Vastrel library on the command line, for payment engineers with a hex dump
// from a reader log and a question about it.
#include <unistd.h>

#include <iostream>
#include <span>

#include "Cli.hpp"

int main(int argc, char** argv) {
    const vastrel::tool::CliStreams streams{std::cin, isatty(STDIN_FILENO) != 0, std::cout,
                                            std::cerr};
    return vastrel::tool::runCli(std::span<const char* const>(argv, static_cast<std::size_t>(argc)),
                                 streams);
}
