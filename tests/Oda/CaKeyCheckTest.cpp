// CA public keys checked by checksum, modulus, exponent and index; the key file format; the
// built-in table built from the schemes' published keys.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/TestSupport.hpp"
#include "vastrel/Oda/CaKeyCheck.hpp"
#include "vastrel/Oda/CaKeyTable.hpp"

namespace vastrel {
namespace {

// Visa's published key 92: 1408 bits, exponent 3, with its checksum.
constexpr const char* kVisa92 =
    "A000000003\t92\t03\t"
    "996AF56F569187D09293C14810450ED8EE3357397B18A2458EFAA92DA3B6DF6514EC060195318FD43BE9B8F0"
    "CC669E3F844057CBDDF8BDA191BB64473BC8DC9A730DB8F6B4EDE3924186FFD9B8C7735789C23A36BA0B8AF6"
    "5372EB57EA5D89E7D14E9C7B6B557460F10885DA16AC923F15AF3758F0F03EBD3C5C2C949CBA306DB44E6A2C"
    "076C5F67E281D7EF56785DC4D75945E491F01918800A9E2DC66F60080566CE0DAF8D17EAD46AD8E30A247C9F"
    "\t429C954A3859CEF91295F663C963E582ED6EB253\tVISA";

CaPublicKey visa92() {
    const CaKeyFileRead read = CaKeyTable::parse(kVisa92);
    EXPECT_FALSE(read.errorLine);
    return read.keys.at(0).key;
}

std::vector<std::string> failed(const std::vector<OdaCheck>& checks) {
    std::vector<std::string> names;
    for (const OdaCheck& check : checks) {
        if (check.ok == false) names.push_back(check.name + ": " + check.detail);
    }
    return names;
}

TEST(CaKeyCheckTest, PublishedKeyPassesEveryCheck) {
    const auto checks = CaKeyCheck::check(visa92());
    EXPECT_EQ(checks, (std::vector<OdaCheck>{{"checksum", true, "matches"},
                                             {"modulus", true, "1408 bits (176 bytes)"},
                                             {"exponent", true, "3"}}));
    EXPECT_EQ(CaKeyCheck::verdict(checks), CaKeyVerdict::Passed);
}

// A key as a terminal might hold it after a bad copy: each fault fails its own check.
TEST(CaKeyCheckTest, EachFaultFailsItsCheck) {
    struct Case {
        std::string name;
        void (*change)(CaPublicKey&);
        std::vector<std::string> failures;
    };
    const Case cases[] = {
        {"a wrong byte in the modulus",
         [](CaPublicKey& k) { k.modulus[100] ^= 0x01; },
         {"checksum: SHA-1 over RID, index, modulus and exponent is "
          "220E178488C010C37E4A3E0FEFBBE6F8036CC6D9, not the published one"}},
        {"exponent 65537 where 3 was published",
         [](CaPublicKey& k) {
             k.exponent = {0x01, 0x00, 0x01};
         },
         {"checksum: SHA-1 over RID, index, modulus and exponent is "
          "D32343D513A7F667FD9BA0B63E0E2E6A06703A9D, not the published one; it matches this "
          "modulus with exponent 03"}},
        {"exponent 2",
         [](CaPublicKey& k) { k.exponent = {0x02}; },
         {"checksum: SHA-1 over RID, index, modulus and exponent is "
          "8671E3A4D7F7A1C2316A4A4017AC61E4984D7112, not the published one; it matches this "
          "modulus with exponent 03",
          "exponent: 2: EMV allows 3 or 65537"}},
        {"exponent 3 with a leading zero",
         [](CaPublicKey& k) {
             k.exponent = {0x00, 0x03};
         },
         {"checksum", "exponent: 3 with leading zeros"}},
        {"an even modulus",
         [](CaPublicKey& k) { k.modulus.back() &= 0xFE; },
         {"checksum", "modulus: 1408 bits (176 bytes): even"}},
        {"a leading zero byte",
         [](CaPublicKey& k) { k.modulus.front() = 0x00; },
         {"checksum", "modulus: 1408 bits (176 bytes): the first byte is 00"}},
        {"a modulus cut short",
         [](CaPublicKey& k) { k.modulus.resize(175); },
         {"checksum", "modulus: 1400 bits (175 bytes): not a length the schemes use"}},
        {"a 2048-bit modulus",
         [](CaPublicKey& k) { k.modulus.resize(256, 0x01); },
         {"checksum", "modulus: 2048 bits (256 bytes): longer than the 248 bytes EMV allows"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CaPublicKey key = visa92();
        c.change(key);
        std::vector<std::string> failures = failed(CaKeyCheck::check(key));
        // The recomputed checksum is pinned where the case names it; elsewhere only its failure.
        for (std::size_t i = 0; i < failures.size() && i < c.failures.size(); ++i) {
            if (c.failures[i] == "checksum") failures[i] = "checksum";
        }
        EXPECT_EQ(failures, c.failures);
    }
}

TEST(CaKeyCheckTest, KeyWithoutChecksumIsUnverifiedNotFailed) {
    CaPublicKey key = visa92();
    key.checksum.reset();
    const auto checks = CaKeyCheck::check(key);
    EXPECT_EQ(checks.front(),
              (OdaCheck{"checksum", std::nullopt, "none published: the key is unverified"}));
    EXPECT_EQ(CaKeyCheck::verdict(checks), CaKeyVerdict::Unverified);
    EXPECT_EQ(describe(CaKeyVerdict::Unverified), "unverified");
}

TEST(CaKeyCheckTest, AnotherKeyUnderTheSameNameFailsBoth) {
    CaPublicKey other = visa92();
    other.modulus[5] ^= 0x10;
    const std::vector<CaPublicKey> keys = {visa92(), visa92(), other};
    const std::vector<std::string> names = {"line 2", "line 3", "line 4"};
    const auto verdicts = CaKeyCheck::checkAll(keys, names);
    // The same key twice is no conflict between the two; the third differs from both.
    EXPECT_EQ(verdicts[0].back(),
              (OdaCheck{"index", false, "another key has the same RID and index: line 4"}));
    EXPECT_EQ(verdicts[2].back(),
              (OdaCheck{"index", false, "another key has the same RID and index: line 2, line 3"}));
    const auto unnamed = CaKeyCheck::checkAll(std::vector<CaPublicKey>{visa92(), other});
    EXPECT_EQ(unnamed[0].back().detail, "another key has the same RID and index: key 2");
    CaPublicKey elsewhere = other;
    elsewhere.index = 0x94;
    EXPECT_EQ(CaKeyCheck::checkAll(std::vector<CaPublicKey>{visa92(), elsewhere})[0].back(),
              (OdaCheck{"index", true, "unique within the RID"}));
}

TEST(CaKeyCheckTest, ConfigurationRecordIsReadStrictlyThenChecked) {
    EMVCAPK record;
    record.setRid("A000000003");
    record.setCaPublicKeyIndex("92");
    record.setPublicKey(std::string(kVisa92).substr(17, 352));
    record.setExponentOfPublicKey("03");
    record.setChecksum("429C954A3859CEF91295F663C963E582ED6EB253");
    EXPECT_TRUE(CaKeyCheck::passed(CaKeyCheck::check(record)));
    EXPECT_EQ(CaKeyCheck::check(record).front(), (OdaCheck{"fields", true, "read"}));
    record.setChecksum(std::nullopt);
    EXPECT_EQ(CaKeyCheck::verdict(CaKeyCheck::check(record)), CaKeyVerdict::Unverified);
    const auto refused = [](void (*change)(EMVCAPK&)) {
        EMVCAPK bad;
        bad.setRid("A000000003");
        bad.setCaPublicKeyIndex("92");
        bad.setPublicKey("C0FFEE");
        bad.setExponentOfPublicKey("03");
        change(bad);
        const auto checks = CaKeyCheck::check(bad);
        return checks.size() == 1 && checks[0].name == "fields" && checks[0].ok == false;
    };
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setRid("A0000003"); }));
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setRid(std::nullopt); }));
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setCaPublicKeyIndex("9"); }));
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setPublicKey("C0 FF EE"); }));
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setExponentOfPublicKey(std::nullopt); }));
    EXPECT_TRUE(refused([](EMVCAPK& k) { k.setChecksum("429C"); }));
}

TEST(CaKeyTableTest, KeyFilesAreReadStrictlyLineByLine) {
    struct Case {
        std::string text;
        std::size_t keys;
        std::optional<std::size_t> errorLine;
        std::string error;
    };
    const Case cases[] = {
        {"rid\tindex\texponent\tmodulus\n# a comment\n\nA000000003 92 03 C0FFEE\r\n", 1, {}, ""},
        {"A000000003 92 03 C0FFEE\nA000000003 92 03\n", 1, 2,
         "fewer than four fields (rid, index, exponent, modulus)"},
        {"A0000003 92 03 C0FFEE\n", 0, 1, "the RID is not 5 bytes of hex"},
        {"A000000003 9 03 C0FFEE\n", 0, 1, "the index is not 1 byte of hex"},
        {"A000000003 92 0x03 C0FFEE\n", 0, 1, "the exponent is not hex"},
        {"A000000003 92 03 C0FFEG\n", 0, 1, "the modulus is not hex"},
        {"A000000003\t92\t03\tC0FFEE\t429C\n", 0, 1, "the checksum is not 20 bytes of hex"},
        // A header is only the first line.
        {"A000000003 92 03 C0FFEE\nrid index\n", 1, 2,
         "fewer than four fields (rid, index, exponent, modulus)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const CaKeyFileRead read = CaKeyTable::parse(c.text);
        EXPECT_EQ(read.keys.size(), c.keys);
        EXPECT_EQ(read.errorLine, c.errorLine);
        EXPECT_EQ(read.error, c.error);
    }
    const CaKeyFileRead named =
        CaKeyTable::parse("A000000333 08 03 C0FFEE - China Unionpay Co. Ltd\n");
    ASSERT_EQ(named.keys.size(), 1u);
    EXPECT_EQ(named.keys[0].key.scheme, "China Unionpay Co. Ltd");
    EXPECT_EQ(named.keys[0].key.name(), "A000000333 08");
    EXPECT_FALSE(named.keys[0].key.checksum);
    EXPECT_EQ(named.keys[0].key.origin, CaKeyOrigin::Supplied);
}

TEST(CaKeyTableTest, AddedKeyReplacesThoseOfItsName) {
    CaKeyTable table(std::vector<CaPublicKey>{visa92(), visa92()});
    const std::uint8_t rid[] = {0xA0, 0x00, 0x00, 0x00, 0x03};
    EXPECT_EQ(table.find(rid, 0x92).size(), 2u);
    CaPublicKey supplied = visa92();
    supplied.modulus = {0xC0, 0xFF, 0xEF};
    table.add(supplied);
    ASSERT_EQ(table.find(rid, 0x92).size(), 1u);
    EXPECT_EQ(table.find(rid, 0x92)[0]->modulus, supplied.modulus);
    EXPECT_TRUE(table.find(rid, 0x93).empty());
}

// Every line of the schemes' published key list, checked: the lines that fail, and why, are
// listed here; the built-in table holds every line whose checksum verifies or is absent.
TEST(CaKeyTableTest, EveryPublishedKeyIsCheckedAndTheFailuresAreKnown) {
    const CaKeyFileRead read =
        CaKeyTable::parse(testing::readSourceFile("data/ca-keys/ca-public-keys.tsv"));
    ASSERT_FALSE(read.errorLine) << read.error;
    ASSERT_EQ(read.keys.size(), 149u);
    std::vector<CaPublicKey> keys;
    std::vector<std::string> names;
    for (const CaKeyLine& line : read.keys) {
        keys.push_back(line.key);
        names.push_back("line " + std::to_string(line.line));
    }
    const auto verdicts = CaKeyCheck::checkAll(keys, names);
    std::vector<std::string> failures;
    std::size_t checksumsVerified = 0;
    std::size_t unverified = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (const OdaCheck& check : verdicts[i]) {
            if (check.ok == false)
                failures.push_back(names[i] + " " + keys[i].name() + " " + check.name);
        }
        checksumsVerified += verdicts[i][0].ok == true;
        unverified += !verdicts[i][0].ok.has_value();
    }
    EXPECT_EQ(checksumsVerified, 135u);
    EXPECT_EQ(unverified, 11u);
    EXPECT_EQ(failures, (std::vector<std::string>{
                            "line 16 A000000003 51 index",    "line 17 A000000003 51 index",
                            "line 18 A000000003 52 index",    "line 19 A000000003 52 index",
                            "line 21 A000000003 58 modulus",  "line 22 A000000003 90 modulus",
                            "line 31 A000000004 00 index",    "line 32 A000000004 00 index",
                            "line 33 A000000004 01 index",    "line 34 A000000004 01 index",
                            "line 35 A000000004 02 index",    "line 36 A000000004 02 index",
                            "line 39 A000000004 05 index",    "line 40 A000000004 05 index",
                            "line 41 A000000004 06 index",    "line 42 A000000004 06 modulus",
                            "line 42 A000000004 06 index",    "line 56 A000000004 FA index",
                            "line 57 A000000004 FA index",    "line 58 A000000004 FB checksum",
                            "line 58 A000000004 FB exponent", "line 59 A000000004 FC checksum",
                            "line 59 A000000004 FC exponent", "line 60 A000000004 FD checksum",
                            "line 60 A000000004 FD exponent", "line 64 A000000010 FB exponent",
                            "line 65 A000000010 FB exponent", "line 66 A000000010 FC exponent",
                            "line 67 A000000010 FD exponent", "line 144 B012345678 F3 index",
                            "line 145 B012345678 F3 index",
                        }));
    // The built-in table: the 135 verified and 11 unverified lines, none whose checksum fails.
    const CaKeyTable& builtIn = CaKeyTable::builtIn();
    ASSERT_EQ(builtIn.keys().size(), 146u);
    std::size_t builtInVerified = 0;
    for (const CaPublicKey& key : builtIn.keys()) {
        builtInVerified += key.origin == CaKeyOrigin::Verified;
        EXPECT_NE(key.origin, CaKeyOrigin::Supplied);
        EXPECT_NE(CaKeyCheck::check(key).front().ok, false) << key.name();
    }
    EXPECT_EQ(builtInVerified, 135u);
    const std::uint8_t mastercard[] = {0xA0, 0x00, 0x00, 0x00, 0x04};
    EXPECT_TRUE(builtIn.find(mastercard, 0xFB).empty());
}

}  // namespace
}  // namespace vastrel
