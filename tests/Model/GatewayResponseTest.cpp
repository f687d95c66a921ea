#include "vastrel/Model/GatewayResponse.hpp"

#include "Model/StringProperties.hpp"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <type_traits>

namespace vastrel {
namespace {

using test::StringProperty;
using R = GatewayResponse;

static_assert(!std::is_polymorphic_v<GatewayResponse>);

constexpr std::array<StringProperty<R>, 14> kStrings{{
    {"gatewayTransactionId", &R::gatewayTransactionId, &R::setGatewayTransactionId},
    {"authCode", &R::authCode, &R::setAuthCode},
    {"cvvResponseCode", &R::cvvResponseCode, &R::setCvvResponseCode},
    {"avsResponseCode", &R::avsResponseCode, &R::setAvsResponseCode},
    {"gatewayResponseText", &R::gatewayResponseText, &R::setGatewayResponseText},
    {"emvIssuerAuthCode", &R::emvIssuerAuthCode, &R::setEmvIssuerAuthCode},
    {"emvIssuerAuthenticationData", &R::emvIssuerAuthenticationData,
     &R::setEmvIssuerAuthenticationData},
    {"emvIssuerScripts", &R::emvIssuerScripts, &R::setEmvIssuerScripts},
    {"maskedPan", &R::maskedPan, &R::setMaskedPan},
    {"authResponse", &R::authResponse, &R::setAuthResponse},
    {"stin", &R::stin, &R::setStin},
    {"posReferenceId", &R::posReferenceId, &R::setPosReferenceId},
    {"cardholderName", &R::cardholderName, &R::setCardholderName},
    {"cardExpirationDate", &R::cardExpirationDate, &R::setCardExpirationDate},
}};

std::shared_ptr<const Error> declined() {
    return std::make_shared<const Error>("TRANSACTION_ERROR", 8,
                                         std::map<std::string, std::string>{});
}

TEST(GatewayResponseTest, CopyKeepsFlagsEnumerationsStringsAndAmounts) {
    GatewayResponse source;
    source.setApprovedAmount(Decimal("12.50"));
    source.setTipAmount(Decimal("2"));
    test::fillStrings<R>(source, kStrings);
    source.setIsPartialApproval(true);
    source.setIsApproved(true);
    source.setIsGatewayTimeOut(true);
    source.setCardDataSourceType(CardDataSourceType::Fallback);
    source.setCardType(CardType::Discover);
    source.setCommercialCard(CommercialCard{2});
    source.setGatewayAction(GatewayAction{5});

    const GatewayResponse copy = source.copy();
    EXPECT_EQ(copy.approvedAmount(), Decimal("12.5"));
    EXPECT_EQ(copy.tipAmount(), Decimal("2"));
    test::expectFilledStrings<R>(copy, kStrings);
    EXPECT_TRUE(copy.isPartialApproval());
    EXPECT_TRUE(copy.isApproved());
    EXPECT_TRUE(copy.isGatewayTimeOut());
    EXPECT_EQ(copy.cardDataSourceType(), CardDataSourceType::Fallback);
    EXPECT_EQ(copy.cardType(), CardType::Discover);
    EXPECT_EQ(copy.commercialCard(), CommercialCard{2});
    EXPECT_EQ(copy.gatewayAction(), GatewayAction{5});
}

TEST(GatewayResponseTest, ErrorIsNotKeptAliveByTheResponseOrItsCopy) {
    auto error = declined();
    GatewayResponse response;
    response.setGatewayError(error);
    const GatewayResponse copy = response.copy();
    EXPECT_EQ(copy.gatewayError().lock(), error);  // the same error object

    error.reset();
    EXPECT_TRUE(response.gatewayError().expired());
    EXPECT_TRUE(copy.gatewayError().expired());
}

TEST(GatewayResponseTest, CopyOfAResponseWhoseErrorIsGoneHasNoError) {
    GatewayResponse response;
    response.setGatewayError(declined());  // released at once: nobody else owns it
    EXPECT_EQ(response.copy().gatewayError().lock(), nullptr);
}

TEST(GatewayResponseTest, CopyOfADerivedRecordIsAPlainGatewayResponse) {
    struct AdapterResponse : GatewayResponse {
        int httpStatus = 200;
    };
    AdapterResponse source;
    source.setStin("42");
    static_assert(std::is_same_v<decltype(source.copy()), GatewayResponse>);
    EXPECT_EQ(source.copy().stin(), "42");
}

}  // namespace
}  // namespace vastrel
