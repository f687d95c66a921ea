#include "PeakMemory.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Workload.hpp"

namespace vastrel::bench {
namespace {

constexpr std::size_t kInputCharacters = 1024 * 1024;

[[noreturn]] void runTool(int input) {
    const int discard = open("/dev/null", O_WRONLY);
    if (input < 0 || discard < 0 || dup2(input, STDIN_FILENO) < 0 ||
        dup2(discard, STDOUT_FILENO) < 0 || dup2(discard, STDERR_FILENO) < 0) {
        _exit(126);
    }
    execl(VASTREL_TOOL_PATH, "vastrel", "decode", static_cast<char*>(nullptr));
    _exit(127);
}

bool writeAll(int fd, const std::string& text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = write(fd, text.data() + written, text.size() - written);
        if (n <= 0) return false;
        written += static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

PeakMemory measureDecodePeakMemory() {
    PeakMemory result;
    if (std::strlen(VASTREL_TOOL_PATH) == 0) {
        result.failure = "the tool is not built (VASTREL_BUILD_TOOLS is off)";
        return result;
    }
    const std::string hex = smallElementsHex(kInputCharacters);
    result.inputCharacters = hex.size();
    result.elements = hex.size() / kSmallElementHexSize;

    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        result.failure = std::string("pipe: ") + std::strerror(errno);
        return result;
    }
    const pid_t child = fork();
    if (child == 0) {
        close(pipeEnds[1]);
        runTool(pipeEnds[0]);
    }
    close(pipeEnds[0]);
    if (child < 0) {
        close(pipeEnds[1]);
        result.failure = std::string("fork: ") + std::strerror(errno);
        return result;
    }
    // A tool that stops reading early must not take this program down with SIGPIPE.
    const auto previous = std::signal(SIGPIPE, SIG_IGN);
    const bool fed = writeAll(pipeEnds[1], hex);
    close(pipeEnds[1]);
    std::signal(SIGPIPE, previous);

    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) {
        result.failure = std::string("wait4: ") + std::strerror(errno);
    } else if (!fed || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        result.failure = "vastrel decode failed (" VASTREL_TOOL_PATH ")";
    } else {
        result.peakKibibytes = usage.ru_maxrss;
    }
    return result;
}

}  // namespace vastrel::bench
