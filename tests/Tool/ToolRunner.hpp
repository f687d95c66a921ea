#pragma once

#include <cstddef>
#include <string>
#include <vector>

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

// One row of a table-driven test: a command line, what must come out, and what it reads on
// stdin. An empty errContains means stderr must stay empty.
struct ToolCase {
    const char* reason;
    std::string command;  // the arguments, separated by blanks
    int status;
    std::string outContains;
    std::string errContains = {};
    std::string input = {};
};

// Runs the case and checks status, stdout and stderr, naming the case on failure. A failing
// run must print nothing on stdout and exactly one "vastrel: error: " line on stderr.
void expectCase(const ToolCase& testCase);

// The path of a file under examples/, and its text.
std::string examplePath(const std::string& name);
std::string readExample(const std::string& name);

}  // namespace vastrel::tool::testing
