#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "PeakMemory.hpp"

// The closing table of a run: every figure's median with its ratio to the floor of the
// same run and the target it has to meet.
namespace vastrel::bench {

// The floor benchmarks that the ratios divide by; registered before everything else. The
// plain floors are the reference; the SIMD ones decode hex as fast as the library does, and
// show how much of a figure is strings and objects rather than hex.
inline constexpr const char* kFlatFloor = "floor/flat";
inline constexpr const char* kNestedFloor = "floor/nested";
inline constexpr const char* kFlatSimdFloor = "floor-simd/flat";
inline constexpr const char* kNestedSimdFloor = "floor-simd/nested";
// Not floors that ratios divide by: the cost of the decoder's and the splitter's result
// types alone, built from ready texts.
inline constexpr const char* kFlatResultFloor = "floor-result/flat";
inline constexpr const char* kFlatSplitResultFloor = "floor-result/split/flat";

// Prints what the console reporter prints, and after the last benchmark Markdown tables: the
// medians (CPU time) with their ratios to both floors, their heap allocations and their
// targets; the cost per input byte as inputs grow and as nesting deepens; and the peak
// memory of the tool. Without repetitions the single run of each benchmark stands in for its
// median.
class SummaryReporter : public benchmark::ConsoleReporter {
  public:
    // Colours only when stdout is a terminal; one header, counters inline.
    explicit SummaryReporter(PeakMemory peakMemory);

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    struct Figure {
        std::int64_t order;  // registration order, whatever order the runs came in
        std::string name;
        double nanoseconds;
        double bytesPerSecond;  // 0 unless the benchmark counts bytes
        // Counters, negative when the benchmark does not report them.
        double allocations;
        double allocationsPerElement;
        double inputBytes;
        double keptBytes;
    };

    const Figure* find(std::string_view name) const;
    void printMainTable(std::FILE* out, int& missed) const;
    void printScaleTable(std::FILE* out, int& missed) const;
    void printNestingTable(std::FILE* out) const;
    void printPeakMemory(std::FILE* out, int& missed) const;

    std::vector<Figure> figures_;
    PeakMemory peakMemory_;
};

}  // namespace vastrel::bench
