#include "ToolRunner.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace vastrel::tool::testing {
namespace {

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// A file in the temporary directory holding text, removed again when the object goes.
class TempFile {
  public:
    explicit TempFile(const std::string& text = "") {
        const char* dir = std::getenv("TMPDIR");
        path_ = std::string(dir != nullptr ? dir : "/tmp") + "/vastrel-tool-test-XXXXXX";
        const int fd = mkstemp(path_.data());
        if (fd < 0) throw std::runtime_error("mkstemp failed for " + path_);
        close(fd);
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~TempFile() { unlink(path_.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    [[nodiscard]] const char* path() const { return path_.c_str(); }

  private:
    std::string path_;
};

}  // namespace

RunResult runTool(const std::vector<std::string>& args, const std::string& input) {
    const TempFile in(input), out, err;

    // Files rather than pipes: the child can write any amount without waiting for us.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, in.path(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.path(), O_WRONLY | O_TRUNC, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.path(), O_WRONLY | O_TRUNC, 0);

    std::vector<std::string> argvText{VASTREL_TOOL_PATH};
    argvText.insert(argvText.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (auto& arg : argvText)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    pid_t pid = 0;
    const int spawned =
        posix_spawn(&pid, VASTREL_TOOL_PATH, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) throw std::runtime_error("cannot start " VASTREL_TOOL_PATH);

    int wait = 0;
    waitpid(pid, &wait, 0);
    return {WIFEXITED(wait) ? WEXITSTATUS(wait) : 128 + WTERMSIG(wait), readFile(out.path()),
            readFile(err.path())};
}

RunResult runCommand(const std::string& command, const std::string& input) {
    std::vector<std::string> args;
    std::istringstream words(command);
    for (std::string word; words >> word;)
        args.push_back(word);
    return runTool(args, input);
}

void expectCase(const ToolCase& testCase) {
    SCOPED_TRACE(std::string(testCase.reason) + ": vastrel " + testCase.command.substr(0, 60));
    const RunResult result = runCommand(testCase.command, testCase.input);

    EXPECT_EQ(result.status, testCase.status) << "stderr: " << result.err;
    EXPECT_NE(result.out.find(testCase.outContains), std::string::npos) << "stdout: " << result.out;
    if (testCase.errContains.empty()) {
        EXPECT_EQ(result.err, "");
    } else {
        EXPECT_NE(result.err.find(testCase.errContains), std::string::npos)
            << "stderr: " << result.err;
    }
    // Whatever went wrong, it is one line: no half answer, no exception dump, no sanitizer
    // report.
    if (testCase.status != 0) {
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.rfind("vastrel: error: ", 0), 0U) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
}

std::string examplePath(const std::string& name) {
    return std::string(VASTREL_EXAMPLES_DIR) + "/" + name;
}

std::string readExample(const std::string& name) { return readFile(examplePath(name)); }

}  // namespace vastrel::tool::testing
