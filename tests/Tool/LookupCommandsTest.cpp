// `vastrel tag`, `tags`, `cvm`, `brand`, `enum` and `icc`: answers from the library's tables
// and encoders, and the refusal of arguments they cannot take.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(LookupCommandsTest, TagNamesTagsAndTagsListsTheDictionary) {
    const ToolCase cases[] = {
        {"aligned, any case, 0x", "tag 9f34 5F20 0x50 9F6E", 0,
         "9F34  Cardholder Verification Method (CVM) Results\n5F20  Cardholder Name\n"
         "50    Application Label\n9F6E  Unknown\n"},
        {"odd digits", "tag 9F3", 1, "", "tag '9F3' has an odd number of digits"},
        {"not hex", "tag PAN", 1, "", "'P' at position 1"},
        {"listed in hex order", "tags", 0, "5A    Application Primary Account Number (PAN)\n5F20"},
    };
    std::ranges::for_each(cases, expectCase);
}

TEST(LookupCommandsTest, CvmShowsBothReadings) {
    const ToolCase cases[] = {
        {"both readings in columns", "cvm 1E0300", 0,
         "CVM Results                1E0300\n"
         "receipt CVMResult      94  SIGNATURE REQUIRED\n"
         "authentication method   4  signature, or enciphered PIN verified by the card and "
         "signature\n"},
        {"lower case is upper-cased for both readers", "cvm 5e0300", 0,
         "94  SIGNATURE REQUIRED\nauthentication method   4"},
        {"31 keeps its own string, not the shared one", "cvm 1F0302", 0, "31  NO CVM REQUESTED\n"},
        {"odd length", "cvm 1F030", 1, "", "CVM Results has an odd number of digits"},
    };
    std::ranges::for_each(cases, expectCase);
}

// The detector stops the program on a number without six leading digits; the tool must
// refuse it first, echoing only the refused prefix.
TEST(LookupCommandsTest, BrandNamesTheCardTypeOrRefusesTheNumber) {
    const ToolCase cases[] = {
        {"masked Visa", "brand 411111XXXXXX1111", 0, "VISA (CardType 0)\n"},
        {"Mastercard 2-series has no rule", "brand 222100XXXXXX0000", 0, "UNKNOWN (CardType 8)\n"},
        {"only the prefix is echoed", "brand 41111A1111111111", 1, "",
         "vastrel: error: a card number must start with six digits (mask characters may follow); "
         "this one starts with '41111A'\n"},
        {"mask first", "brand X4111111", 1, "", "starts with 'X41111'"},
        {"sign", "brand -- -4111111", 1, "", "must start with six digits"},
    };
    std::ranges::for_each(cases, expectCase);
    EXPECT_EQ(runTool({"brand", "4761 7390 0101 0010"}).out, "VISA (CardType 0)\n");
}

TEST(LookupCommandsTest, EnumListsATableOrLooksUpOneValue) {
    const ToolCase cases[] = {
        {"numeric key order", "enum 10", 0,
         "CardDataSourceType (EnumType 10)\n0  MSR\n1  EMV\n2  ContactlessMSR\n3  ContactlessEMV\n"
         "4  KEYED\n5  PHONE\n6  MAIL\n7  INTERNET\n8  FALLBACK\n9  NONE\n"},
        {"the key shared from 17 up", "enum TerminalInteractionType", 0,
         "\n 16  DO_NOT_REMOVE_CARD\n17+  DEVICE_BUSY\n(17+: every value from 17 up shares"},
        {"by number", "enum 6 10", 0, "EMVErrorType 10: GENERAL_ERROR\n"},
        {"name in any case", "enum cardtype 5", 0, "CardType 5: DINERS CLUB\n"},
        {"hex value", "enum CVMResult 0x5E", 0, "SIGNATURE REQUIRED"},
        {"negative value is the shared key", "enum 9 -1", 0, "every value from 17 up shares"},
        {"selector 0", "enum 0", 1, "", "unknown enumeration '0'; choose one of 1 "},
        {"selector 15", "enum 15", 1, "", "14 TransactionResultType"},
        {"value without string", "enum 6 12", 1, "", "EMVErrorType has no display string for 12"},
        {"value not a number", "enum 8 VISA", 1, "", "VALUE 'VISA' is not a number"},
    };
    std::ranges::for_each(cases, expectCase);
}

TEST(LookupCommandsTest, IccJoinsElementsInTheOrderGiven) {
    const std::string value(600, '4');
    const ToolCase cases[] = {
        {"order kept, not sorted", "icc 9F02=000000001000 5f2a=0840 82=3C00", 0,
         "9F02060000000010005F2A02084082023C00\n"},
        {"empty value", "icc 9F03=", 0, "9F0300\n"},
        {"length in the 82 form", "icc 50=" + value, 0, "5082012C" + value + "\n"},
        {"no equals sign", "icc 9F02", 1, "", "expected TAG=VALUE, got '9F02'"},
        {"odd value", "icc 9F02=123", 1, "", "value of '9F02=123' has an odd number"},
        {"empty tag", "icc =1234", 1, "", "no tag of '=1234' given"},
    };
    std::ranges::for_each(cases, expectCase);
}

}  // namespace
}  // namespace vastrel::tool::testing
