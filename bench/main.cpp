#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks.hpp"
#include "PeakMemory.hpp"
#include "Summary.hpp"
#include "vastrel/Platform/Log.hpp"

namespace {

// Medians of fifteen runs, interleaved so that a burst of load from elsewhere on the machine
// falls on several figures a little rather than on one figure a lot. Flags given on the
// command line come later and win.
char kRepetitions[] = "--benchmark_repetitions=15";
char kMinTime[] = "--benchmark_min_time=0.06";
char kAggregatesOnly[] = "--benchmark_report_aggregates_only=true";
char kInterleave[] = "--benchmark_enable_random_interleaving=true";

}  // namespace

int main(int argc, char** argv) {
    std::vector<char*> args = {argv[0], kRepetitions, kMinTime, kAggregatesOnly, kInterleave};
    args.insert(args.end(), argv + 1, argv + argc);
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;

    // First, while this program is still small: a forked child's peak starts from its size.
    vastrel::bench::PeakMemory peakMemory = vastrel::bench::measureDecodePeakMemory();

    // Lines the library logs while measured are built and then dropped here.
    vastrel::log::setHandler([](std::string_view) {});
    vastrel::bench::registerCodecBenchmarks();
    vastrel::bench::registerLookupBenchmarks();
    vastrel::bench::registerReceiptBenchmarks();
    vastrel::bench::registerCApiBenchmarks();
    vastrel::bench::registerExplainBenchmarks();
    vastrel::bench::registerScaleBenchmarks();

    vastrel::bench::SummaryReporter reporter(std::move(peakMemory));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
