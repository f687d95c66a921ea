#pragma once

#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Platform/Log.hpp"

// Registration of the benchmark families, called from main in this order so that the
// floors run first and the table lists the figures in a fixed order.
namespace vastrel::bench {

void registerCodecBenchmarks();
void registerLookupBenchmarks();
void registerReceiptBenchmarks();
void registerCApiBenchmarks();
void registerExplainBenchmarks();
void registerScaleBenchmarks();

// The splitter and the nested decoder (logging on or off) on one input, with their
// allocations per element and the input's size in bytes among the counters.
void split(benchmark::State& state, const std::string& hex);
void decode(benchmark::State& state, const std::string& hex, bool logging);

// Calls visit on every element of a decoded tree, parents before their children. The
// benchmark data nests a few levels, so recursion is fine here.
template <class Visit>
void forEachElement(const std::vector<TLVObject>& elements, Visit&& visit) {
    for (const TLVObject& element : elements) {
        visit(element);
        if (element.innerTlvs()) forEachElement(*element.innerTlvs(), visit);
    }
}

// Turns the library's log on or off for one benchmark run and back on afterwards. main
// installs a handler that drops every line, so "on" measures building the lines.
class LoggingScope {
  public:
    explicit LoggingScope(bool enabled) { log::setEnabled(enabled); }
    ~LoggingScope() { log::setEnabled(true); }
    LoggingScope(const LoggingScope&) = delete;
    LoggingScope& operator=(const LoggingScope&) = delete;
};

}  // namespace vastrel::bench
