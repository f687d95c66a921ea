// Offline data authentication replayed from traces signed by the tests' own CA, issuer and
// card keys: a valid session passes SDA, DDA and CDA, and every fault is caught at its check.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include "Oda/TestPki.hpp"
#include "support/HexBytes.hpp"
#include "support/TestSupport.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"
#include "vastrel/Oda/OdaVerifier.hpp"

namespace vastrel {
namespace {

using testing::concat;
using testing::RsaKeyPair;
using testing::sha1Of;

Bytes bytes(std::string_view hex) { return testing::bytesOf(hex); }

Bytes repeat(std::uint8_t byte, std::size_t count) { return Bytes(count, byte); }

Bytes tlv(std::string_view tag, const Bytes& value) {
    Bytes out = bytes(tag);
    if (value.size() >= 0x80) out.push_back(0x81);
    out.push_back(static_cast<std::uint8_t>(value.size()));
    out.insert(out.end(), value.begin(), value.end());
    return out;
}

Bytes slice(const Bytes& data, std::size_t from, std::size_t count) {
    return Bytes(data.begin() + static_cast<std::ptrdiff_t>(from),
                 data.begin() + static_cast<std::ptrdiff_t>(from + count));
}

struct Pki {
    RsaKeyPair ca{1024, "the tests' CA"};
    RsaKeyPair issuer{896, "the tests' issuer"};
    RsaKeyPair icc{768, "the tests' card"};
    RsaKeyPair stranger{1024, "another CA"};
};

Pki& pki() {
    static Pki keys;
    return keys;
}

constexpr std::size_t kHash = 20;

// Sets the hash of a plain certificate or signature: SHA-1 over its bytes from the format to
// the hash, then the parts the layout adds.
void seal(Bytes& plain, std::initializer_list<Bytes> parts) {
    const std::size_t n = plain.size();
    Bytes input = slice(plain, 1, n - 22);
    for (const Bytes& part : parts)
        input = concat({input, part});
    const Bytes hash = sha1Of({input});
    std::copy(hash.begin(), hash.end(), plain.begin() + static_cast<std::ptrdiff_t>(n - 21));
}

// A contact session of a card that offers SDA, DDA and CDA, in plain form until signed.
struct CardSession {
    Bytes aid = bytes("A0000000031010");
    Bytes date = bytes("261126");
    Bytes number = bytes("11223344");    // the unpredictable number of GENERATE AC
    Bytes iaNumber = bytes("55667788");  // the DDOL data of INTERNAL AUTHENTICATE
    Bytes aip = bytes("6100");
    Bytes afl = bytes(
        "08010101"
        "10010300"
        "58010101");
    Bytes record1 = concat({tlv("5A", bytes("4761739001010010")), tlv("5F24", bytes("301231")),
                            tlv("8C", bytes("9F02065F2A029A0395059F3704")),
                            tlv("9F49", bytes("9F3704")), tlv("9F4A", bytes("82"))});
    Bytes sfi11Record = tlv("70", tlv("5F28", bytes("0840")));
    bool readSfi11 = true;
    std::uint8_t caIndex = 0x92;
    Bytes gacBefore = concat({tlv("9F27", bytes("80")), tlv("9F36", bytes("0001"))});
    Bytes gacAfter = tlv("9F10", bytes("06010A03A00000"));
    Bytes issuerPlain, iccPlain, staticPlain, ddaPlain, cdaPlain;
    Bytes issuerCertificate, iccCertificate, staticSignature, ddaSignature, cdaSignature;

    Bytes pdolData() const { return concat({date, number}); }
    Bytes cdolData() const {
        return concat({bytes("000000001000"), bytes("0840"), date, repeat(0, 5), number});
    }
    Bytes staticData() const { return concat({record1, readSfi11 ? sfi11Record : Bytes{}, aip}); }
};

CardSession plainSession() {
    Pki& keys = pki();
    CardSession s;
    const Bytes& issuerKey = keys.issuer.modulus();  // 112 bytes: 92 in the certificate
    s.issuerPlain = concat({bytes("6A02"
                                  "476173FF"
                                  "1230"
                                  "000001"
                                  "0101"),
                            {0x70, 0x01},
                            slice(issuerKey, 0, 92),
                            repeat(0, kHash),
                            bytes("BC")});
    seal(s.issuerPlain, {slice(issuerKey, 92, 20), keys.issuer.exponent()});
    const Bytes& iccKey = keys.icc.modulus();  // 96 bytes: 70 in the certificate
    s.iccPlain = concat({bytes("6A04"
                               "4761739001010010FFFF"
                               "1230"
                               "000002"
                               "0101"),
                         {0x60, 0x01},
                         slice(iccKey, 0, 70),
                         repeat(0, kHash),
                         bytes("BC")});
    seal(s.iccPlain, {slice(iccKey, 70, 26), keys.icc.exponent(), s.staticData()});
    s.staticPlain = concat({bytes("6A0301DAC1"), repeat(0xBB, 86), repeat(0, kHash), bytes("BC")});
    seal(s.staticPlain, {s.staticData()});
    s.ddaPlain = concat({bytes("6A050103"
                               "021234"),
                         repeat(0xBB, 68), repeat(0, kHash), bytes("BC")});
    seal(s.ddaPlain, {s.iaNumber});
    const Bytes transactionHash = sha1Of({s.pdolData(), s.cdolData(), s.gacBefore, s.gacAfter});
    s.cdaPlain = concat({bytes("6A050120"
                               "021235"
                               "80"
                               "0102030405060708"),
                         transactionHash, repeat(0xBB, 39), repeat(0, kHash), bytes("BC")});
    seal(s.cdaPlain, {s.number});
    return s;
}

void sign(CardSession& s) {
    Pki& keys = pki();
    s.issuerCertificate = keys.ca.sign(s.issuerPlain);
    s.iccCertificate = keys.issuer.sign(s.iccPlain);
    s.staticSignature = keys.issuer.sign(s.staticPlain);
    s.ddaSignature = keys.icc.sign(s.ddaPlain);
    s.cdaSignature = keys.icc.sign(s.cdaPlain);
}

std::string hexOf(const Bytes& data) { return TLVUtility::dataToHexString(data); }

std::string traceOf(const CardSession& s) {
    const Pki& keys = pki();
    std::string trace;
    const auto exchange = [&trace](const Bytes& command, const Bytes& response) {
        trace += ">> " + hexOf(command) + "\n<< " + hexOf(response) + "9000\n";
    };
    const auto command = [](std::string_view header, const Bytes& data) {
        return concat({bytes(header), {static_cast<std::uint8_t>(data.size())}, data, {0x00}});
    };
    exchange(command("00A40400", s.aid),
             tlv("6F", concat({tlv("84", s.aid),
                               tlv("A5", concat({tlv("50", bytes("56495341")),
                                                 tlv("9F38", bytes("9A039F3704"))}))})));
    exchange(command("80A80000", tlv("83", s.pdolData())),
             tlv("77", concat({tlv("82", s.aip), tlv("94", s.afl)})));
    exchange(bytes("00B2010C00"), tlv("70", s.record1));
    exchange(bytes("00B2011400"),
             tlv("70", concat({tlv("8F", {s.caIndex}), tlv("90", s.issuerCertificate),
                               tlv("92", slice(keys.issuer.modulus(), 92, 20)),
                               tlv("9F32", keys.issuer.exponent())})));
    exchange(bytes("00B2021400"), tlv("70", concat({tlv("9F46", s.iccCertificate),
                                                    tlv("9F48", slice(keys.icc.modulus(), 70, 26)),
                                                    tlv("9F47", keys.icc.exponent())})));
    exchange(bytes("00B2031400"), tlv("70", tlv("93", s.staticSignature)));
    if (s.readSfi11) exchange(bytes("00B2015C00"), s.sfi11Record);
    exchange(command("00880000", s.iaNumber), tlv("80", s.ddaSignature));
    exchange(command("80AE9000", s.cdolData()),
             tlv("77", concat({s.gacBefore, tlv("9F4B", s.cdaSignature), s.gacAfter})));
    return trace;
}

CaKeyTable tableWith(const RsaKeyPair& ca, std::uint8_t index = 0x92) {
    CaKeyTable table;
    CaPublicKey key;
    key.rid = {0xA0, 0x00, 0x00, 0x00, 0x03};
    key.index = index;
    key.modulus = ca.modulus();
    key.exponent = ca.exponent();
    table.add(key);
    return table;
}

SessionExplanation explainSession(const CardSession& s, const CaKeyTable& keys,
                                  bool showSensitive = false) {
    ExplainOptions options;
    options.caKeys = &keys;
    options.showSensitive = showSensitive;
    return SessionExplainer::explain(ApduTrace::read(traceOf(s)), options);
}

std::vector<std::string> verdicts(const OdaReport& report) {
    std::vector<std::string> out;
    for (const OdaMethod& m : report.methods) {
        out.push_back(m.method + " " + std::string(describe(m.verdict)) +
                      (m.detail.empty() ? "" : ": " + m.detail));
    }
    return out;
}

TEST(OdaVerifierTest, ValidSessionPassesEveryMethodWithEveryCheckMade) {
    CardSession s = plainSession();
    sign(s);
    const SessionExplanation session = explainSession(s, tableWith(pki().ca));
    const OdaReport& oda = session.summary.oda;
    EXPECT_EQ(verdicts(oda), (std::vector<std::string>{"CDA passed", "DDA passed", "SDA passed"}));
    ASSERT_EQ(oda.steps.size(), 5u);
    for (const OdaStep& step : oda.steps) {
        SCOPED_TRACE(step.object);
        EXPECT_EQ(step.keyRid, "A000000003");
        EXPECT_EQ(step.keyIndex, "92");
        for (const OdaCheck& check : step.checks) {
            // The supplied key has no published checksum; everything else is checked.
            if (check.name != "CA key checksum") {
                EXPECT_EQ(check.ok, true) << check.name;
            }
        }
    }
    // Each step follows the exchange that carried its object: the records, then the
    // GENERATE AC (CDA) and INTERNAL AUTHENTICATE (DDA) responses.
    EXPECT_EQ(oda.steps[0].exchange, 3u);
    EXPECT_EQ(oda.steps[1].exchange, 4u);
    EXPECT_EQ(oda.steps[2].exchange, 8u);
    EXPECT_EQ(oda.steps[3].exchange, 7u);
    EXPECT_EQ(oda.steps[4].exchange, 5u);
    EXPECT_EQ(oda.terminalFindings,
              std::vector<std::string>{"no offline data authentication finding"});
}

TEST(OdaVerifierTest, RecoveredCardNumberIsMaskedUnlessShown) {
    CardSession s = plainSession();
    sign(s);
    const auto numberIn = [](const SessionExplanation& session) {
        for (const OdaField& field : session.summary.oda.steps[1].fields) {
            if (field.name == "Card number") return field.value;
        }
        return std::string();
    };
    EXPECT_EQ(numberIn(explainSession(s, tableWith(pki().ca))), "476173******0010");
    EXPECT_EQ(numberIn(explainSession(s, tableWith(pki().ca), true)), "4761739001010010");
}

struct Fault {
    std::string name;
    std::function<void(CardSession&)> beforeSigning;
    std::function<void(CardSession&)> afterSigning;
    std::vector<std::string> verdicts;  // CDA, DDA, SDA
};

std::vector<std::string> allThree(const std::string& verdict) {
    return {"CDA " + verdict, "DDA " + verdict, "SDA " + verdict};
}

TEST(OdaVerifierTest, EachFaultIsCaughtAtItsCheck) {
    const auto none = [](CardSession&) {};
    const Fault faults[] = {
        {"issuer certificate header", [](CardSession& s) { s.issuerPlain[0] = 0x6B; }, none,
         allThree("failed: issuer certificate: header")},
        {"issuer certificate format", [](CardSession& s) { s.issuerPlain[1] = 0x03; }, none,
         allThree("failed: issuer certificate: format")},
        {"issuer identifier of another range", [](CardSession& s) { s.issuerPlain[2] = 0x51; },
         none, allThree("failed: issuer certificate: issuer identifier")},
        {"issuer certificate expired", [](CardSession& s) { s.issuerPlain[7] = 0x25; }, none,
         allThree("failed: issuer certificate: expiry")},
        {"issuer certificate hash algorithm", [](CardSession& s) { s.issuerPlain[11] = 0x02; },
         none, allThree("failed: issuer certificate: hash algorithm")},
        {"issuer key length", [](CardSession& s) { s.issuerPlain[13] = 0x71; }, none,
         allThree("failed: issuer certificate: key lengths")},
        {"issuer certificate hash", [](CardSession& s) { s.issuerPlain[110] ^= 0x01; }, none,
         allThree("failed: issuer certificate: hash")},
        {"issuer certificate trailer", [](CardSession& s) { s.issuerPlain[127] = 0xBD; }, none,
         allThree("failed: issuer certificate: trailer")},
        {"issuer certificate damaged in the trace", none,
         [](CardSession& s) { s.issuerCertificate[40] ^= 0x01; },
         allThree("failed: issuer certificate: header")},
        {"ICC certificate of another card",
         [](CardSession& s) { s.iccPlain[5] ^= 0x11; },
         none,
         {"CDA failed: icc certificate: card number", "DDA failed: icc certificate: card number",
          "SDA passed"}},
        {"ICC certificate expired",
         [](CardSession& s) {
             s.iccPlain[12] = 0x10;
             s.iccPlain[13] = 0x26;
         },
         none,
         {"CDA failed: icc certificate: expiry", "DDA failed: icc certificate: expiry",
          "SDA passed"}},
        {"ICC certificate hash",
         [](CardSession& s) { s.iccPlain[95] ^= 0x01; },
         none,
         {"CDA failed: icc certificate: hash", "DDA failed: icc certificate: hash", "SDA passed"}},
        {"static data changed after signing",
         none,
         [](CardSession& s) { s.record1[12] ^= 0x01; },
         {"CDA failed: icc certificate: hash", "DDA failed: icc certificate: hash",
          "SDA failed: signed static data: hash"}},
        {"a record the AFL marks is missing", none, [](CardSession& s) { s.readSfi11 = false; },
         allThree("not possible: records missing: SFI 11 record 1")},
        {"signed static data padding",
         [](CardSession& s) { s.staticPlain[20] = 0x00; },
         none,
         {"CDA passed", "DDA passed", "SDA failed: signed static data: padding"}},
        {"DDA over other terminal data",
         none,
         [](CardSession& s) { s.iaNumber[0] ^= 0x01; },
         {"CDA passed", "DDA failed: signed dynamic data: hash", "SDA passed"}},
        {"DDA dynamic number too long",
         [](CardSession& s) { s.ddaPlain[4] = 0x09; },
         none,
         {"CDA passed", "DDA failed: signed dynamic data: ICC dynamic number", "SDA passed"}},
        {"CDA response changed after signing",
         none,
         [](CardSession& s) { s.gacBefore.back() ^= 0x01; },
         {"CDA failed: signed dynamic data: transaction data hash", "DDA passed", "SDA passed"}},
        {"CDA cryptogram type differs from the response's",
         [](CardSession& s) { s.cdaPlain[7] = 0x40; },
         none,
         {"CDA failed: signed dynamic data: CID", "DDA passed", "SDA passed"}},
        {"issuer certificate for XDA (ECC)", none,
         [](CardSession& s) {
             s.issuerCertificate = concat({{0x12}, repeat(0x5A, 60)});
         },
         allThree("not possible: the issuer certificate is an ECC (XDA) certificate: not checked")},
        {"ICC certificate for XDA (ECC)",
         none,
         [](CardSession& s) {
             s.iccCertificate = concat({{0x14}, repeat(0x5A, 50)});
         },
         {"CDA not possible: the ICC certificate is an ECC (XDA) certificate: not checked",
          "DDA not possible: the ICC certificate is an ECC (XDA) certificate: not checked",
          "SDA passed"}},
        {"CA key index not in the table", none, [](CardSession& s) { s.caIndex = 0x99; },
         allThree("not possible: CA key A000000003 99 is not in the key table")},
    };
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.name);
        CardSession s = plainSession();
        fault.beforeSigning(s);
        sign(s);
        fault.afterSigning(s);
        EXPECT_EQ(verdicts(explainSession(s, tableWith(pki().ca)).summary.oda), fault.verdicts);
    }
}

// Under another key the certificate reads as noise, or (as here) is not even below the key's
// modulus.
TEST(OdaVerifierTest, IssuerIdentifierOfFewerThanThreeDigitsIsRefused) {
    CardSession s = plainSession();
    s.issuerPlain[3] = 0xFF;  // "47" then padding
    seal(s.issuerPlain, {slice(pki().issuer.modulus(), 92, 20), pki().issuer.exponent()});
    sign(s);
    const OdaStep issuer = explainSession(s, tableWith(pki().ca)).summary.oda.steps.front();
    const auto check =
        std::find_if(issuer.checks.begin(), issuer.checks.end(),
                     [](const OdaCheck& c) { return c.name == "issuer identifier"; });
    ASSERT_NE(check, issuer.checks.end());
    EXPECT_EQ(*check, (OdaCheck{"issuer identifier", false, "not 3 to 8 digits padded with F"}));
    EXPECT_EQ(issuer.firstFailure(), "issuer certificate: issuer identifier");
}

TEST(OdaVerifierTest, WrongCaKeyFailsTheRecoveryAndSaysTheKeyIsUnverified) {
    CardSession s = plainSession();
    sign(s);
    const OdaReport oda = explainSession(s, tableWith(pki().stranger)).summary.oda;
    EXPECT_EQ(verdicts(oda), allThree("failed: issuer certificate: recovery"));
    EXPECT_EQ(oda.steps.front().checks.front(),
              (OdaCheck{"CA key checksum", std::nullopt, "none published: the key is unverified"}));
}

// Several keys may share a RID and index (published lists hold such pairs): the one whose
// recovery reads is used.
TEST(OdaVerifierTest, OfTwoKeysOfOneNameTheOneThatRecoversIsUsed) {
    CardSession s = plainSession();
    sign(s);
    std::vector<CaPublicKey> keys;
    for (const RsaKeyPair* ca : {&pki().stranger, &pki().ca}) {
        CaPublicKey& key = keys.emplace_back();
        key.rid = {0xA0, 0x00, 0x00, 0x00, 0x03};
        key.index = 0x92;
        key.modulus = ca->modulus();
        key.exponent = ca->exponent();
        key.origin = CaKeyOrigin::Verified;
    }
    const OdaReport oda = explainSession(s, CaKeyTable(keys)).summary.oda;
    EXPECT_EQ(verdicts(oda), (std::vector<std::string>{"CDA passed", "DDA passed", "SDA passed"}));
    EXPECT_EQ(oda.steps.front().fields.front(),
              (OdaField{"CA key", "A000000003 92 (one of 2 keys of that name)"}));
    EXPECT_EQ(oda.steps.front().checks.front().ok, true);
}

// The example session of the documents is one of these, signed by the key in
// examples/oda-test-ca.tsv. VASTREL_WRITE_EXAMPLES=1 writes both afresh.
TEST(OdaVerifierTest, ExampleSessionPassesWithItsCaKey) {
    if (std::getenv("VASTREL_WRITE_EXAMPLES") != nullptr) {
        CardSession s = plainSession();
        sign(s);
        std::ofstream(std::string(VASTREL_SOURCE_DIR) + "/examples/oda-session.txt") << traceOf(s);
        std::ofstream(std::string(VASTREL_SOURCE_DIR) + "/examples/oda-test-ca.tsv")
            << "A000000003\t92\t03\t" << hexOf(pki().ca.modulus()) << "\t\tTests' own CA\n";
    }
    const CaKeyFileRead keys =
        CaKeyTable::parse(testing::readSourceFile("examples/oda-test-ca.tsv"));
    ASSERT_EQ(keys.keys.size(), 1u);
    ExplainOptions options;
    const CaKeyTable table({keys.keys.front().key});
    options.caKeys = &table;
    const SessionExplanation session = SessionExplainer::explain(
        ApduTrace::read(testing::readSourceFile("examples/oda-session.txt")), options);
    EXPECT_EQ(verdicts(session.summary.oda),
              (std::vector<std::string>{"CDA passed", "DDA passed", "SDA passed"}));
}

TEST(OdaVerifierTest, WithoutTheMethodsDataEachIsNotPossible) {
    OdaInput input;
    input.aid = bytes("A0000000031010");
    input.processingOptions = OdaResponse{tlv("80", bytes("0100"
                                                          "08010100")),
                                          1};
    EXPECT_EQ(
        verdicts(OdaVerifier::verify(input, CaKeyTable())),
        std::vector<std::string>{"CDA not possible: no CA public key index (8F) in the trace"});
    input.processingOptions = OdaResponse{tlv("80", bytes("0000")), 1};
    EXPECT_EQ(verdicts(OdaVerifier::verify(input, CaKeyTable())),
              std::vector<std::string>{
                  "none not possible: the AIP names no method of offline data authentication"});
    EXPECT_TRUE(OdaVerifier::verify(OdaInput{}, CaKeyTable()).methods.empty());
    // An AIP of one byte says nothing of the methods.
    input.processingOptions = OdaResponse{tlv("77", tlv("82", bytes("41"))), 1};
    EXPECT_TRUE(OdaVerifier::verify(input, CaKeyTable()).methods.empty());
}

}  // namespace
}  // namespace vastrel
