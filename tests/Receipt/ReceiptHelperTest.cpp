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

// The receipt's reading of 9F34 and the point-of-sale reading, side by side. They disagree
// on purpose: the receipt upper-cases, checks parity and maps by code number; the other
// matches the text as written and knows the apply-next forms of 02, 05, 1E and 1F.
struct CvmCase {
    std::optional<std::string_view> value;
    CVMResult receipt;  // ReceiptHelper::cvmResultFromTlv
    std::uint64_t pos;  // EMVTagHelper::cardholderAuthenticationMethodfromTlv
    std::string_view reason;
};

constexpr CVMResult kNotAvailable = CVMResult::NotAvailable;
constexpr CVMResult kPinOnline = CVMResult::PinOnline;
constexpr CVMResult kPinOfflineEncr = CVMResult::PinOfflineEncr;
constexpr CVMResult kPinOfflinePlain = CVMResult::PinOfflinePlain;
constexpr CVMResult kNoCvm = CVMResult::NoCvmRequested;
constexpr CVMResult kSignature = CVMResult::SignatureRequired;

const CvmCase kCvmCases[] = {
    {std::nullopt, kNotAvailable, 9, "absent"},
    {"", kNotAvailable, 9, "empty"},
    {"1", kNotAvailable, 0, "one character: odd for one, empty prefix for the other"},
    {"1F030", kNotAvailable, 0, "odd length only matters to the receipt"},
    {"010002", kPinOnline, 2, "01 plaintext PIN by card"},
    {"410302", kSignature, 0, "apply-next 01 known to neither"},
    {"020000", kPinOfflineEncr, 1, "02 enciphered PIN online"},
    {"420300", kSignature, 1, "apply-next 02 known only to the point-of-sale reading"},
    {"030002", kPinOfflinePlain, 0, "03 unknown to the point-of-sale reading"},
    {"050000", kSignature, 4, "05 enciphered PIN and signature"},
    {"450000", kSignature, 4, "apply-next 05"},
    {"1E0300", kSignature, 4, "1E signature"},
    {"5E0300", kSignature, 4, "apply-next 1E"},
    {"5e0300", kSignature, 0, "lower case: receipt upper-cases, the other does not"},
    {"1F0302", kNoCvm, 0, "1F no CVM required"},
    {"1f0302", kNoCvm, 0, "lower case 1F"},
    {"5F0000", kSignature, 0, "apply-next 1F"},
    {"3F0000", kSignature, 9, "3F no CVM performed"},
    {"7F0000", kSignature, 9, "apply-next 3F"},
    {"3f0000", kSignature, 0, "lower case 3F"},
    {"000000", kSignature, 0, "failed CVM processing"},
    {"01", kPinOnline, 2, "code byte alone"},
    {"04", kSignature, 0, "unlisted code"},
    {"ZZ0000", kSignature, 0, "not hex at all"},
};

TEST(ReceiptHelperCvmTest, BothDecodersSideBySide) {
    for (const CvmCase& c : kCvmCases) {
        SCOPED_TRACE(::testing::Message()
                     << (c.value ? std::string(*c.value) : std::string("<absent>")) << ": "
                     << c.reason);
        EXPECT_EQ(ReceiptHelper::cvmResultFromTlv(c.value), c.receipt);
        EXPECT_EQ(EMVTagHelper::cardholderAuthenticationMethodfromTlv(c.value),
                  CardholderAuthenticationMethod{c.pos});
    }
}

TLVObject element(std::optional<std::string> tag) {
    TLVObject object;
    object.setTag(std::move(tag));
    return object;
}

class ReceiptHelperValidationTest : public ::testing::Test {
  protected:
    void SetUp() override {
        log::setHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override { log::setHandler(nullptr); }
    std::vector<std::string> lines;
};

TEST_F(ReceiptHelperValidationTest, AbsentListIsReportedAsMissingData) {
    EXPECT_FALSE(ReceiptHelper::validateEmvTagsPresent(std::nullopt));
    EXPECT_EQ(lines,
              std::vector<std::string>{"All expected EMV data needed for the receipt is missing."});
}

TEST_F(ReceiptHelperValidationTest, ReportsWhichOfAidAndLabelIsMissing) {
    struct Case {
        std::vector<std::optional<std::string>> tags;
        bool valid;
        std::vector<std::string> log;
        std::string_view reason;
    };
    const std::vector<std::string> noLog;
    const Case cases[] = {
        {{}, false, {"AID and Application Label are missing from EMV tags."}, "empty list"},
        {{"9F26", "95"},
         false,
         {"AID and Application Label are missing from EMV tags."},
         "neither"},
        {{"4F"}, false, {"Application Label missing from EMV tags."}, "AID only"},
        {{"50", "9F34"}, false, {"AID missing from EMV tags."}, "label only"},
        {{"4F", "50"}, true, noLog, "both"},
        {{"50", "9F26", "4f"}, true, noLog, "any order, tag case ignored"},
        {{"4F", "4F", "50", "50"}, true, noLog, "repeats do no harm"},
        {{"4F0", "050", "9F4F"},
         false,
         {"AID and Application Label are missing from EMV tags."},
         "whole tag must match"},
        {{std::nullopt, "", "4F"},
         false,
         {"Application Label missing from EMV tags."},
         "absent and empty tags match nothing"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        lines.clear();
        std::vector<TLVObject> elements;
        for (const auto& tag : c.tags)
            elements.push_back(element(tag));
        EXPECT_EQ(ReceiptHelper::validateEmvTagsPresent(elements), c.valid);
        EXPECT_EQ(lines, c.log);
    }
}

}  // namespace
}  // namespace vastrel
