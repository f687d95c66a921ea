#include "vastrel/Model/CardholderInteractionRequest.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace vastrel {
namespace {

TEST(CardholderInteractionRequestTest, SupportedApplicationIsSharedButFieldsAreCopied) {
    auto applications = std::make_shared<std::vector<AID>>(1);
    std::vector<CommercialCardDataField> fields{
        CommercialCardDataField::CommercialCardDataFieldPurchaseOrderNumber};
    CardholderInteractionRequest request;
    request.setSupportedApplication(applications);
    request.setCommercialCardDataFields(fields);

    applications->emplace_back();
    applications->front().setLabel("DEBIT");
    fields.push_back(CommercialCardDataField::CommercialCardDataFieldShipToZip);

    ASSERT_NE(request.supportedApplication(), nullptr);
    EXPECT_EQ(request.supportedApplication()->size(), 2u);
    EXPECT_EQ(request.supportedApplication()->front().label(), "DEBIT");
    EXPECT_EQ(request.commercialCardDataFields()->size(), 1u);
}

}  // namespace
}  // namespace vastrel
