#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "support/Vectors.hpp"

namespace vastrel::tool::testing {

// What one run of the vastrel command line produced.
struct RunResult {
    int status = -1;  // exit status; 128 + signal number when a signal ended it
    std::string out;
    std::string err;
};

// Runs the vastrel command line in this process with args, input as its piped standard
// input.
RunResult runTool(const std::vector<std::string>& args, const std::string& input = "");

// Limits for a run of the built program in a process of its own.
struct ProcessLimits {
    std::size_t stackBytes;
    std::size_t addressSpaceBytes;  // 0: none, as under AddressSanitizer, which reserves more
    unsigned cpuSeconds;
};

// Runs the built vastrel program with args and input, under limits; stdout is discarded.
RunResult runToolProcess(const std::vector<std::string>& args, const std::string& input,
                         const ProcessLimits& limits);

// The same, for arguments written as one text separated by blanks ("decode --json 5A00").
RunResult runCommand(const std::string& command, const std::string& input = "");

// Runs the command line of one block of tests/Tool/cli-vectors.txt and checks its status,
// stdout and stderr as the file's header describes.
void expectVector(const vastrel::testing::Vector& vector);

// The path of a file under examples/, and its text.
std::string examplePath(const std::string& name);
std::string readExample(const std::string& name);

}  // namespace vastrel::tool::testing
