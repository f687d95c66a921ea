#include "vastrel/Model/CardData.hpp"

namespace vastrel {

CardData CardData::copy() const {
    CardData result = *this;
    result.setCardholderAddress(cardholderAddress_);
    return result;
}

}  // namespace vastrel
