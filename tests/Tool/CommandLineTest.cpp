// The command line as a whole and the hex subcommands `decode` (the nested decoder's tree)
// and `split` (the flat splitter): usage errors, input cleaning, stable JSON, and the
// masking of card data.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>

#include "ToolRunner.hpp"

namespace vastrel::tool::testing {
namespace {

TEST(CommandLineTest, WrongCommandLinesExitWithStatusTwo) {
    const ToolCase cases[] = {
        {"help says how hex is cleaned", "--help", 0, "newlines and a leading 0x are removed"},
        {"so does a hex subcommand's", "decode --help", 0, "newlines and a leading 0x are removed"},
        {"version", "--version", 0, "vastrel 1."},
        {"no subcommand", "", 2, "", "vastrel: error: A subcommand is required"},
        {"typo: the choices are named", "decod", 2, "",
         "unknown subcommand 'decod'; choose one of decode, split, tag, tags, cvm, brand, enum, "
         "icc, receipt\n"},
        {"unknown option", "decode --colour 5A00", 2, "", "--colour"},
        {"extra argument", "brand 4111 5555", 2, "", "5555"},
        {"missing argument", "enum", 2, "", "TYPE is required"},
    };
    std::ranges::for_each(cases, expectCase);
}

TEST(CommandLineTest, CleansPastedHexAndRefusesWhatIsNotHex) {
    const std::string row = "9F02  Amount, Authorised (Numeric)    1  FF\n";
    const ToolCase cases[] = {
        {"lower case on stdin", "decode", 0, row, "", "9f0201ff"},
        {"0x, blanks and newlines on stdin", "decode", 0, row, "", "  0x9F 02\n01\tFF\r\n"},
        {"split over arguments", "decode 9F02 01 FF", 0, row},
        {"prefix in an argument", "split 0X9F0201FF", 0, "  9F0201FF\n"},
        {"odd digit count", "decode 9F020", 1, "", "odd number of digits (5)"},
        {"non-hex character", "decode 9F0G", 1, "", "'G' at position 4 is not a hex digit"},
        {"0x in the middle", "split 9F0x02", 1, "", "'x' at position 4"},
        {"nothing on stdin", "decode", 1, "", "no hex data given"},
        {"only blanks", "split", 1, "", "no hex data given", " \n\t"},
    };
    std::ranges::for_each(cases, expectCase);
}

TEST(CommandLineTest, DecodeAndSplitNameEachElementAndSayWhatWasLeftOut) {
    const std::string undecoded =
        "vastrel: warning: 70 is constructed but was not decoded into children: the decoder "
        "leaves the last element of each level as it is\n";
    const std::string indent(52, ' ');
    const ToolCase cases[] = {
        {"aligned columns", "decode 9F02060000000010005F2A020840", 0,
         "TAG   NAME                          LEN  VALUE\n"
         "9F02  Amount, Authorised (Numeric)    6  000000001000\n"
         "5F2A  Transaction Currency Code       2  0840\n"},
        {"children indented below their template", "decode", 0,
         "\n77      Response Message Template Format 2      55\n"
         "  9F27  Cryptogram Information Data              1  80\n",
         undecoded, readExample("chip-templates.hex")},
        {"long values wrap under their column", "decode --show-sensitive", 0,
         "80  57134761739001010010D27122011143804400000F5A0847617390010100105F\n" + indent +
             "200F43415244484F4C4445522F564953415F24032712315F25032001015F2802\n" + indent +
             "08405F3401019F0702FF009F08020096\n",
         undecoded, readExample("chip-templates.hex")},
        {"nothing decodable", "decode 00", 0, "", "warning: no TLV element could be decoded"},
        {"library log when verbose", "decode --verbose 9F0201FF5A00", 0, "",
         "vastrel: log:         name = \"Amount, Authorised (Numeric)\";\n"},
        {"split: one line per element", "split 9f0206000000001000 5f2a020840", 0,
         "9F02  Amount, Authorised (Numeric)  9F0206000000001000\n"
         "5F2A  Transaction Currency Code     5F2A020840\n"},
        {"split stops at a long-form length", "split 5F2A0208405A81021234", 0, "5F2A020840",
         "warning: stopped at a long-form or indefinite length (81 and above), which the "
         "splitter does not read; `vastrel decode` reads them\n"},
        {"split stops at a partial element", "split 5A0212349F", 0, "5A02<2 bytes>",
         "the last 1 byte(s) do not make a whole element"},
        {"value past the end", "split 5A0812", 1, "", "the data ends inside an element"},
    };
    std::ranges::for_each(cases, expectCase);
}

// Scripts read these: key names, key order and value kinds stay as they are.
TEST(CommandLineTest, JsonKeepsItsKeysInOrder) {
    const std::pair<const char*, const char*> cases[] = {
        {"decode --json 700A5A0811111111111111119F0100",
         R"j([{"tag":"70","name":"EMV Proprietary Template","length":10,"value":"<10 bytes>",)j"
         R"j("children":[{"tag":"5A","name":"Application Primary Account Number (PAN)",)j"
         R"j("length":8,"value":"111111******1111","children":[]}]}])j"},
        {"decode --json 00", "[]"},
        {"split --json 5A021234",
         R"j([{"tag":"5A","name":"Application Primary Account Number (PAN)",)j"
         R"j("tlv":"5A02<2 bytes>"}])j"},
        {"cvm --json 010302",
         R"j({"value":"010302","cvmResult":{"value":1,"name":"PIN ONLINE"},)j"
         R"j("authenticationMethod":{"value":2,"meaning":"plaintext PIN verified by the card"}})j"},
        {"brand --json 352800XXXXXX", R"j({"cardType":{"value":4,"name":"JCB"}})j"},
        {"enum --json 12 0",
         R"j({"enumType":12,"enumeration":"CurrencyCode","value":0,"string":"USD"})j"},
        {"enum --json 9",
         R"j({"enumType":9,"enumeration":"CVMResult","strings":{"0":"NOT AVAILABLE",)j"
         R"j("1":"PIN ONLINE","2":"PIN OFFLINE ENCR","3":"PIN OFFLINE PLAIN",)j"
         R"j("17":"SIGNATURE REQUIRED"}})j"},
        {"icc --json 5A=1234", R"j({"icc":"5A021234"})j"},
        {"tags --json", R"j({"tag":"42","name":"Issuer Identification Number (IIN)"})j"},
    };
    for (const auto& [command, expected] : cases) {
        SCOPED_TRACE(command);
        const RunResult result = runCommand(command);
        ASSERT_EQ(result.status, 0) << result.err;
        const auto json = nlohmann::ordered_json::parse(result.out);
        // The dictionary is long: its first entry stands for the others.
        EXPECT_EQ((json.size() == 136 ? json[0] : json).dump(), expected);
    }
}

// Card number, track 2 and cardholder name, at the top level (chip-pin-sale) and inside a
// template that the decoder leaves whole (chip-templates).
TEST(CommandLineTest, MasksCardDataUnlessAskedToShowIt) {
    const std::string kCardData[] = {"4761739001010010", "4761739001010010D2712201114380440",
                                     "43415244484F4C4445522F5649534"};
    for (const char* example : {"chip-pin-sale.hex", "chip-templates.hex"}) {
        for (const std::string command : {"decode", "decode --json", "split", "decode -v"}) {
            SCOPED_TRACE(command + " < " + example);
            const RunResult masked = runCommand(command, readExample(example));
            ASSERT_EQ(masked.status, 0) << masked.err;
            const RunResult shown = runCommand(command + " --show-sensitive", readExample(example));
            for (const std::string& data : kCardData) {
                EXPECT_EQ((masked.out + masked.err).find(data), std::string::npos) << data;
                EXPECT_NE((shown.out + shown.err).find(data), std::string::npos) << data;
            }
        }
    }
}

}  // namespace
}  // namespace vastrel::tool::testing
