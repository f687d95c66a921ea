#include "vastrel/Model/GatewayRequest.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>

namespace vastrel {
namespace {

TEST(GatewayRequestTest, NewRequestIsAllZeroAndAbsent) {
    const GatewayRequest request;
    EXPECT_EQ(request.totalAmount(), std::nullopt);
    EXPECT_EQ(request.signature(), std::nullopt);
    EXPECT_EQ(request.cvmResult(), CVMResult::NotAvailable);
    EXPECT_EQ(request.taxCategory(), TaxCategory{0});  // unlike TransactionRequest
    EXPECT_FALSE(request.cardData().has_value());
    EXPECT_EQ(request.commercialCardData(), nullptr);
}

TEST(GatewayRequestTest, CommercialCardDataIsSharedButCardDataIsCopied) {
    auto commercial = std::make_shared<CommercialCardData>();
    CardData card;
    card.setPan("************0004");
    GatewayRequest request;
    request.setCommercialCardData(commercial);
    request.setCardData(card);

    commercial->setCommercialCardDataValuesDictionary(CommercialCardData::Values{{"k", "v"}});
    card.setPan("************9999");

    EXPECT_TRUE(request.commercialCardData()->commercialCardDataValuesDictionary().has_value());
    EXPECT_EQ(request.cardData()->pan(), "************0004");
}

TEST(GatewayRequestTest, StoredRecordsIgnoreLaterChangesByTheCaller) {
    TerminalInfo info;
    info.setSerialNumber("SN-1");
    TerminalCapabilities capabilities;
    capabilities.setTerminalInputCapability(0xE0);
    Customer customer;
    customer.setPhone("555-0100");
    Address address;
    address.setState("OR");

    GatewayRequest request;
    request.setTerminalInfo(info);
    request.setTerminalCapabilities(capabilities);
    request.setCustomer(customer);
    request.setCardholderAddress(address);
    info.setSerialNumber("SN-2");
    capabilities.setTerminalInputCapability(0);
    customer.setPhone(std::nullopt);
    address.setState("WA");

    EXPECT_EQ(request.terminalInfo()->serialNumber(), "SN-1");
    EXPECT_EQ(request.terminalCapabilities()->terminalInputCapability(), 0xE0u);
    EXPECT_EQ(request.customer()->phone(), "555-0100");
    EXPECT_EQ(request.cardholderAddress()->state(), "OR");
}

TEST(GatewayRequestTest, CvmResultKeepsNegativeValues) {
    for (const std::int64_t value :
         {std::int64_t{-1}, std::numeric_limits<std::int64_t>::min(), std::int64_t{94}}) {
        SCOPED_TRACE(value);
        GatewayRequest request;
        request.setCvmResult(CVMResult{value});
        EXPECT_EQ(static_cast<std::int64_t>(request.cvmResult()), value);
    }
}

}  // namespace
}  // namespace vastrel
