#include "vastrel/Receipt/ReceiptHelper.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Platform/Log.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

namespace vastrel {
namespace {

using enum CVMResult;

// The receipt's reading of 9F34 beside the point-of-sale reading. They disagree on purpose:
// the receipt upper-cases, checks parity and maps by code number; the other matches the text
// as written and knows the apply-next forms of 02, 05, 1E and 1F only.
struct CvmCase {
    std::optional<std::string_view> value;
    CVMResult receipt;  // ReceiptHelper::cvmResultFromTlv
    std::uint64_t pos;  // EMVTagHelper::cardholderAuthenticationMethodfromTlv
    const char* reason;
};

const CvmCase kCvmCases[] = {
    {std::nullopt, NotAvailable, 9, "absent"},
    {"", NotAvailable, 9, "empty"},
    {"1", NotAvailable, 0, "odd for one, empty prefix for the other"},
    {"1F030", NotAvailable, 0, "parity is checked by the receipt only"},
    {"010002", PinOnline, 2, "plaintext PIN by card"},
    {"410302", SignatureRequired, 0, "apply-next 01 known to neither"},
    {"020000", PinOfflineEncr, 1, "enciphered PIN online"},
    {"420300", SignatureRequired, 1, "apply-next 02"},
    {"030002", PinOfflinePlain, 0, "03 unknown to the point-of-sale reading"},
    {"450000", SignatureRequired, 4, "apply-next 05"},
    {"1E0300", SignatureRequired, 4, "signature"},
    {"5E0300", SignatureRequired, 4, "apply-next 1E"},
    {"5e0300", SignatureRequired, 0, "only the receipt upper-cases"},
    {"1f0302", NoCvmRequested, 0, "no CVM required"},
    {"5F0000", SignatureRequired, 0, "apply-next 1F"},
    {"3F0000", SignatureRequired, 9, "no CVM performed"},
    {"7F0000", SignatureRequired, 9, "apply-next 3F"},
    {"000000", SignatureRequired, 0, "failed CVM processing"},
    {"ZZ", SignatureRequired, 0, "not hex"},
};

TEST(ReceiptHelperCvmTest, BothDecodersSideBySide) {
    for (const CvmCase& c : kCvmCases) {
        SCOPED_TRACE(::testing::Message() << c.value.value_or("<absent>") << ": " << c.reason);
        EXPECT_EQ(ReceiptHelper::cvmResultFromTlv(c.value), c.receipt);
        EXPECT_EQ(EMVTagHelper::cardholderAuthenticationMethodfromTlv(c.value),
                  CardholderAuthenticationMethod{c.pos});
    }
}

class ReceiptHelperValidationTest : public ::testing::Test {
  protected:
    void SetUp() override {
        log::setHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override { log::setHandler(nullptr); }
    std::vector<std::string> lines;
};

TEST_F(ReceiptHelperValidationTest, ReportsWhichOfAidAndLabelIsMissing) {
    constexpr const char* kNeither = "AID and Application Label are missing from EMV tags.";
    struct Case {
        std::vector<std::optional<std::string>> tags;
        const char* logLine;  // nullptr: valid, nothing logged
    };
    const Case cases[] = {
        {{}, kNeither},
        {{"9F26", "4F0", "050"}, kNeither},  // the whole tag must match
        {{"4F"}, "Application Label missing from EMV tags."},
        {{"50", "9F34"}, "AID missing from EMV tags."},
        {{std::nullopt, "", "4F"}, "Application Label missing from EMV tags."},
        {{"50", "9F26", "4f"}, nullptr},  // any order, case ignored
        {{"4F", "4F", "50", "50"}, nullptr},
    };
    using NoLines = std::vector<std::string>;
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << "case " << &c - cases);
        lines.clear();
        std::vector<TLVObject> elements(c.tags.size());
        for (std::size_t i = 0; i < c.tags.size(); ++i)
            elements[i].setTag(c.tags[i]);
        EXPECT_EQ(ReceiptHelper::validateEmvTagsPresent(elements), c.logLine == nullptr);
        const auto expected = c.logLine ? std::vector<std::string>{c.logLine} : NoLines{};
        EXPECT_EQ(lines, expected);
    }
    lines.clear();
    EXPECT_FALSE(ReceiptHelper::validateEmvTagsPresent(std::nullopt));
    EXPECT_EQ(lines,
              std::vector<std::string>{"All expected EMV data needed for the receipt is missing."});
}

}  // namespace
}  // namespace vastrel
