#include "vastrel/Model/CardholderInteractionResult.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vastrel {
namespace {

TEST(CardholderInteractionResultTest, CommercialCardDataChangedByTheCallerShowsThrough) {
    auto data = std::make_shared<CommercialCardData>();
    CardholderInteractionResult result;
    result.setCommercialCardData(data);

    data->setCommercialCardDataValuesDictionary(
        CommercialCardData::Values{{"PURCHASE_ORDER_NUMBER", "PO-7"}});

    ASSERT_TRUE(result.commercialCardData()->commercialCardDataValuesDictionary().has_value());
    EXPECT_EQ(result.commercialCardData()->commercialCardDataValuesDictionary()->at(
                  "PURCHASE_ORDER_NUMBER"),
              "PO-7");
}

TEST(CardholderInteractionResultTest, NewResultIsEmptyAndIndexesAreUnchecked) {
    CardholderInteractionResult result;
    EXPECT_EQ(result.selectedAidIndex(), 0);
    EXPECT_FALSE(result.finalAmountConfirmed());
    EXPECT_EQ(result.commercialCardData(), nullptr);
    result.setSelectedAidIndex(-1);
    EXPECT_EQ(result.selectedAidIndex(), -1);
}

}  // namespace
}  // namespace vastrel
