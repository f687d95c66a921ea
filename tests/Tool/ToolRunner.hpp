#pragma once

#include <string>
#include <vector>

namespace vastrel::tool::testing {

// What one run of the vastrel program produced.
struct RunResult {
    int status = -1;  // exit status; 128 + signal number when a signal ended it
    std::string out;
    std::string err;
};

// Runs the built vastrel program with args, input on its standard input, and waits for it.
RunResult runTool(const std::vector<std::string>& args, const std::string& input = "");

// One row of a table-driven test: a command line, what it reads on stdin, and what must
// come out. Empty expectations on stdout are not checked; an empty errContains means
// stderr must stay empty.
struct ToolCase {
    const char* reason;
    std::vector<std::string> args;
    std::string input;
    int status;
    std::string outContains;
    std::string errContains;
};

// Runs the case and checks status, stdout and stderr, naming the case on failure.
void expectCase(const ToolCase& testCase);

// The text of a file under examples/.
std::string readExample(const std::string& name);

// The path of a file under examples/.
std::string examplePath(const std::string& name);

}  // namespace vastrel::tool::testing
