#include "ToolRunner.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "Cli.hpp"
#include "support/TestSupport.hpp"

namespace vastrel::tool::testing {
namespace {

// A file in the temporary directory holding text, removed again when the object goes.
class TempFile {
  public:
    explicit TempFile(const std::string& text = "") {
        const char* dir = std::getenv("TMPDIR");
        path_ = std::string(dir != nullptr ? dir : "/tmp") + "/vastrel-tool-test-XXXXXX";
        const int fd = mkstemp(path_.data());
        if (fd < 0) throw std::runtime_error("mkstemp failed for " + path_);
        const bool written =
            write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
        close(fd);
        if (!written) throw std::runtime_error("cannot write " + path_);
    }
    ~TempFile() { unlink(path_.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    [[nodiscard]] const char* path() const { return path_.c_str(); }

  private:
    std::string path_;
};

void limit(int resource, rlim_t value) {
    const rlimit limits{value, value};
    if (setrlimit(resource, &limits) != 0) _exit(125);
}

}  // namespace

RunResult runTool(const std::vector<std::string>& args, const std::string& input) {
    std::vector<const char*> argv = {"vastrel"};
    for (const auto& arg : args)
        argv.push_back(arg.c_str());
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status = runCli(argv, CliStreams{in, false, out, err});
    return {status, out.str(), err.str()};
}

RunResult runToolProcess(const std::vector<std::string>& args, const std::string& input,
                         const ProcessLimits& limits) {
    const TempFile in(input), err;
    std::vector<std::string> argvText{VASTREL_TOOL_PATH};
    argvText.insert(argvText.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (auto& arg : argvText)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    const pid_t pid = fork();
    if (pid < 0) throw std::runtime_error("fork failed");
    if (pid == 0) {
        // The main thread's stack takes its size from the limit in force at exec.
        limit(RLIMIT_STACK, limits.stackBytes);
        if (limits.addressSpaceBytes != 0) limit(RLIMIT_AS, limits.addressSpaceBytes);
        limit(RLIMIT_CPU, limits.cpuSeconds);
        const int input = open(in.path(), O_RDONLY);
        const int output = open("/dev/null", O_WRONLY);
        const int errors = open(err.path(), O_WRONLY | O_TRUNC);
        if (input < 0 || output < 0 || errors < 0) _exit(126);
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
        execv(argv[0], argv.data());
        _exit(127);
    }
    int wait = 0;
    waitpid(pid, &wait, 0);
    std::ifstream errText(err.path(), std::ios::binary);
    std::ostringstream errors;
    errors << errText.rdbuf();
    return {WIFEXITED(wait) ? WEXITSTATUS(wait) : 128 + WTERMSIG(wait), "", errors.str()};
}

RunResult runCommand(const std::string& command, const std::string& input) {
    std::vector<std::string> args;
    std::istringstream words(command);
    for (std::string word; words >> word;)
        args.push_back(word);
    return runTool(args, input);
}

void expectVector(const vastrel::testing::Vector& vector) {
    const std::string command = vector.get("command");
    SCOPED_TRACE(vector.where() + ": " + vector.get("reason") + ": vastrel " +
                 command.substr(0, 60));
    const RunResult result = runCommand(command, vector.get("input", ""));
    const int status = std::stoi(vector.get("status"));

    EXPECT_EQ(result.status, status) << "stderr: " << result.err;
    EXPECT_NE(result.out.find(vector.get("out", "")), std::string::npos)
        << "stdout: " << result.out;
    if (vector.has("json")) {
        const auto json = nlohmann::ordered_json::parse(result.out);
        EXPECT_EQ((json.size() == 136 ? json[0] : json).dump(), vector.get("json"));
    }
    if (vector.has("err")) {
        EXPECT_NE(result.err.find(vector.get("err")), std::string::npos)
            << "stderr: " << result.err;
    } else {
        EXPECT_EQ(result.err, "");
    }
    // Whatever went wrong, it is one line: no half answer, no exception dump.
    if (status != 0) {
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.rfind("vastrel: error: ", 0), 0U) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
}

std::string examplePath(const std::string& name) {
    return std::string(VASTREL_SOURCE_DIR) + "/examples/" + name;
}

std::string readExample(const std::string& name) {
    return vastrel::testing::readSourceFile("examples/" + name);
}

}  // namespace vastrel::tool::testing
