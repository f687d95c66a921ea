#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "AllocationCounter.hpp"
#include "Benchmarks.hpp"
#include "Workload.hpp"
#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"

namespace vastrel::bench {
namespace {

// Each iteration does one lookup, taking the inputs in turn, so a figure is the time of
// one lookup over the mix of the workload.
template <class Item>
class Cycle {
  public:
    explicit Cycle(const std::vector<Item>& items) : items_(items) {}
    const Item& next() {
        const Item& item = items_[index_];
        if (++index_ == items_.size()) index_ = 0;
        return item;
    }

  private:
    const std::vector<Item>& items_;
    std::size_t index_ = 0;
};

// The tags of every element of both blobs, nested ones included, split by whether the
// name table lists them.
struct BlobTags {
    std::vector<std::string> listed;
    std::vector<std::string> unlisted;
};

const BlobTags& blobTags() {
    static const BlobTags tags = [] {
        const LoggingScope quiet(false);
        BlobTags collected;
        for (const std::string* hex : {&workload().flatHex, &workload().nestedHex}) {
            forEachElement(
                TLVDecoder::decodeWithTLVString(*hex).value(),
                [&collected](const TLVObject& element) {
                    const std::string& tag = *element.tag();
                    (Tag::tagName(tag) == "Unknown" ? collected.unlisted : collected.listed)
                        .push_back(tag);
                });
        }
        return collected;
    }();
    return tags;
}

void tagName(benchmark::State& state, const std::vector<std::string>& tags) {
    Cycle<std::string> cycle(tags);
    const AllocationMeter meter;
    for (auto _ : state) {
        std::string name = Tag::tagName(cycle.next());
        benchmark::DoNotOptimize(name.data());
    }
    meter.report(state);
    state.counters["tags"] = static_cast<double>(tags.size());
}

void tagNameView(benchmark::State& state, const std::vector<std::string>& tags) {
    Cycle<std::string> cycle(tags);
    for (auto _ : state) {
        std::string_view name = Tag::tagNameView(cycle.next());
        benchmark::DoNotOptimize(name);
    }
    state.counters["tags"] = static_cast<double>(tags.size());
}

void cardBrand(benchmark::State& state) {
    Cycle<std::string> cycle(workload().pans);
    const CreditCardHelper helper;
    for (auto _ : state) {
        CardType brand = helper.getCardTypeFromRedactedPan(cycle.next());
        benchmark::DoNotOptimize(brand);
    }
}

// Every (table, value) pair that has a display string.
std::vector<std::pair<EnumType, std::uint64_t>> listedEnumValues() {
    std::vector<std::pair<EnumType, std::uint64_t>> pairs;
    for (std::uint64_t type = 1; type <= 14; ++type) {
        for (std::uint64_t value = 0; value <= 17; ++value) {
            if (EnumStringValues::valueForAnEnumType(EnumType{type}, value)) {
                pairs.emplace_back(EnumType{type}, value);
            }
        }
    }
    return pairs;
}

void enumString(benchmark::State& state) {
    const auto pairs = listedEnumValues();
    Cycle<std::pair<EnumType, std::uint64_t>> cycle(pairs);
    for (auto _ : state) {
        const auto& [type, value] = cycle.next();
        std::optional<std::string> text = EnumStringValues::valueForAnEnumType(type, value);
        benchmark::DoNotOptimize(text);
    }
    state.counters["values"] = static_cast<double>(pairs.size());
}

}  // namespace

void registerLookupBenchmarks() {
    benchmark::RegisterBenchmark("tagName/hit", &tagName, blobTags().listed);
    benchmark::RegisterBenchmark("tagName/miss", &tagName, blobTags().unlisted);
    benchmark::RegisterBenchmark("tagNameView/hit", &tagNameView, blobTags().listed);
    benchmark::RegisterBenchmark("tagNameView/miss", &tagNameView, blobTags().unlisted);
    benchmark::RegisterBenchmark("getCardTypeFromRedactedPan/pans", &cardBrand);
    benchmark::RegisterBenchmark("valueForAnEnumType", &enumString);
}

}  // namespace vastrel::bench
