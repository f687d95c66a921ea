// `vastrel capk` and `vastrel explain --ca-keys`: CA keys checked one verdict a key, and the
// example session's offline data authentication with and without the key that signed it.
#include <gtest/gtest.h>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

constexpr const char* kUnionPay08 =
    "A000000333\t08\t03\t"
    "B61645EDFD5498FB246444037A0FA18C0F101EBD8EFA54573CE6E6A7FBF63ED21D66340852B0211CF5EEF6A1"
    "CD989F66AF21A8EB19DBD8DBC3706D135363A0D683D046304F5A836BC1BC632821AFE7A2F75DA3C50AC74C54"
    "5A754562204137169663CFCC0B06E67E2109EBA41BC67FF20CC8AC80D7B6EE1A95465B3B2657533EA56D92D5"
    "39E5064360EA4850FED2D1BF\tEE23B616C95C02652AD18860E48787C079E8E85A\tChina Unionpay Co. "
    "Ltd\n";

TEST(CapkCommandTest, OneVerdictPerKeyAndStatusOneWhenAnyFails) {
    const RunResult passed = runTool({"capk", "--file", "-"}, kUnionPay08);
    EXPECT_EQ(passed.status, 0) << passed.err;
    EXPECT_EQ(passed.out, "A000000333 08  China Unionpay Co. Ltd  (line 1): passed\n");

    std::string corrupted = kUnionPay08;
    corrupted[30] = corrupted[30] == '0' ? '1' : '0';  // one digit of the modulus
    const RunResult failed = runTool({"capk", "--file", "-"}, corrupted);
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.out.find("(line 1): failed\n  - checksum: SHA-1 over"), std::string::npos)
        << failed.out;
    EXPECT_EQ(failed.err, "vastrel: error: 1 of 1 keys failed\n");

    // Each argument is one key, its fields separated by blanks.
    const RunResult tooShort = runTool({"capk", "A000000333 08 03 C0FFEE"});
    EXPECT_EQ(tooShort.status, 1);
    EXPECT_EQ(tooShort.out,
              "A000000333 08  (argument 1): failed\n"
              "  - checksum not checked: none published: the key is unverified\n"
              "  - modulus: 24 bits (3 bytes): not a length the schemes use\n");
}

TEST(CapkCommandTest, BuiltInTableAndUnreadableLines) {
    const RunResult builtIn = runTool({"capk"});
    EXPECT_EQ(builtIn.status, 1);
    EXPECT_EQ(builtIn.err, "vastrel: error: 24 of 146 keys failed\n");
    EXPECT_NE(builtIn.out.find("A000000003 92  VISA  (built-in key 22): passed\n"),
              std::string::npos);

    const RunResult unreadable =
        runTool({"capk", "--file", "-"}, std::string(kUnionPay08) + "A0000003 92 03 01\n");
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_EQ(unreadable.out, "");
    EXPECT_EQ(unreadable.err, "vastrel: error: - line 2: the RID is not 5 bytes of hex\n");

    const RunResult json = runTool({"capk", "--json", "--file", "-"}, kUnionPay08);
    EXPECT_EQ(json.status, 0);
    EXPECT_NE(json.out.find("\"verdict\": \"passed\""), std::string::npos) << json.out;
}

TEST(ExplainCaKeysTest, ExampleSessionPassesOnlyWithTheKeyThatSignedIt) {
    const std::string trace = readExample("oda-session.txt");
    const RunResult own = runTool({"explain", "--ca-keys", examplePath("oda-test-ca.tsv")}, trace);
    EXPECT_EQ(own.status, 0) << own.err;
    EXPECT_NE(own.out.find("  Offline data authentication:\n    - CDA: passed\n    - DDA: "
                           "passed\n    - SDA: passed\n"),
              std::string::npos)
        << own.out;
    EXPECT_NE(own.out.find("  Offline data authentication: icc certificate (CA key A000000003 "
                           "92)\n"),
              std::string::npos);
    EXPECT_NE(own.out.find("    Card number: 476173******0010\n"), std::string::npos);
    EXPECT_NE(own.out.find("    [ok] expiry: valid through 12/2030, transaction in 11/2026\n"),
              std::string::npos);

    const RunResult builtIn = runTool({"explain"}, trace);
    EXPECT_NE(builtIn.out.find("    - SDA: failed: issuer certificate: length\n"),
              std::string::npos);

    const RunResult missing = runTool({"explain", "--ca-keys", "no-such-file.tsv"}, trace);
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "vastrel: error: cannot read no-such-file.tsv\n");
}

}  // namespace
}  // namespace vastrel::tool::testing
