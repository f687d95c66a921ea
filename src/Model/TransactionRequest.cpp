#include "vastrel/Model/TransactionRequest.hpp"

namespace vastrel {

namespace {

// The only tax category Vastrel itself writes; the others come from the application.
constexpr TaxCategory kDefaultTaxCategory{1};

}  // namespace

TransactionRequest::TransactionRequest()
    : taxCategory_(kDefaultTaxCategory), cashBack_(Decimal::zero()) {}

TransactionRequest::TransactionRequest(std::optional<Decimal> transactionAmount,
                                       std::optional<Decimal> tipAmount,
                                       std::optional<Decimal> taxAmount, const CardData* cardData)
    : TransactionRequest() {
    total_ = transactionAmount;
    tip_ = tipAmount;
    tax_ = taxAmount;
    if (cardData != nullptr) cardData_ = *cardData;
}

}  // namespace vastrel
