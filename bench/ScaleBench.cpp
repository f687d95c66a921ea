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

void nestedDecode(benchmark::State& state, const std::string& hex) {
    decode(state, hex, false);
    const LoggingScope quiet(false);
    // The bytes of every element's value, at every level: what the decoder has to keep.
    double kept = 0;
    forEachElement(TLVDecoder::decodeWithTLVString(hex).value(), [&kept](const TLVObject& e) {
        kept += static_cast<double>(e.value().value_or("").size() / 2);
    });
    state.counters["kept_bytes"] = kept;
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
