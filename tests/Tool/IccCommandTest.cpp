// `vastrel icc`: the ICC data string from TAG=VALUE pairs.
#include <gtest/gtest.h>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(IccCommandTest, JoinsElementsInTheOrderGiven) {
    const ToolCase cases[] = {
        {"order kept, not sorted",
         {"icc", "9F02=000000001000", "5f2a=0840", "82=3C00"},
         "",
         0,
         "9F02060000000010005F2A020840"
         "82023C00\n",
         ""},
        {"empty value", {"icc", "9F03="}, "", 0, "9F0300\n", ""},
        {"length in the 81 form",
         {"icc", "50=" + std::string(400, 'A')},
         "",
         0,
         "5081C8" + std::string(400, 'A') + "\n",
         ""},
        {"length in the 82 form",
         {"icc", "50=" + std::string(600, '4')},
         "",
         0,
         "5082012C" + std::string(600, '4') + "\n",
         ""},
        {"json", {"icc", "--json", "5A=1234"}, "", 0, "{\n  \"icc\": \"5A021234\"\n}\n", ""},
    };
    for (const auto& c : cases)
        expectCase(c);
}

TEST(IccCommandTest, RefusesPairsThatAreNotHex) {
    const ToolCase cases[] = {
        {"no equals sign", {"icc", "9F02"}, "", 1, "", "expected TAG=VALUE, got '9F02'"},
        {"odd value", {"icc", "9F02=123"}, "", 1, "", "value of '9F02=123' has an odd number"},
        {"empty tag", {"icc", "=1234"}, "", 1, "", "no tag of '=1234' given"},
        {"nothing given", {"icc"}, "", 2, "", "TAG=VALUE is required"},
    };
    for (const auto& c : cases)
        expectCase(c);
}

}  // namespace
}  // namespace vastrel::tool::testing
