#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "AllocationCounter.hpp"
#include "Benchmarks.hpp"
#include "Floor.hpp"
#include "Summary.hpp"
#include "Workload.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Codec/TLVUtility.hpp"

namespace vastrel::bench {
namespace {

constexpr std::size_t kLargeHexChars = 64 * 1024;

// The flat blob repeated to kLargeHexChars characters, for steady-state hex throughput.
const std::string& largeHex() {
    static const std::string text = [] {
        const std::string& blob = workload().flatHex;
        std::string repeated;
        repeated.reserve(kLargeHexChars + blob.size());
        while (repeated.size() < kLargeHexChars)
            repeated += blob;
        repeated.resize(kLargeHexChars);
        return repeated;
    }();
    return text;
}

void floorWalk(benchmark::State& state, FloorHex decoder, const std::string& hex) {
    std::vector<std::uint8_t> scratch(hex.size() / 2);
    std::vector<std::uint32_t> offsets(hex.size() / 2);
    std::size_t count = 0;
    for (auto _ : state) {
        count = walkElementOffsets(decoder, hex, scratch, offsets);
        benchmark::DoNotOptimize(count);
        benchmark::ClobberMemory();
    }
    state.counters["elements"] = static_cast<double>(count);
}

// The decoder's result alone: the flat blob's elements built, through the constructor the
// decoder uses, from texts made in advance, then destroyed; nothing is read. No decoder that
// returns these types can be cheaper, so this shows how much of the decoder's time they take.
void resultFloor(benchmark::State& state, const std::string& hex) {
    struct Texts {
        std::string tag, name, length, value;
    };
    std::vector<Texts> texts;
    {
        const LoggingScope quiet(false);
        const std::vector<TLVObject> decoded = TLVDecoder::decodeWithTLVString(hex).value();
        for (const TLVObject& e : decoded)
            texts.push_back({*e.tag(), *e.tagName(), *e.length(), *e.value()});
    }
    const AllocationMeter meter;
    for (auto _ : state) {
        std::optional<std::vector<TLVObject>> result(std::in_place);
        result->reserve(texts.size());
        for (const Texts& t : texts) {
            result->emplace_back(std::string(t.tag), std::string(t.name), std::string(t.length),
                                 std::string(t.value));
        }
        benchmark::DoNotOptimize(result);
    }
    meter.report(state, static_cast<double>(texts.size()));
    state.counters["elements"] = static_cast<double>(texts.size());
}

// The splitter's result alone: its pieces copied from texts made in advance, then destroyed.
void splitResultFloor(benchmark::State& state, const std::string& hex) {
    const std::vector<std::string> texts = TLVParser::splitTLVData(hex);
    const AllocationMeter meter;
    for (auto _ : state) {
        std::vector<std::string> pieces;
        pieces.reserve(texts.size());
        for (const std::string& text : texts)
            pieces.emplace_back(text.data(), text.size());
        benchmark::DoNotOptimize(pieces.data());
    }
    meter.report(state, static_cast<double>(texts.size()));
    state.counters["elements"] = static_cast<double>(texts.size());
}

void hexDecode(benchmark::State& state, const std::string& hex) {
    for (auto _ : state) {
        Bytes bytes = TLVUtility::dataWithHexString(hex);
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(hex.size()));
}

void hexEncode(benchmark::State& state, const std::string& hex) {
    const Bytes bytes = TLVUtility::dataWithHexString(hex);
    for (auto _ : state) {
        std::string text = TLVUtility::dataToHexString(bytes);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(hex.size()));
}

}  // namespace

void split(benchmark::State& state, const std::string& hex) {
    std::size_t count = 0;
    const AllocationMeter meter;
    for (auto _ : state) {
        std::vector<std::string> pieces = TLVParser::splitTLVData(hex);
        count = pieces.size();
        benchmark::DoNotOptimize(pieces.data());
    }
    meter.report(state, static_cast<double>(count));
    state.counters["elements"] = static_cast<double>(count);
    state.counters["input_bytes"] = static_cast<double>(hex.size() / 2);
}

void decode(benchmark::State& state, const std::string& hex, bool logging) {
    const LoggingScope scope(logging);
    const auto all = TLVDecoder::decodeWithTLVString(hex);
    double elements = 0;
    if (all) forEachElement(*all, [&elements](const TLVObject&) { ++elements; });
    std::size_t count = 0;
    const AllocationMeter meter;
    for (auto _ : state) {
        std::optional<std::vector<TLVObject>> decoded = TLVDecoder::decodeWithTLVString(hex);
        count = decoded ? decoded->size() : 0;
        benchmark::DoNotOptimize(decoded);
    }
    meter.report(state, elements);
    state.counters["top_level"] = static_cast<double>(count);
    state.counters["elements"] = elements;
    state.counters["input_bytes"] = static_cast<double>(hex.size() / 2);
}

void registerCodecBenchmarks() {
    const Workload& data = workload();
    benchmark::RegisterBenchmark(kFlatFloor, &floorWalk, FloorHex::PlainTable, data.flatHex);
    benchmark::RegisterBenchmark(kNestedFloor, &floorWalk, FloorHex::PlainTable, data.nestedHex);
    benchmark::RegisterBenchmark(kFlatSimdFloor, &floorWalk, FloorHex::Simd, data.flatHex);
    benchmark::RegisterBenchmark(kNestedSimdFloor, &floorWalk, FloorHex::Simd, data.nestedHex);
    benchmark::RegisterBenchmark(kFlatResultFloor, &resultFloor, data.flatHex);
    benchmark::RegisterBenchmark(kFlatSplitResultFloor, &splitResultFloor, data.flatHex);
    benchmark::RegisterBenchmark("hex/decode/flat", &hexDecode, data.flatHex);
    benchmark::RegisterBenchmark("hex/decode/64KiB", &hexDecode, largeHex());
    benchmark::RegisterBenchmark("hex/encode/flat", &hexEncode, data.flatHex);
    benchmark::RegisterBenchmark("hex/encode/64KiB", &hexEncode, largeHex());
    benchmark::RegisterBenchmark("splitTLVData/flat", &split, data.flatHex);
    benchmark::RegisterBenchmark("splitTLVData/flat_lower", &split, data.flatLowerHex);
    benchmark::RegisterBenchmark("decodeWithTLVString/nested/log_off", &decode, data.nestedHex,
                                 false);
    benchmark::RegisterBenchmark("decodeWithTLVString/nested/log_on", &decode, data.nestedHex,
                                 true);
    benchmark::RegisterBenchmark("decodeWithTLVString/flat/log_off", &decode, data.flatHex, false);
    benchmark::RegisterBenchmark("decodeWithTLVString/flat/log_on", &decode, data.flatHex, true);
}

}  // namespace vastrel::bench
