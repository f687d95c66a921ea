#include <cstddef>
#include <string>

#include <benchmark/benchmark.h>

#include "AllocationCounter.hpp"
#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/vastrel.h"

namespace vastrel::bench {
namespace {

// The strict decoder through the C interface, as an app calls it: decode into a walkable
// tree, count, free. The C library logs nothing until an app asks.
void capiDecode(benchmark::State& state, const std::string& hex) {
    std::size_t count = 0;
    const AllocationMeter meter;
    for (auto _ : state) {
        vastrel_tlv_list* list = nullptr;
        vastrel_tlv_decode(hex.data(), hex.size(), &list);
        vastrel_tlv_list_count(list, &count);
        benchmark::DoNotOptimize(count);
        vastrel_tlv_list_free(list);
    }
    meter.report(state, static_cast<double>(count));
    state.counters["top_level"] = static_cast<double>(count);
}

// The same, then every element's name read into a buffer, as a trace viewer would.
void capiDecodeNamed(benchmark::State& state, const std::string& hex) {
    char name[128];
    for (auto _ : state) {
        vastrel_tlv_list* list = nullptr;
        vastrel_tlv_decode(hex.data(), hex.size(), &list);
        std::size_t count = 0;
        vastrel_tlv_list_count(list, &count);
        for (std::size_t i = 0; i < count; ++i) {
            const vastrel_tlv* element = nullptr;
            vastrel_tlv_list_at(list, i, &element);
            vastrel_tlv_name(element, name, sizeof name, nullptr);
        }
        benchmark::DoNotOptimize(name);
        vastrel_tlv_list_free(list);
    }
}

}  // namespace

void registerCApiBenchmarks() {
    benchmark::RegisterBenchmark("capi/decode/flat", &capiDecode, workload().flatHex);
    benchmark::RegisterBenchmark("capi/decode/flat/named", &capiDecodeNamed, workload().flatHex);
}

}  // namespace vastrel::bench
