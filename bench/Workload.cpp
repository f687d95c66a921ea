#include "Workload.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>

namespace vastrel::bench {
namespace {

std::string dataDirectory() {
    if (const char* overridden = std::getenv("VASTREL_BENCH_DATA")) return overridden;
    return VASTREL_BENCH_DATA_DIR;
}

[[noreturn]] void stop(const std::string& path, const char* reason) {
    std::fprintf(stderr, "vastrel_bench: %s: %s\n", path.c_str(), reason);
    std::exit(EXIT_FAILURE);
}

std::string readFile(const std::string& name) {
    const std::string path = dataDirectory() + "/" + name;
    std::ifstream in(path, std::ios::binary);
    if (!in) stop(path, "cannot open");
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

std::string readHex(const std::string& name) {
    std::string hex = trimmed(readFile(name));
    if (hex.empty()) stop(name, "no hex text");
    return hex;
}

std::vector<std::string> readLines(const std::string& name) {
    std::vector<std::string> lines;
    std::istringstream in(readFile(name));
    for (std::string line; std::getline(in, line);) {
        line = trimmed(line);
        if (!line.empty()) lines.push_back(line);
    }
    if (lines.empty()) stop(name, "no lines");
    return lines;
}

}  // namespace

const Workload& workload() {
    static const Workload loaded{
        readHex("emv_flat.hex"),
        readHex("emv_flat_lower.hex"),
        readHex("emv_nested.hex"),
        readLines("pans.txt"),
    };
    return loaded;
}

}  // namespace vastrel::bench
