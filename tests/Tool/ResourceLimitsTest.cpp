// The built program on hostile input, in a process of its own with a 1 MiB stack, a CPU
// budget and (outside AddressSanitizer) an address-space budget: it must answer normally.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__OPTIMIZE__) == 0
constexpr bool kInstrumented = true;  // slower, and ASan reserves terabytes of address space
#else
constexpr bool kInstrumented = false;
#endif

// The BER length field of n, as hex.
std::string lengthHex(std::size_t n) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string bytes;
    for (std::size_t rest = n; rest != 0 || bytes.empty(); rest >>= 8) {
        bytes.insert(0, {kDigits[(rest >> 4) & 0xF], kDigits[rest & 0xF]});
    }
    if (n < 128) return bytes;
    return std::string("8") + kDigits[bytes.size() / 2] + bytes;
}

// About `bytes` bytes of templates nested as deep as they fit, each holding the next level
// and then one small element, and one small element after the outermost, so that no
// template is the last element of its level; hex, built from the inside out.
std::string deepNesting(std::size_t bytes) {
    std::vector<std::string> levels;  // the header of each level, outermost last
    std::size_t size = 3;             // the innermost 5A0111
    while (size < bytes) {
        const std::size_t content = size + 3;
        levels.push_back("E0" + lengthHex(content));
        size = content + levels.back().size() / 2;
    }
    std::string hex;
    hex.reserve(2 * size);
    for (auto level = levels.rbegin(); level != levels.rend(); ++level)
        hex += *level;
    hex += "5A0111";
    for (std::size_t i = 0; i <= levels.size(); ++i)
        hex += "5A0111";
    return hex;
}

TEST(ResourceLimitsTest, MegabyteOfNestingIsAnsweredOnASmallStack) {
#if defined(VASTREL_CROSSCOMPILING)
    GTEST_SKIP() << "the program runs under an emulator here, whose own stack and memory the "
                    "limits would measure";
#endif
    const std::string nested = deepNesting(1 << 20);
    ASSERT_GE(nested.size(), 2u << 20);
    const std::string transaction =
        R"({"cardData": {"pan": "476173XXXXXX0010", "emvTLVData": ")" + nested + R"("}})";
    const ProcessLimits budget{1 << 20, kInstrumented ? 0 : 256u << 20, kInstrumented ? 60 : 1};
    // A megabyte of small elements, for the strict reader.
    std::string flat;
    while (flat.size() < (2u << 20))
        flat += "9F2701805A0847617390010100109F34034203009F0206000000001234";
    // A megabyte of trace: a contact session, over and over.
    const std::string session =
        vastrel::testing::readSourceFile("tests/Explain/sessions/visa-contact.txt");
    std::string trace;
    while (trace.size() < (1u << 20))
        trace += session;
    struct Case {
        std::vector<std::string> args;
        const std::string& input;
        const ProcessLimits& limits;
        int status;
    };
    const Case cases[] = {
        {{"decode"}, nested, budget, 0},
        {{"decode", "--json"}, nested, budget, 0},
        {{"split"}, nested, budget, 0},
        {{"decode", "--json", "--show-sensitive"}, nested, budget, 0},
        // Deeper than the strict reader's 32 levels: refused, with what was read before.
        {{"receipt", "--json", "-"}, transaction, budget, 1},
        {{"explain"}, nested, budget, 1},
        {{"explain", "--json"}, flat, budget, 0},
        {{"explain"}, flat, budget, 0},
        {{"explain", "--trace"}, trace, budget, 0},
        {{"explain", "--trace", "--json"}, trace, budget, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args.front() + (c.args.size() > 1 ? " " + c.args[1] : ""));
        const RunResult result = runToolProcess(c.args, c.input, c.limits);
        EXPECT_EQ(result.status, c.status) << result.err.substr(0, 400);
    }
}

}  // namespace
}  // namespace vastrel::tool::testing
