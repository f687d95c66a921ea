#include <cstddef>
#include <string>

#include <benchmark/benchmark.h>

#include "AllocationCounter.hpp"
#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/vastrel.h"

namespace vastrel::bench {
namespace {

// The nested decoder through the C interface, as an app calls it: decode, count, free. Its
// C++ twin is decodeWithTLVString/flat/log_off. libvastrel.so holds its own copy of the core,
// so its log is switched off through the C interface, not through LoggingScope.
void capiDecode(benchmark::State& state, const std::string& hex) {
    vastrel_set_logging_enabled(0);
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
    vastrel_set_logging_enabled(1);
    state.counters["top_level"] = static_cast<double>(count);
}

}  // namespace

void registerCApiBenchmarks() {
    benchmark::RegisterBenchmark("capi/decode/flat/log_off", &capiDecode, workload().flatHex);
}

}  // namespace vastrel::bench
