// Card sessions from traces: the trace shapes engineers paste, the commands named and their
// parameters read, the card's DOLs applied to the terminal's data, the selected application's
// kernel used for later responses, damaged traces, and the summary.
#include "vastrel/Explain/SessionExplainer.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include <string>
#include <vector>

#include "support/HexBytes.hpp"
#include "support/TestSupport.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/CommandApdu.hpp"
#include "vastrel/Explain/DataObjectList.hpp"

namespace vastrel {
namespace {

std::vector<std::string> directions(const TraceRead& read) {
    std::vector<std::string> shape;
    for (const TraceExchange& exchange : read.exchanges) {
        shape.push_back(std::string(exchange.command ? "C" : "-") +
                        (exchange.response ? "R" : "-"));
    }
    return shape;
}

TEST(ApduTraceTest, ReadsTheShapesEngineersPaste) {
    struct Case {
        std::string text;
        std::vector<std::string> shape;
    };
    const Case cases[] = {
        {"00A4040002AABB00\n6A82\n00B2010C00\n9000\n", {"CR", "CR"}},
        {">> 00A4040002AABB00\n<< 6A82\n", {"CR"}},
        {"-> 00 A4 04 00 02 AA BB 00\r\n<- 6A 82\r\n", {"CR"}},
        {"C-APDU: 00A4040002AABB00\nR-APDU: 6A82\n", {"CR"}},
        {"12:00:01.123 tx 00:A4:04:00:02:AA:BB:00\n12:00:01.140 Rx 6A:82\n", {"CR"}},
        {"[reader] Send 00A4040002AABB00\n[reader] RECV 6A82\n", {"CR"}},
        // Lost lines: a command without its response, a response without its command.
        {">> 00A4040002AABB00\n>> 00B2010C00\n<< 9000\n<< 6A82\n", {"C-", "CR", "-R"}},
        {"\n>> 00B2010C00\n\n", {"C-"}},
        // Marker words inside other words are no markers.
        {"12:00 [sender] >> 00B2010C00\n12:00 [transmitter] << 9000\n", {"CR"}},
    };
    for (const Case& c : cases) {
        const TraceRead read = ApduTrace::read(c.text);
        EXPECT_FALSE(read.error) << c.text;
        EXPECT_EQ(directions(read), c.shape) << c.text;
    }
}

TEST(ApduTraceTest, NamesTheLineItCannotRead) {
    struct Case {
        std::string text;
        std::size_t line;
        std::string reason;
    };
    const Case cases[] = {
        {">> 00B2010C00\n?? 9000\n", 2, "no direction marker (>> or <<, TX or RX, ...)"},
        {">> 00B2010C0\n", 1, "an odd number of hex digits"},
        {">> 00B2010CZZ\n", 1, "a character that is not a hex digit at column 12"},
        {"00B2010C00\n\n   \nxyz\n", 4, "a character that is not a hex digit at column 1"},
        {">> 00B2010C00\n<<\n", 2, "no hex"},
    };
    for (const Case& c : cases) {
        const TraceRead read = ApduTrace::read(c.text);
        ASSERT_TRUE(read.error) << c.text;
        EXPECT_EQ(read.error->line, c.line) << c.text;
        EXPECT_EQ(read.error->reason, c.reason) << c.text;
    }
}

TEST(ApduTraceTest, TellsATraceFromAWrappedResponse) {
    EXPECT_TRUE(ApduTrace::looksLikeTrace("00B2010C00\n70035A01479000\n"));
    EXPECT_TRUE(ApduTrace::looksLikeTrace(">> 00B2010C00\n"));
    EXPECT_FALSE(ApduTrace::looksLikeTrace("70035A01479000\n"));
    EXPECT_FALSE(ApduTrace::looksLikeTrace(
        testing::readSourceFile("examples/contactless-gpo-response.txt")));
    // A first line whose Lc disagrees with its length is no command.
    EXPECT_FALSE(ApduTrace::looksLikeTrace("00B2010C05AA\n9000\n"));
}

TEST(CommandApduTest, NamesCommandsAndTheirParameters) {
    struct Case {
        std::string hex;
        std::string name;
        std::vector<std::string> parameters;
    };
    const Case cases[] = {
        {"00A404000E315041592E5359532E444446303100",
         "SELECT",
         {"Payment System Environment (PSE), 1PAY.SYS.DDF01", "First or only occurrence"}},
        {"00A4040207A000000025010402",
         "SELECT",
         {"Application A0000000250104, American Express (American Express)", "Next occurrence"}},
        {"00B2021400", "READ RECORD", {"Record 2 of SFI 2"}},
        {"80AE50001D", "GENERATE AC", {"Asks for TC (approve offline)", "CDA signature requested"}},
        {"80AE0000", "GENERATE AC", {"Asks for AAC (decline)"}},
        {"80CA9F1700",
         "GET DATA",
         {"Data object 9F17 (Personal Identification Number (PIN) Try Counter)"}},
        {"00200088021234", "VERIFY", {"Enciphered PIN (PIN block masked)"}},
        {"0084000008", "GET CHALLENGE", {}},
        {"80EE000000", "UNKNOWN COMMAND", {}},
        {"00000000", "UNKNOWN COMMAND", {}},
    };
    for (const Case& c : cases) {
        const Bytes bytes = testing::bytesOf(c.hex);  // the parse points into it
        const auto apdu = CommandApdu::parse(bytes);
        ASSERT_TRUE(apdu) << c.hex;
        EXPECT_EQ(apdu->name(), c.name) << c.hex;
        EXPECT_EQ(apdu->parameters(), c.parameters) << c.hex;
    }
    EXPECT_FALSE(CommandApdu::parse(testing::bytesOf("00B201")));
    EXPECT_FALSE(CommandApdu::parse(testing::bytesOf("80AE80001D0000")));  // Lc says 29
    const Bytes case4Bytes = testing::bytesOf("80A8000002830000");
    const auto case4 = CommandApdu::parse(case4Bytes);
    ASSERT_TRUE(case4);
    EXPECT_EQ(case4->lc, 2);
    EXPECT_EQ(case4->le, 0);
    EXPECT_EQ(case4->data.size(), 2u);
}

TEST(DataObjectListTest, ParsesAndSplits) {
    const auto dol = DataObjectList::parse(testing::bytesOf("9F0206 5F2A02 9C01 DF812A03"));
    ASSERT_TRUE(dol);
    ASSERT_EQ(dol->size(), 4u);
    EXPECT_EQ((*dol)[3].tag, 0xDF812Au);
    EXPECT_EQ(DataObjectList::totalLength(*dol), 12u);
    const auto data = testing::bytesOf("000000001000 0840 00 AB");
    const auto fields = DataObjectList::split(*dol, data);
    EXPECT_EQ(fields[1].value.size(), 2u);
    EXPECT_EQ(fields[3].value.size(), 1u);  // the data ran out
    EXPECT_EQ(fields[3].declaredLength, 3u);
    EXPECT_FALSE(DataObjectList::parse(testing::bytesOf("9F02")));
    EXPECT_FALSE(DataObjectList::parse(testing::bytesOf("9F")));
    EXPECT_EQ(DataObjectList::parseTags(testing::bytesOf("829F37"))->size(), 2u);
}

SessionExplanation sessionOf(const std::string& file, bool showSensitive = false) {
    ExplainOptions options;
    options.showSensitive = showSensitive;
    return SessionExplainer::explain(
        ApduTrace::read(testing::readSourceFile("tests/Explain/sessions/" + file)), options);
}

std::vector<std::string> commandNames(const SessionExplanation& session) {
    std::vector<std::string> names;
    for (const auto& exchange : session.exchanges)
        names.push_back(exchange.command ? exchange.command->name : "-");
    return names;
}

TEST(SessionExplainerTest, VisaContactSale) {
    const SessionExplanation session = sessionOf("visa-contact.txt");
    ASSERT_FALSE(session.error);
    EXPECT_EQ(commandNames(session),
              (std::vector<std::string>{"SELECT", "GET PROCESSING OPTIONS", "READ RECORD", "VERIFY",
                                        "VERIFY", "GENERATE AC"}));
    // The PDOL from the SELECT response splits the GPO data; CDOL1 from the record splits
    // the GENERATE AC data, decoded with the session's currency.
    const auto& gpo = *session.exchanges[1].command;
    ASSERT_EQ(gpo.dol.size(), 3u);
    EXPECT_EQ(gpo.dol[0].meaning, Findings{"42.80 USD"});
    const auto& generateAc = *session.exchanges[5].command;
    ASSERT_EQ(generateAc.dol.size(), 8u);
    EXPECT_EQ(generateAc.dol[3].tag, "95");
    // The PIN block never shows; 63C2 after VERIFY counts tries.
    EXPECT_EQ(session.exchanges[3].command->hex, "0020008008****************");
    EXPECT_EQ(session.exchanges[3].response->explanation.status->meaning,
              "verification failed, 2 tries left");
    const SessionSummary& summary = session.summary;
    EXPECT_EQ(summary.application,
              "A0000000031010, Visa (Visa Credit or Debit), label VISA CREDIT");
    EXPECT_EQ(summary.cardNumber, "476173******0010");
    EXPECT_EQ(summary.recordsRead, std::vector<std::string>{"SFI 1 record 1"});
    EXPECT_EQ(summary.verification,
              (std::vector<std::string>{"Plaintext PIN: verification failed, 2 tries left",
                                        "Plaintext PIN: verified"}));
    EXPECT_EQ(summary.cryptograms,
              std::vector<std::string>{"Asked for ARQC, card returned ARQC (CID 80)"});
    EXPECT_EQ(summary.terminalVerificationResults,
              std::vector<std::string>{"Transaction exceeds floor limit"});
    EXPECT_TRUE(summary.notShown.empty());
    EXPECT_EQ(sessionOf("visa-contact.txt", true).summary.cardNumber, "4761739001010010");
}

TEST(SessionExplainerTest, MastercardContactlessReadsLaterDataInItsKernel) {
    const SessionExplanation session = sessionOf("mastercard-contactless.txt");
    ASSERT_FALSE(session.error);
    ASSERT_EQ(session.exchanges.size(), 5u);
    // The PPSE answer lists the application but selects none.
    EXPECT_EQ(session.exchanges[0].command->parameters.front(),
              "Proximity Payment System Environment (PPSE), 2PAY.SYS.DDF01");
    // The record carries no AID: 9F69 is named and read as Kernel 2's UDOL.
    const auto& record = session.exchanges[3].response->explanation.elements;
    const auto udol = std::find_if(record.begin(), record.end(),
                                   [](const ExplainedElement& e) { return e.tag == "9F69"; });
    ASSERT_NE(udol, record.end());
    EXPECT_EQ(udol->meaning.front(), "9F6A Unpredictable Number (Numeric), 4 bytes");
    EXPECT_EQ(session.summary.cardNumber, "541333******0011");
    EXPECT_EQ(session.summary.kernel, "contactless kernel 2 (Mastercard), from the AID");
    EXPECT_EQ(session.summary.cryptograms,
              std::vector<std::string>{"Asked for ARQC with CDA, card returned ARQC (CID 80)"});
    EXPECT_EQ(session.summary.verification, std::vector<std::string>{});
}

// One session per scheme, each in a trace shape of its own: the application and its kernel,
// the card number masked, the cryptogram asked for and returned.
TEST(SessionExplainerTest, EachSchemeIsNamedAndReadInItsKernel) {
    struct Case {
        std::string file;
        std::string application;
        std::string cardNumber;
        std::string kernel;
    };
    const Case cases[] = {
        {"amex-contact.txt",
         "A00000002501, American Express (American Express), label AMERICAN EXPRESS",
         "374245*****0126",
         "EMV contact (American Express application) or contactless kernel 4 (American Express)"},
        {"jcb-contactless.txt", "A0000000651010, JCB (JCB), label JCB CREDIT", "352800******0000",
         "EMV contact (JCB application) or contactless kernel 5 (JCB)"},
        {"unionpay-contact.txt",
         "A000000333010102, UnionPay (UnionPay Credit), label UnionPay Credit", "625094******8599",
         "EMV contact (UnionPay application) or contactless kernel 7 (UnionPay)"},
        {"discover-contact.txt",
         "A0000001523010, Discover (Discover D-PAS (also Diners Club)), label DISCOVER",
         "601100******9424",
         "EMV contact (Discover application) or contactless kernel 6 (Discover)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const SessionExplanation session = sessionOf(c.file);
        ASSERT_FALSE(session.error);
        EXPECT_EQ(session.summary.application, c.application);
        EXPECT_EQ(session.summary.cardNumber, c.cardNumber);
        // None of these traces shows PSE or PPSE: the kernel is one of two candidates.
        EXPECT_EQ(session.summary.kernel, c.kernel + ": the trace shows neither PSE nor PPSE");
        EXPECT_EQ(session.summary.cryptograms,
                  std::vector<std::string>{"Asked for TC, card returned TC (CID 40)"});
        // The GENERATE AC data is split by the CDOL1 of the record.
        EXPECT_EQ(session.exchanges[3].command->dol.size(), 3u);
    }
    // 9F71 in American Express data is Amex's Mobile CVM Results, not Mastercard's envelope.
    const SessionExplanation amex = sessionOf("amex-contact.txt");
    const auto& answer = amex.exchanges[3].response->explanation.elements;
    EXPECT_EQ(answer.back().tag, "9F71");
    EXPECT_EQ(answer.back().name, "Mobile CVM Results");
}

// The interface, and so the kernel, shows in what the terminal selected, the card's kernel
// identifier, or a PDOL that asks for the TTQ; without any of them both are candidates.
TEST(SessionExplainerTest, KernelFollowsTheInterfaceTheTraceShows) {
    const std::string selectVisa =
        ">> 00A4040007A000000003101000\n<< 6F0B8407A0000000031010A5009000\n";
    const std::string selectPse = ">> 00A404000E315041592E5359532E444446303100\n<< 6F009000\n";
    const std::string selectPpse = ">> 00A404000E325041592E5359532E444446303100\n<< 6F009000\n";
    struct Case {
        std::string trace;
        std::optional<std::string> kernel;
    };
    const Case cases[] = {
        {selectPse + selectVisa, "EMV contact (Visa application)"},
        {selectPpse + selectVisa, "contactless kernel 3 (Visa), from the AID"},
        {selectVisa,
         "EMV contact (Visa application) or contactless kernel 3 (Visa): the trace "
         "shows neither PSE nor PPSE"},
        // A kernel identifier names the kernel by its low six bits, whatever the AID.
        {">> 00A4040007A000000003101000\n<< 6F0F8407A0000000031010A5049F2A01829000\n",
         "contactless kernel 2 (Visa), from 9F2A"},
        {">> 00A4040007A000000003101000\n<< 6F118407A0000000031010A5069F38039F66049000\n",
         "contactless kernel 3 (Visa), from the AID"},
        {selectPpse + ">> 00A4040007A000000999101000\n<< 6F0B8407A0000009991010A5009000\n",
         "contactless, kernel not known for unknown"},
        {selectPpse, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.trace);
        EXPECT_EQ(SessionExplainer::explain(ApduTrace::read(c.trace)).summary.kernel, c.kernel);
    }
}

TEST(SessionExplainerTest, PinOfAnotherQualifierIsNamedByIt) {
    const SessionExplanation session =
        SessionExplainer::explain(ApduTrace::read(">> 00200001021234\n<< 9000\n"));
    EXPECT_EQ(session.summary.verification,
              std::vector<std::string>{"PIN (qualifier 01): verified"});
    EXPECT_EQ(session.exchanges[0].command->parameters,
              std::vector<std::string>{"PIN qualifier 01 (data masked)"});
}

// 6Cxx pairs with the command sent again with that Le; --show-sensitive shows a PIN block.
TEST(SessionExplainerTest, WrongLeIsPairedWithTheResentCommand) {
    const std::string trace =
        ">> 00B2010C00\n<< 6C1A\n>> 00B2010C1A\n<< 9000\n>> 00200080022412\n<< 9000\n";
    const SessionExplanation session = SessionExplainer::explain(ApduTrace::read(trace));
    EXPECT_EQ(session.exchanges[1].notes,
              std::vector<std::string>{
                  "Sends exchange 1's command again with the Le that 6C1A asked for"});
    // GET PROCESSING OPTIONS data that is no command template is said to be so.
    const SessionExplanation gpo =
        SessionExplainer::explain(ApduTrace::read(">> 80A80000024F0000\n<< 6985\n"));
    EXPECT_EQ(gpo.exchanges[0].command->note, "The data is not a command template (83)");
    ExplainOptions shown;
    shown.showSensitive = true;
    EXPECT_EQ(SessionExplainer::explain(ApduTrace::read(trace), shown).exchanges[2].command->hex,
              "00200080022412");
}

TEST(SessionExplainerTest, LabelIsShownAsPrintableText) {
    const SessionExplanation session = SessionExplainer::explain(ApduTrace::read(
        ">> 00A4040007A000000003101000\n<< 6F128407A0000000031010A507500556491B53419000\n"));
    EXPECT_EQ(session.summary.application,
              "A0000000031010, Visa (Visa Credit or Debit), label VI.SA");
}

TEST(SessionExplainerTest, DamagedTraceKeepsGoing) {
    const SessionExplanation session = sessionOf("damaged.txt");
    ASSERT_FALSE(session.error);
    ASSERT_EQ(session.exchanges.size(), 6u);
    EXPECT_EQ(session.exchanges[0].notes, std::vector<std::string>{"No response in the trace"});
    EXPECT_EQ(session.exchanges[2].notes,
              std::vector<std::string>{"Fetches the 32 bytes that exchange 2 announced (6120)"});
    EXPECT_EQ(session.exchanges[3].notes,
              std::vector<std::string>{"A response without its command (lost from the trace)"});
    EXPECT_EQ(session.exchanges[4].command->name, "MALFORMED COMMAND");
    EXPECT_EQ(session.exchanges[5].response->error,
              "The response has 1 byte(s): too short for a status word");
    EXPECT_EQ(session.summary.application, "A00000002501, American Express (American Express)");
}

}  // namespace
}  // namespace vastrel
