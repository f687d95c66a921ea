#include "Summary.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include <unistd.h>

#include <utility>

namespace vastrel::bench {
namespace {

enum class Floor { Flat, Nested };
enum class Limit { None, MaxRatio, MaxNanoseconds, MinGigabytesPerSecond, MaxRatioToFigure };

struct Target {
    std::string_view name;
    Floor floor;
    Limit limit;
    double bound;
    double maxAllocationsPerElement = 0;  // 0: no limit
    std::string_view relativeTo = {};     // the figure a MaxRatioToFigure limit divides by
};

// What each figure is divided by and what it has to reach. Figures missing here are
// divided by the flat floor and have no target.
constexpr std::array<Target, 31> kTargets = {{
    {kFlatFloor, Floor::Flat, Limit::None, 0},
    {kFlatResultFloor, Floor::Flat, Limit::None, 0},
    {kFlatSplitResultFloor, Floor::Flat, Limit::None, 0},
    {kNestedFloor, Floor::Nested, Limit::None, 0},
    {kFlatSimdFloor, Floor::Flat, Limit::None, 0},
    {kNestedSimdFloor, Floor::Nested, Limit::None, 0},
    {"hex/decode/flat", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/decode/64KiB", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/encode/flat", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"hex/encode/64KiB", Floor::Flat, Limit::MinGigabytesPerSecond, 3.0},
    {"splitTLVData/flat", Floor::Flat, Limit::MaxRatio, 1.4, 1},
    {"splitTLVData/flat_lower", Floor::Flat, Limit::None, 0},
    {"decodeWithTLVString/nested/log_off", Floor::Nested, Limit::MaxRatio, 8.0},
    {"decodeWithTLVString/nested/log_on", Floor::Nested, Limit::MaxRatio, 15.0},
    {"decodeWithTLVString/flat/log_off", Floor::Flat, Limit::MaxRatio, 3.5, 2},
    {"decodeWithTLVString/flat/log_on", Floor::Flat, Limit::MaxRatioToFigure, 2.0, 0,
     "decodeWithTLVString/flat/log_off"},
    {"tagName/hit", Floor::Flat, Limit::MaxNanoseconds, 15.0},
    {"tagName/miss", Floor::Flat, Limit::MaxNanoseconds, 15.0},
    {"tagNameView/hit", Floor::Flat, Limit::MaxNanoseconds, 5.0},
    {"tagNameView/miss", Floor::Flat, Limit::MaxNanoseconds, 5.0},
    {"getCardTypeFromRedactedPan/pans", Floor::Flat, Limit::MaxNanoseconds, 25.0},
    {"valueForAnEnumType", Floor::Flat, Limit::None, 0},
    {"buildEmvReceiptWith/flat", Floor::Flat, Limit::MaxNanoseconds, 3000.0},
    {"capi/decode/flat", Floor::Flat, Limit::MaxRatio, 1.5},
    {"capi/decode/flat/named", Floor::Flat, Limit::None, 0},
    {"strict/read/flat", Floor::Flat, Limit::MaxRatio, 1.5},
    {"strict/read/nested", Floor::Nested, Limit::MaxRatio, 1.5},
    {"explain/flat", Floor::Flat, Limit::MaxNanoseconds, 10000.0},
    {"explain/flat/json", Floor::Flat, Limit::None, 0},
    {"dictionary/find", Floor::Flat, Limit::MaxNanoseconds, 10.0},
    {"session/explain/20", Floor::Flat, Limit::MaxNanoseconds, 200000.0},
}};

// The cost per input byte of each path may spread this much across input sizes.
constexpr double kMaxScaleSpread = 1.3;
// The tool's peak memory per element of a large flat trace.
constexpr double kMaxBytesPerElement = 350;

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

std::string formatLimit(const Target& target) {
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
        case Limit::MaxRatioToFigure:
            std::snprintf(text, sizeof text, "<= %.1fx ", target.bound);
            return text + std::string(target.relativeTo);
        case Limit::None:
            break;
    }
    return "";
}

std::string formatTarget(const Target& target) {
    char text[32];
    std::string allocations;
    if (target.maxAllocationsPerElement > 0) {
        std::snprintf(text, sizeof text, ", <= %.0f allocs/element",
                      target.maxAllocationsPerElement);
        allocations = text;
    }
    return formatLimit(target) + allocations;
}

}  // namespace

SummaryReporter::SummaryReporter(PeakMemory peakMemory)
    : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Color : OO_None),
      peakMemory_(std::move(peakMemory)) {}

void SummaryReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        const bool single = run.run_type == Run::RT_Iteration && run.repetitions <= 1;
        if (run.error_occurred || !(median || single)) continue;
        const double nanoseconds =
            run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        const auto counter = [&run](const char* name, double absent) {
            const auto found = run.counters.find(name);
            return found == run.counters.end() ? absent : found->second.value;
        };
        figures_.push_back({run.family_index, run.run_name.function_name, nanoseconds,
                            counter("bytes_per_second", 0), counter("allocs", -1),
                            counter("allocs_per_element", -1), counter("input_bytes", 0),
                            counter("kept_bytes", 0)});
    }
    ConsoleReporter::ReportRuns(runs);
}

const SummaryReporter::Figure* SummaryReporter::find(std::string_view name) const {
    for (const Figure& figure : figures_) {
        if (figure.name == name) return &figure;
    }
    return nullptr;
}

void SummaryReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::stable_sort(figures_.begin(), figures_.end(),
                     [](const Figure& a, const Figure& b) { return a.order < b.order; });
    std::FILE* out = stdout;
    std::fflush(out);
    int missed = 0;
    printMainTable(out, missed);
    printScaleTable(out, missed);
    printNestingTable(out);
    printPeakMemory(out, missed);
    std::fprintf(out, "\n%s\n",
                 missed == 0 ? "All targets met." : "Some targets missed (marked NO).");
    std::fflush(out);
}

void SummaryReporter::printMainTable(std::FILE* out, int& missed) const {
    const auto floorTime = [this](std::string_view name) {
        const Figure* floor = find(name);
        return floor ? floor->nanoseconds : 0.0;
    };
    const double flatFloor = floorTime(kFlatFloor);
    const double nestedFloor = floorTime(kNestedFloor);
    const double flatSimdFloor = floorTime(kFlatSimdFloor);
    const double nestedSimdFloor = floorTime(kNestedSimdFloor);

    std::fprintf(out,
                 "\nMedians (CPU time). Ratios to the floors of this run: plain %s flat, %s "
                 "nested; SIMD %s flat, %s nested. Allocations are counted per operation "
                 "and per element produced.\n\n",
                 formatTime(flatFloor).c_str(), formatTime(nestedFloor).c_str(),
                 formatTime(flatSimdFloor).c_str(), formatTime(nestedSimdFloor).c_str());
    std::fprintf(out,
                 "| benchmark | median | x floor | x SIMD floor | allocs | allocs/element "
                 "| target | met |\n");
    std::fprintf(out, "|---|---:|---:|---:|---:|---:|---|---|\n");
    for (const Figure& figure : figures_) {
        if (figure.name.starts_with("scale/") || figure.name.starts_with("nested/")) continue;
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
        char allocations[32] = "";
        char perElement[32] = "";
        if (figure.allocations >= 0) {
            std::snprintf(allocations, sizeof allocations, "%.1f", figure.allocations);
        }
        if (figure.allocationsPerElement >= 0) {
            std::snprintf(perElement, sizeof perElement, "%.2f", figure.allocationsPerElement);
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
                case Limit::MaxRatioToFigure: {
                    const Figure* other = find(target->relativeTo);
                    ok = other && figure.nanoseconds <= target->bound * other->nanoseconds;
                    break;
                }
                case Limit::None:
                    break;
            }
            if (target->maxAllocationsPerElement > 0) {
                ok = ok && figure.allocationsPerElement >= 0 &&
                     figure.allocationsPerElement <= target->maxAllocationsPerElement;
            }
            met = ok ? "yes" : "NO";
            if (!ok) ++missed;
        }
        std::fprintf(out, "| %s | %s | %.2f | %.2f | %s | %s | %s | %s |\n", figure.name.c_str(),
                     value.c_str(), ratio, simdRatio, allocations, perElement,
                     target ? formatTarget(*target).c_str() : "", met.c_str());
    }
}

// One row per path: the cost per input byte at each size, then the largest over the smallest.
void SummaryReporter::printScaleTable(std::FILE* out, int& missed) const {
    std::vector<std::string> paths;
    std::vector<std::string> sizes;
    for (const Figure& figure : figures_) {
        if (!figure.name.starts_with("scale/")) continue;
        const std::size_t cut = figure.name.rfind('/');
        const std::string path = figure.name.substr(0, cut);
        const std::string size = figure.name.substr(cut + 1);
        if (std::find(paths.begin(), paths.end(), path) == paths.end()) paths.push_back(path);
        if (std::find(sizes.begin(), sizes.end(), size) == sizes.end()) sizes.push_back(size);
    }
    if (paths.empty()) return;
    std::fprintf(out,
                 "\nCost per input byte of flat data (ns/byte); the spread is the largest "
                 "over the smallest.\n\n| path |");
    for (const std::string& size : sizes)
        std::fprintf(out, " %s |", size.c_str());
    std::fprintf(out, " spread | target | met |\n|---|");
    for (std::size_t i = 0; i < sizes.size(); ++i)
        std::fprintf(out, "---:|");
    std::fprintf(out, "---:|---|---|\n");
    for (const std::string& path : paths) {
        std::fprintf(out, "| %s |", path.c_str());
        double lowest = 0;
        double highest = 0;
        for (const std::string& size : sizes) {
            const Figure* figure = find(path + "/" + size);
            if (!figure || figure->inputBytes <= 0) {
                std::fprintf(out, " |");
                continue;
            }
            const double perByte = figure->nanoseconds / figure->inputBytes;
            lowest = lowest == 0 ? perByte : std::min(lowest, perByte);
            highest = std::max(highest, perByte);
            std::fprintf(out, " %.3f |", perByte);
        }
        const double spread = lowest > 0 ? highest / lowest : 0;
        const bool ok = spread > 0 && spread <= kMaxScaleSpread;
        if (!ok) ++missed;
        std::fprintf(out, " %.2fx | <= %.1fx | %s |\n", spread, kMaxScaleSpread, ok ? "yes" : "NO");
    }
}

// The decoder on data of one size nested ever deeper: its cost per input byte beside the
// bytes of values it keeps per input byte (each level's value holds its subtree), both also
// as multiples of the shallowest row.
void SummaryReporter::printNestingTable(std::FILE* out) const {
    const Figure* shallowest = nullptr;
    for (const Figure& figure : figures_) {
        if (!figure.name.starts_with("nested/") || figure.inputBytes <= 0) continue;
        if (!shallowest) {
            std::fprintf(out,
                         "\nThe decoder on nested data (logging off): cost and kept value bytes "
                         "per input byte.\n\n| data | input bytes | ns/byte | x shallowest | "
                         "kept bytes/byte | x shallowest |\n|---|---:|---:|---:|---:|---:|\n");
            shallowest = &figure;
        }
        const double perByte = figure.nanoseconds / figure.inputBytes;
        const double kept = figure.keptBytes / figure.inputBytes;
        const double firstPerByte = shallowest->nanoseconds / shallowest->inputBytes;
        const double firstKept = shallowest->keptBytes / shallowest->inputBytes;
        std::fprintf(out, "| %s | %.0f | %.3f | %.2f | %.2f | %.2f |\n", figure.name.c_str(),
                     figure.inputBytes, perByte, perByte / firstPerByte, kept,
                     firstKept > 0 ? kept / firstKept : 0.0);
    }
}

void SummaryReporter::printPeakMemory(std::FILE* out, int& missed) const {
    std::fprintf(out,
                 "\nPeak resident memory of `vastrel decode` on %zu hex characters of "
                 "%zu three-byte elements, its output included.\n\n",
                 peakMemory_.inputCharacters, peakMemory_.elements);
    std::fprintf(out, "| peak RSS | bytes/element | target | met |\n|---:|---:|---|---|\n");
    if (peakMemory_.peakKibibytes == 0 || peakMemory_.elements == 0) {
        std::fprintf(out, "| %s | | <= %.0f | NO |\n", peakMemory_.failure.c_str(),
                     kMaxBytesPerElement);
        ++missed;
        return;
    }
    const double bytes = static_cast<double>(peakMemory_.peakKibibytes) * 1024;
    const double perElement = bytes / static_cast<double>(peakMemory_.elements);
    const bool ok = perElement <= kMaxBytesPerElement;
    if (!ok) ++missed;
    std::fprintf(out, "| %.1f MiB | %.0f | <= %.0f | %s |\n", bytes / (1024 * 1024), perElement,
                 kMaxBytesPerElement, ok ? "yes" : "NO");
}

}  // namespace vastrel::bench
