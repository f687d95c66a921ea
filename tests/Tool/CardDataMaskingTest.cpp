// Every tag of the card-data table through every output that shows values: the tool's
// decode, split and explain (text and JSON) and the C interface's explanation. Each must
// mask the value as the table's rule says, and show it whole with --show-sensitive.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ToolRunner.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"
#include "vastrel/vastrel.h"

namespace vastrel::tool::testing {
namespace {

// A value for each rule, with the digits that must never show and the form they take.
struct MaskingCase {
    std::string clear;
    std::string masked;
};

MaskingCase caseFor(CardDataMasking masking) {
    switch (masking) {
        case CardDataMasking::CardNumber:
            return {"4761739001010010", "476173******0010"};
        case CardDataMasking::Track2:
            return {"4761739001010010D25122011234567F", "476173******0010D2512201*******F"};
        case CardDataMasking::Whole:
            break;
    }
    return {"4761739001010010", "****************"};
}

std::string tagHex(std::uint32_t tag) {
    std::string hex;
    for (int shift = 24; shift >= 0; shift -= 8) {
        const auto byte = (tag >> shift) & 0xFF;
        if (hex.empty() && byte == 0) continue;
        static constexpr char kDigits[] = "0123456789ABCDEF";
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 0xF];
    }
    return hex;
}

std::string element(const std::string& tag, const std::string& value) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    const std::size_t length = value.size() / 2;
    return tag + kDigits[length >> 4] + kDigits[length & 0xF] + value;
}

std::string cExplainJson(const std::string& hex, bool showSensitive) {
    Bytes data;
    EXPECT_FALSE(HexDecoder::decode(hex, data));
    std::size_t length = 0;
    vastrel_explain_json(data.data(), data.size(), showSensitive ? 1 : 0, nullptr, 0, &length);
    std::string json(length, '\0');
    EXPECT_EQ(vastrel_explain_json(data.data(), data.size(), showSensitive ? 1 : 0, json.data(),
                                   length + 1, &length),
              VASTREL_OK);
    return json;
}

// What each output shows of hex, masked or not.
std::vector<std::string> everyOutput(const std::string& hex, bool showSensitive) {
    std::vector<std::string> outputs;
    for (const std::string command :
         {"decode", "decode --json", "split", "split --json", "explain", "explain --json"}) {
        const RunResult run =
            runCommand(command + (showSensitive ? " --show-sensitive " : " ") + hex);
        EXPECT_EQ(run.status, 0) << command << ": " << run.err;
        outputs.push_back(command + ": " + run.out + run.err);
    }
    outputs.push_back("C explain: " + cExplainJson(hex, showSensitive));
    return outputs;
}

TEST(CardDataMaskingTest, EveryListedTagIsMaskedAlikeByEveryOutput) {
    for (const CardDataTag& row : CardDataPolicy::tags()) {
        const MaskingCase c = caseFor(row.masking);
        const std::string tag = tagHex(row.tag);
        // Alone, and inside a template, where the nested decoder leaves the last element.
        for (const std::string& hex :
             {element(tag, c.clear) + "9F0206000000001000", element("70", element(tag, c.clear))}) {
            SCOPED_TRACE(tag + " in " + hex);
            for (const std::string& output : everyOutput(hex, false)) {
                EXPECT_EQ(output.find(c.clear), std::string::npos) << output;
                EXPECT_NE(output.find(c.masked), std::string::npos) << output;
            }
            for (const std::string& output : everyOutput(hex, true)) {
                EXPECT_NE(output.find(c.clear), std::string::npos) << output;
            }
        }
    }
}

// 9F6B is Visa's Card CVM Limit: an amount, shown as it is once a Visa AID says so.
TEST(CardDataMaskingTest, KernelDecidesWhether9F6BIsCardData) {
    const std::string visaAid = element("4F", "A0000000031010");
    const std::string mastercardAid = element("4F", "A0000000041010");
    const std::string limit = element("9F6B", "000000005000");
    for (const std::string& output : everyOutput(visaAid + limit, false)) {
        EXPECT_NE(output.find("000000005000"), std::string::npos) << output;
    }
    for (const std::string& output : everyOutput(mastercardAid + limit, false)) {
        EXPECT_EQ(output.find("000000005000"), std::string::npos) << output;
    }
}

}  // namespace
}  // namespace vastrel::tool::testing
