#include "ToolRunner.hpp"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <fstream>
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
        close(fd);
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~TempFile() { unlink(path_.c_str()); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
};

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
    // The shell sets the limits, so the program's main thread gets the small stack at exec.
    std::string command = "ulimit -s " + std::to_string(limits.stackBytes / 1024) +
                          " && ulimit -t " + std::to_string(limits.cpuSeconds);
    if (limits.addressSpaceBytes != 0)
        command += " && ulimit -v " + std::to_string(limits.addressSpaceBytes / 1024);
    command += " && exec " VASTREL_TOOL_PATH;
    for (const auto& arg : args)
        command += " '" + arg + "'";
    command += " <" + in.path() + " >/dev/null 2>" + err.path();
    const int wait = std::system(command.c_str());
    return {WIFEXITED(wait) ? WEXITSTATUS(wait) : 128 + WTERMSIG(wait), "",
            vastrel::testing::readFile(err.path())};
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
    // Whatever went wrong, it is one line and no exception dump; only explain, which shows
    // what it read before the error, prints anything on stdout.
    if (status != 0) {
        if (!vector.has("out") && !vector.has("json")) {
            EXPECT_EQ(result.out, "");
        }
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
