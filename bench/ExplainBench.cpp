// The strict reader, a whole explanation and the full dictionary, on the same blobs as the
// contract's decoder. Hex comes in, as for every other figure: each iteration decodes the
// hex into reused scratch first.
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "AllocationCounter.hpp"
#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"
#include "vastrel/Explain/Explainer.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"

namespace vastrel::bench {
namespace {

std::span<const std::uint8_t> hexToScratch(const std::string& hex,
                                           std::vector<std::uint8_t>& scratch) {
    scratch.resize(hex.size() / 2);
    static_cast<void>(HexDecoder::decode(hex, std::span<std::uint8_t>(scratch)));
    return scratch;
}

void strictRead(benchmark::State& state, const std::string& hex) {
    std::vector<std::uint8_t> scratch;
    BerReadResult result;
    const AllocationMeter meter;
    for (auto _ : state) {
        BerReader::read(hexToScratch(hex, scratch), result);
        benchmark::DoNotOptimize(result.nodes.data());
        benchmark::ClobberMemory();
    }
    meter.report(state, static_cast<double>(result.nodes.size()));
    state.counters["elements"] = static_cast<double>(result.nodes.size());
}

void explain(benchmark::State& state, const std::string& hex, bool json) {
    std::vector<std::uint8_t> scratch;
    const AllocationMeter meter;
    for (auto _ : state) {
        const Explanation explanation = Explainer::explain(hexToScratch(hex, scratch));
        if (json) {
            std::string text = Explainer::toJson(explanation);
            benchmark::DoNotOptimize(text.data());
        }
        benchmark::DoNotOptimize(explanation.elements.data());
    }
    meter.report(state);
}

// A whole session: the trace read, every exchange explained, the summary made.
void session(benchmark::State& state, const std::string& trace) {
    const AllocationMeter meter;
    for (auto _ : state) {
        const SessionExplanation explained = SessionExplainer::explain(ApduTrace::read(trace));
        benchmark::DoNotOptimize(explained.exchanges.data());
    }
    meter.report(state);
}

// Every tag of the dictionary in turn, each under a scheme that varies with it.
void dictionaryFind(benchmark::State& state) {
    std::vector<std::pair<std::uint32_t, PaymentScheme>> lookups;
    for (const TagInfo& entry : EmvDictionary::entries()) {
        lookups.emplace_back(entry.tag, static_cast<PaymentScheme>(lookups.size() % 8));
    }
    std::size_t next = 0;
    for (auto _ : state) {
        const auto& [tag, scheme] = lookups[next];
        if (++next == lookups.size()) next = 0;
        benchmark::DoNotOptimize(EmvDictionary::find(tag, scheme));
    }
}

}  // namespace

void registerExplainBenchmarks() {
    benchmark::RegisterBenchmark("strict/read/flat", &strictRead, workload().flatHex);
    benchmark::RegisterBenchmark("strict/read/nested", &strictRead, workload().nestedHex);
    benchmark::RegisterBenchmark("session/explain/20", &session, workload().session);
    benchmark::RegisterBenchmark("explain/flat", &explain, workload().flatHex, false);
    benchmark::RegisterBenchmark("explain/flat/json", &explain, workload().flatHex, true);
    benchmark::RegisterBenchmark("dictionary/find", &dictionaryFind);
}

}  // namespace vastrel::bench
