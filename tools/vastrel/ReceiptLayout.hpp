#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vastrel/Receipt/TransactionReceipt.hpp"

namespace vastrel::tool {

// What the printed receipt shows beyond the receipt record: the merchant's header and the
// gateway's verdict (the record carries neither).
struct ReceiptHeader {
    std::string merchantName;
    std::vector<std::string> merchantAddress;
    std::optional<bool> approved;  // absent when there was no gateway response
    std::optional<std::string> responseText;
};

// Paper width of the receipt printers the layout is made for.
inline constexpr std::size_t kReceiptWidth = 40;

// The customer copy of receipt for a 40-column printer: header, transaction, card, total,
// verdict, the chip data card schemes ask for, and a signature line when the card asked
// for one. Lines never exceed kReceiptWidth; longer values continue on further lines.
std::string layOutReceipt(const TransactionReceipt& receipt, const ReceiptHeader& header);

}  // namespace vastrel::tool
