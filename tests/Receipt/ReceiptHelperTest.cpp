#include "vastrel/Receipt/ReceiptHelper.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/Vectors.hpp"
#include "vastrel/Enums/EnumRows.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

namespace vastrel {
namespace {

using enum CVMResult;

// The receipt's reading of 9F34 beside the point-of-sale reading, from cvm-vectors.txt.
TEST(ReceiptHelperCvmTest, BothDecodersSideBySide) {
    for (const auto& vector : testing::readVectors("tests/Receipt/cvm-vectors.txt")) {
        SCOPED_TRACE(vector.where() + ": " + vector.get("why"));
        const auto value = vector.has("value") ? std::optional(vector.get("value")) : std::nullopt;
        const CVMResult receipt = ReceiptHelper::cvmResultFromTlv(value);
        EXPECT_EQ(EnumRows::textFor(EnumType::CVMResult, static_cast<std::uint64_t>(receipt)),
                  vector.get("receipt"));
        EXPECT_EQ(EMVTagHelper::cardholderAuthenticationMethodfromTlv(value),
                  CardholderAuthenticationMethod{std::stoull(vector.get("method"))});
    }
}

class ReceiptHelperValidationTest : public ::testing::Test {
  protected:
    testing::LogCapture log;
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
        log.clear();
        std::vector<TLVObject> elements(c.tags.size());
        for (std::size_t i = 0; i < c.tags.size(); ++i)
            elements[i].setTag(c.tags[i]);
        EXPECT_EQ(ReceiptHelper::validateEmvTagsPresent(elements), c.logLine == nullptr);
        const auto expected = c.logLine ? std::vector<std::string>{c.logLine} : NoLines{};
        EXPECT_EQ(log.lines(), expected);
    }
    log.clear();
    EXPECT_FALSE(ReceiptHelper::validateEmvTagsPresent(std::nullopt));
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"All expected EMV data needed for the receipt is missing."});
}

TLVObject element(std::string_view tag, std::string_view value) {
    TLVObject object{tag};
    object.setValue(std::string(value));
    return object;
}

// The EMV data of a contact chip sale as the reader hands it over.
std::vector<TLVObject> chipSaleElements(std::string_view cvmResults) {
    return {
        element("4F", "A0000000031010"),
        element("50", "5649534120435245444954"),  // VISA CREDIT
        element("5F24", "271231"),
        element("5F25", "200101"),
        element("82", "1C00"),
        element("9F08", "0096"),
        element("9F36", "0042"),
        element("5F34", "01"),
        element("9F26", "7A3F1B2C3D4E5F60"),
        element("9F34", cvmResults),
        element("9F10", "06010A03A0A000"),
        element("95", "0080008000"),
        element("9F37", "1A2B3C4D"),
        element("9F1E", "3132333435363738"),
        element("9F1A", "0124"),
        element("5F2A", "0978"),
        element("9F27", "80"),
        element("5F20", "444F452F4A4F484E"),  // DOE/JOHN
        element("9F02", "000000001250"),      // not printed
    };
}

GatewayResponse approvedResponse() {
    GatewayResponse response;
    response.setAuthCode(std::string("A1B2C3"));
    response.setGatewayTransactionId(std::string("TX-1001"));
    response.setApprovedAmount(Decimal("12.50"));
    return response;
}

CardData chipCard(std::vector<TLVObject> elements) {
    CardData card;
    card.setPan(std::string("476173XXXXXX0010"));
    card.setCardholderName(std::string("JOHN DOE"));
    card.setCardDataSourceType(CardDataSourceType::Emv);
    card.setEmvTLVData(std::move(elements));
    return card;
}

class ReceiptHelperBuilderTest : public ReceiptHelperValidationTest {};

TEST_F(ReceiptHelperBuilderTest, ChipSaleWithPinFillsEveryEmvField) {
    const GatewayResponse response = approvedResponse();
    const CardData card = chipCard(chipSaleElements("020000"));
    const TransactionReceipt receipt = ReceiptHelper::buildEmvReceiptWith(&response, &card);

    EXPECT_EQ(log.lines(), std::vector<std::string>{});
    EXPECT_EQ(receipt.authorizationCode(), "A1B2C3");
    EXPECT_EQ(receipt.transactionId(), "TX-1001");
    EXPECT_EQ(receipt.transactionAmount(), "12.5");
    EXPECT_EQ(receipt.cardType(), CardType::Visa);
    EXPECT_EQ(receipt.maskedPan(), "476173XXXXXX0010");
    EXPECT_EQ(receipt.posEntryMode(), CardDataSourceType::Emv);
    EXPECT_EQ(receipt.aid(), "A0000000031010");
    EXPECT_EQ(receipt.applicationLabel(), "VISA CREDIT");
    EXPECT_EQ(receipt.cardholderName(), "DOE/JOHN");  // the chip's name replaces the record's
    EXPECT_EQ(receipt.applicationExpiryDate(), "271231");
    EXPECT_EQ(receipt.applicationEffectiveDate(), "200101");
    EXPECT_EQ(receipt.applicationInterchangeProfile(), "1C00");
    EXPECT_EQ(receipt.applicationVersionNumber(), "0096");
    EXPECT_EQ(receipt.applicationTransactionCounter(), "0042");
    EXPECT_EQ(receipt.panSequenceNumber(), "01");
    EXPECT_EQ(receipt.cryptogram(), "7A3F1B2C3D4E5F60");
    EXPECT_EQ(receipt.issuerApplicationData(), "06010A03A0A000");
    EXPECT_EQ(receipt.terminalVerificationResult(), "0080008000");
    EXPECT_EQ(receipt.unpredictableNumber(), "1A2B3C4D");
    EXPECT_EQ(receipt.ifdSerialNumber(), "3132333435363738");  // stays hex
    EXPECT_EQ(receipt.cryptogramInformationData(), "80");
    EXPECT_EQ(receipt.cvmResult(), PinOfflineEncr);
    EXPECT_EQ(receipt.pinStatementType(), PinStatementType::PinVerified);
    // Country and currency take their only defined value whatever the card says.
    EXPECT_EQ(receipt.terminalCountryCode(), CountryCode::Us);
    EXPECT_EQ(receipt.currencyCode(), CurrencyCode::Usd);
    // Never set by the chip builder.
    EXPECT_EQ(receipt.transactionType(), TransactionType::TransactionTypeSale);
    EXPECT_EQ(receipt.transactionDateTime(), std::nullopt);
    EXPECT_EQ(receipt.invoiceNumber(), std::nullopt);
    EXPECT_EQ(receipt.cashBackAmount(), std::nullopt);
    EXPECT_EQ(receipt.terminalType(), std::nullopt);
}

TEST_F(ReceiptHelperBuilderTest, PinStatementFollowsTheCvmResult) {
    const struct {
        const char* cvmResults;
        CVMResult result;
        PinStatementType statement;
    } cases[] = {
        {"010002", PinOnline, PinStatementType::PinVerified},
        {"030002", PinOfflinePlain, PinStatementType::PinVerified},
        {"1E0300", SignatureRequired, PinStatementType::PinNotSupported},
        {"1F0302", NoCvmRequested, PinStatementType::PinNotSupported},
        {"420300", SignatureRequired, PinStatementType::PinNotSupported},
        {"", NotAvailable, PinStatementType::PinNotSupported},
    };
    for (const auto& c : cases) {
        const CardData card = chipCard(chipSaleElements(c.cvmResults));
        const TransactionReceipt receipt = ReceiptHelper::buildEmvReceiptWith(nullptr, &card);
        EXPECT_EQ(receipt.cvmResult(), c.result) << c.cvmResults;
        EXPECT_EQ(receipt.pinStatementType(), c.statement) << c.cvmResults;
    }
}

TEST_F(ReceiptHelperBuilderTest, FailedValidationKeepsGatewayAndCardFieldsOnly) {
    const struct {
        std::optional<std::vector<TLVObject>> elements;
        const char* logLine;
    } cases[] = {
        {std::nullopt, "All expected EMV data needed for the receipt is missing."},
        {std::vector<TLVObject>{}, "AID and Application Label are missing from EMV tags."},
        {std::vector<TLVObject>{element("4F", "A0000000031010"), element("9F26", "01")},
         "Application Label missing from EMV tags."},
        {std::vector<TLVObject>{element("50", "56495341")}, "AID missing from EMV tags."},
    };
    const GatewayResponse response = approvedResponse();
    for (const auto& c : cases) {
        log.clear();
        CardData card = chipCard({});
        card.setEmvTLVData(c.elements);
        const TransactionReceipt receipt = ReceiptHelper::buildEmvReceiptWith(&response, &card);
        EXPECT_EQ(log.lines(), std::vector<std::string>{c.logLine});
        EXPECT_EQ(receipt.aid(), std::nullopt) << c.logLine;
        EXPECT_EQ(receipt.cryptogram(), std::nullopt) << c.logLine;
        EXPECT_EQ(receipt.cardholderName(), "JOHN DOE");
        EXPECT_EQ(receipt.authorizationCode(), "A1B2C3");
    }
}

TEST_F(ReceiptHelperBuilderTest, TagsMatchIgnoringCaseAndTheLastRepeatWins) {
    std::vector<TLVObject> elements = {
        element("4f", "A0000000041010"),
        element("50", "4D415354455243415244"),  // MASTERCARD
        element("9f26", "1111111111111111"),
        element("9F26", "2222222222222222"),
        element("5f20", "4A4F484E"),
        element("50", "414243"),  // an odd-length label value gives ""
        element("50", "4142434"),
    };
    const CardData card = chipCard(std::move(elements));
    const TransactionReceipt receipt = ReceiptHelper::buildEmvReceiptWith(nullptr, &card);
    EXPECT_EQ(receipt.aid(), "A0000000041010");
    EXPECT_EQ(receipt.cryptogram(), "2222222222222222");
    EXPECT_EQ(receipt.cardholderName(), "JOHN");
    EXPECT_EQ(receipt.applicationLabel(), "");
    // Without a gateway response the chip builder leaves its fields empty and logs nothing.
    EXPECT_EQ(receipt.authorizationCode(), std::nullopt);
    EXPECT_EQ(receipt.transactionAmount(), std::nullopt);
    EXPECT_EQ(log.lines(), std::vector<std::string>{});
}

TEST_F(ReceiptHelperBuilderTest, SwipeReceiptTakesTheRequestTypeAndLogsAMissingResponse) {
    TransactionRequest request;
    request.setTransactionType(TransactionType::TransactionTypeRefundWithCard);
    CardData card;
    card.setPan(std::string("371449XXXXX8431"));
    card.setCardholderName(std::string("AMEX TEST"));
    card.setCardDataSourceType(CardDataSourceType::Msr);
    card.setEmvTLVData(chipSaleElements("020000"));  // never read by the stripe builder

    const TransactionReceipt withoutResponse =
        ReceiptHelper::buildMsrReceiptFor(&request, nullptr, &card);
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"Unable to populate required MSR receipt fields: "
                                       "auth code, transaction id, and approved amount."});
    EXPECT_EQ(withoutResponse.transactionType(), TransactionType::TransactionTypeRefundWithCard);
    EXPECT_EQ(withoutResponse.cardType(), CardType::Amex);
    EXPECT_EQ(withoutResponse.cardholderName(), "AMEX TEST");
    EXPECT_EQ(withoutResponse.maskedPan(), "371449XXXXX8431");
    EXPECT_EQ(withoutResponse.authorizationCode(), std::nullopt);
    EXPECT_EQ(withoutResponse.aid(), std::nullopt);

    log.clear();
    GatewayResponse response = approvedResponse();
    response.setApprovedAmount(std::nullopt);
    const TransactionReceipt withResponse =
        ReceiptHelper::buildMsrReceiptFor(&request, &response, &card);
    EXPECT_EQ(log.lines(), std::vector<std::string>{});
    EXPECT_EQ(withResponse.transactionId(), "TX-1001");
    EXPECT_EQ(withResponse.transactionAmount(), "(null)");
}

TEST_F(ReceiptHelperBuilderTest, IncompleteInputStillYieldsAReceipt) {
    const TransactionReceipt noCard = ReceiptHelper::buildEmvReceiptWith(nullptr, nullptr);
    EXPECT_EQ(noCard.cardType(), CardType::Unknown);
    EXPECT_EQ(noCard.maskedPan(), std::nullopt);
    EXPECT_EQ(log.lines(),
              std::vector<std::string>{"All expected EMV data needed for the receipt is missing."});

    // A number masked from the first digit cannot be classified; the receipt says UNKNOWN
    // instead of stopping the point-of-sale app.
    CardData masked;
    masked.setPan(std::string("XXXXXXXXXXXX0010"));
    const TransactionReceipt receipt = ReceiptHelper::buildMsrReceiptFor(nullptr, nullptr, &masked);
    EXPECT_EQ(receipt.cardType(), CardType::Unknown);
    EXPECT_EQ(receipt.transactionType(), TransactionType::TransactionTypeSale);
}

}  // namespace
}  // namespace vastrel
