#pragma once

#include <cstdint>

#include <benchmark/benchmark.h>

// Heap allocations, counted by the global operator new that only this program links (in
// AllocationCounter.cpp). The count is per thread and costs one increment, so the figures
// measured alongside it stay honest.
namespace vastrel::bench {

// The allocations this thread has made so far.
std::uint64_t allocationCount() noexcept;

// Counts the allocations of one benchmark run: made before the timed loop, reported after it
// as the counters "allocs" (per iteration) and, given the elements one iteration produces,
// "allocs_per_element".
class AllocationMeter {
  public:
    AllocationMeter() : start_(allocationCount()) {}
    void report(benchmark::State& state, double elementsPerIteration = 0) const;

  private:
    std::uint64_t start_;
};

}  // namespace vastrel::bench
