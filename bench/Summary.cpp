#include "Summary.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include <unistd.h>

namespace vastrel::bench {
namespace {

enum class Floor { Flat, Nested };
enum class Limit { None, MaxRatio, MaxNanoseconds, MinGigabytesPerSecond };

struct Target {
    std::string_view name;
    Floor floor;
    Limit limit;
    double bound;
};

// What each figure is divided by and what it has to reach. Figures missing here are
// divided by the flat floor and have no target.
constexpr std::array<Target, 25> kTargets = {{
    {kFlatFloor, Floor::Flat, Limit::None, 0},
    {kNestedFloor, Floor::Nested, Limit::None, 0},
    {kFlatSimdFloor, Floor::Flat, Limit::None, 0},
    {kNestedSimdFloor, Floor::Nested, Limit::None, 0},
    {"hex/decode/flat", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/decode/64KiB", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/encode/flat", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/encode/64KiB", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"splitTLVData/flat", Floor::Flat, Limit::MaxRatio, 4.5},
    {"splitTLVData/flat_lower", Floor::Flat, Limit::None, 0},
    {"decodeWithTLVString/nested/log_off", Floor::Nested, Limit::MaxRatio, 8.0},
    {"decodeWithTLVString/nested/log_on", Floor::Nested, Limit::MaxRatio, 15.0},
    {"decodeWithTLVString/flat/log_off", Floor::Flat, Limit::None, 0},
    {"decodeWithTLVString/flat/log_on", Floor::Flat, Limit::None, 0},
    {"tagName/hit", Floor::Flat, Limit::MaxNanoseconds, 25.0},
    {"tagName/miss", Floor::Flat, Limit::MaxNanoseconds, 25.0},
    {"getCardTypeFromRedactedPan/pans", Floor::Flat, Limit::MaxNanoseconds, 25.0},
    {"valueForAnEnumType", Floor::Flat, Limit::None, 0},
    {"buildEmvReceiptWith/flat", Floor::Flat, Limit::MaxNanoseconds, 3000.0},
    {"capi/decode/flat/log_off", Floor::Flat, Limit::None, 0},
    {"strict/read/flat", Floor::Flat, Limit::MaxRatio, 1.5},
    {"strict/read/nested", Floor::Nested, Limit::MaxRatio, 1.5},
    {"explain/flat", Floor::Flat, Limit::MaxNanoseconds, 10000.0},
    {"explain/flat/json", Floor::Flat, Limit::None, 0},
    {"dictionary/find", Floor::Flat, Limit::MaxNanoseconds, 10.0},
}};

const Target* targetFor(std::string_view name) {
    const auto* found = std::find_if(kTargets.begin(), kTargets.end(),
                                     [name](const Target& t) { return t.name == name; });
    return found == kTargets.end() ? nullptr : found;
}

std::string formatTime(double nanoseconds) {
    char text[32];
    if (nanoseconds < 1000) {
        std::snprintf(text, sizeof text, "%.1f ns", nanoseconds);
    } else {
        std::snprintf(text, sizeof text, "%.3f us", nanoseconds / 1000);
    }
    return text;
}

std::string formatTarget(const Target& target) {
    char text[32];
    switch (target.limit) {
        case Limit::MaxRatio:
            std::snprintf(text, sizeof text, "<= %.1fx floor", target.bound);
            return text;
        case Limit::MaxNanoseconds:
            return "<= " + formatTime(target.bound);
        case Limit::MinGigabytesPerSecond:
            std::snprintf(text, sizeof text, ">= %.1f GB/s", target.bound);
            return text;
        case Limit::None:
            break;
    }
    return "";
}

}  // namespace

SummaryReporter::SummaryReporter() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Color : OO_None) {}

void SummaryReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        const bool single = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
        if (run.error_occurred || !(median || single)) continue;
        const double nanoseconds =
            run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        const auto bytes = run.counters.find("bytes_per_second");
        figures_.push_back({run.family_index, run.run_name.function_name, nanoseconds,
                            bytes == run.counters.end() ? 0.0 : bytes->second.value});
    }
    ConsoleReporter::ReportRuns(runs);
}

void SummaryReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::stable_sort(figures_.begin(), figures_.end(),
                     [](const Figure& a, const Figure& b) { return a.order < b.order; });
    const auto floorTime = [this](std::string_view name) {
        for (const Figure& figure : figures_) {
            if (figure.name == name) return figure.nanoseconds;
        }
        return 0.0;
    };
    const double flatFloor = floorTime(kFlatFloor);
    const double nestedFloor = floorTime(kNestedFloor);
    const double flatSimdFloor = floorTime(kFlatSimdFloor);
    const double nestedSimdFloor = floorTime(kNestedSimdFloor);

    std::FILE* out = stdout;
    std::fflush(out);
    std::fprintf(out,
                 "\nMedians (CPU time). Ratios to the floors of this run: plain %s flat, %s "
                 "nested; SIMD %s flat, %s nested.\n\n",
                 formatTime(flatFloor).c_str(), formatTime(nestedFloor).c_str(),
                 formatTime(flatSimdFloor).c_str(), formatTime(nestedSimdFloor).c_str());
    std::fprintf(out, "| benchmark | median | x floor | x SIMD floor | target | met |\n");
    std::fprintf(out, "|---|---:|---:|---:|---|---|\n");
    int missed = 0;
    for (const Figure& figure : figures_) {
        const Target* target = targetFor(figure.name);
        const bool nested = target && target->floor == Floor::Nested;
        const auto ratioTo = [&figure](double floor) {
            return floor > 0 ? figure.nanoseconds / floor : 0.0;
        };
        const double ratio = ratioTo(nested ? nestedFloor : flatFloor);
        const double simdRatio = ratioTo(nested ? nestedSimdFloor : flatSimdFloor);
        const double gigabytes = figure.bytesPerSecond / 1e9;

        std::string value = formatTime(figure.nanoseconds);
        if (figure.bytesPerSecond > 0) {
            char rate[32];
            std::snprintf(rate, sizeof rate, "%.2f GB/s, ", gigabytes);
            value = rate + value;
        }
        std::string met;
        if (target && target->limit != Limit::None) {
            bool ok = false;
            switch (target->limit) {
                case Limit::MaxRatio:
                    ok = ratio <= target->bound;
                    break;
                case Limit::MaxNanoseconds:
                    ok = figure.nanoseconds <= target->bound;
                    break;
                case Limit::MinGigabytesPerSecond:
                    ok = gigabytes >= target->bound;
                    break;
                case Limit::None:
                    break;
            }
            met = ok ? "yes" : "NO";
            if (!ok) ++missed;
        }
        std::fprintf(out, "| %s | %s | %.2f | %.2f | %s | %s |\n", figure.name.c_str(),
                     value.c_str(), ratio, simdRatio, target ? formatTarget(*target).c_str() : "",
                     met.c_str());
    }
    std::fprintf(out, "\n%s\n",
                 missed == 0 ? "All targets met." : "Some targets missed (marked NO).");
    std::fflush(out);
}

}  // namespace vastrel::bench
