#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel {

TransactionReceipt TransactionReceipt::copy() const {
    TransactionReceipt result = *this;
    result.setTransactionDateTime(std::chrono::system_clock::now());
    return result;
}

}  // namespace vastrel
