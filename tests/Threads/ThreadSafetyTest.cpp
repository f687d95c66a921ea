// The stateless operations called from several threads at once. Under ThreadSanitizer (the
// tsan preset) a data race in the lazily built tables, the shared instance or the log fails
// this test; in every build each thread must get the single-threaded answer.
#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "support/TestSupport.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"
#include "vastrel/Enums/Error.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel {
namespace {

constexpr int kThreads = 8;

// Chip data with a template and card data, so decoding builds masked summaries.
constexpr const char* kChipData =
    "77129F2701809F360200429F2608AABBCCDDEEFF0011700E5A0847617390010100105F340101";

// Everything a thread asks, as one text.
std::string answers() {
    std::string out =
        std::to_string(EnumStringValues::dictionaryForEnumType(EnumType::CardType)->size());
    out += EnumStringValues::valueForAnEnumType(EnumType::CVMResult, 94).value_or("-");
    out += Error::emvErrorType(EMVErrorType{3}, "m")->domain();
    out += std::to_string(reinterpret_cast<std::uintptr_t>(&TLVUtility::sharedInstance()));
    for (const std::string& element : testing::render(TLVDecoder::decodeWithTLVString(kChipData)))
        out += element;
    return out;
}

// The first calls race with each other and with a thread that keeps replacing the log
// handler; every line reaches a handler.
TEST(ThreadSafetyTest, FirstCallsDecodingAndLoggingAnswerAsOnOneThread) {
    std::atomic<int> lines{0};
    const auto count = [&lines](std::string_view) { lines.fetch_add(1); };
    log::setHandler(count);
    std::latch start(kThreads);
    std::vector<std::string> seen(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            if (t == 0) {
                for (int i = 0; i < 200; ++i) {
                    log::setHandler(count);
                    log::setMaskSensitiveData(true);
                }
                return;
            }
            for (int round = 0; round < 20; ++round)
                seen[t] = answers();
        });
    }
    for (auto& thread : threads)
        thread.join();
    log::setHandler(nullptr);

    // Two summaries per decode: 77's level and the top level (70, the last, stays whole).
    EXPECT_EQ(lines.load(), (kThreads - 1) * 20 * 2);
    const testing::LogCapture quiet;
    const std::string expected = answers();
    for (int t = 1; t < kThreads; ++t)
        EXPECT_EQ(seen[t], expected) << "thread " << t;
}

}  // namespace
}  // namespace vastrel
