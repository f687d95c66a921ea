#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"

// How cost grows with input: the splitter and the decoder on flat data from the blob's size
// to a mebibyte, and the decoder on data of one size nested ever deeper. The summary divides
// each figure by its input bytes.
namespace vastrel::bench {
namespace {

struct Size {
    const char* label;
    std::size_t bytes;
};

constexpr std::array<Size, 4> kFlatSizes = {{
    {"300B", 300},
    {"4KiB", 4 * 1024},
    {"64KiB", 64 * 1024},
    {"1MiB", 1024 * 1024},
}};

constexpr std::array<std::size_t, 3> kDepths = {2, 8, 32};
constexpr std::size_t kNestedBytes = 4 * 1024;

// The bytes of every element's value, at every level: what the decoder has to keep as hex.
std::size_t valueBytes(const std::vector<TLVObject>& elements) {
    std::size_t bytes = 0;
    for (const TLVObject& element : elements) {
        bytes += element.value().value_or("").size() / 2;
        if (element.innerTlvs()) bytes += valueBytes(*element.innerTlvs());
    }
    return bytes;
}

void nestedDecode(benchmark::State& state, const std::string& hex) {
    decode(state, hex, false);
    const LoggingScope quiet(false);
    state.counters["kept_bytes"] =
        static_cast<double>(valueBytes(TLVDecoder::decodeWithTLVString(hex).value()));
}

// Inputs stay alive for the whole run: benchmarks refer to them.
const std::string& keep(std::string hex) {
    static std::vector<std::unique_ptr<std::string>> inputs;
    return *inputs.emplace_back(std::make_unique<std::string>(std::move(hex)));
}

// A mebibyte takes milliseconds, so a run holds few iterations, and the first of them, which
// faults in fresh pages, would weigh on it: each run warms up first.
constexpr double kWarmUpSeconds = 0.05;

template <class... Args>
void registerWarm(const std::string& name, Args&&... args) {
    benchmark::RegisterBenchmark(name.c_str(), std::forward<Args>(args)...)
        ->MinWarmUpTime(kWarmUpSeconds);
}

}  // namespace

void registerScaleBenchmarks() {
    for (const Size& size : kFlatSizes) {
        const std::string& hex = keep(repeatedFlatHex(size.bytes));
        const std::string suffix = std::string("/") + size.label;
        registerWarm("scale/split" + suffix, &split, hex);
        registerWarm("scale/decode/log_off" + suffix, &decode, hex, false);
        registerWarm("scale/decode/log_on" + suffix, &decode, hex, true);
    }
    for (const std::size_t depth : kDepths) {
        registerWarm("nested/decode/log_off/depth:" + std::to_string(depth), &nestedDecode,
                     keep(nestedHex(depth, kNestedBytes)));
    }
}

}  // namespace vastrel::bench
