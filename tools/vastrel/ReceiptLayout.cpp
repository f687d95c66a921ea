#include "ReceiptLayout.hpp"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string_view>

#include "Ascii.hpp"
#include "EnumNames.hpp"
#include "ReceiptDate.hpp"
#include "TextTable.hpp"

namespace vastrel::tool {
namespace {

// The text the receipt builder stores as the amount when the gateway approved none.
constexpr std::string_view kAbsentAmount = "(null)";

class ReceiptPaper {
  public:
    void rule(char c) { text_ += std::string(kReceiptWidth, c) + '\n'; }
    void blank() { text_ += '\n'; }

    void centred(std::string_view line) {
        for (const auto& piece : wrapText(line, kReceiptWidth)) {
            text_ += std::string((kReceiptWidth - piece.size()) / 2, ' ') + piece + '\n';
        }
    }

    // label on the left, value flush right; a value that does not fit beside the label
    // goes below it, in as many right-aligned lines as it needs.
    void pair(std::string_view label, std::string_view value) {
        if (value.empty()) {
            text_ += std::string(label) + '\n';
            return;
        }
        if (label.size() + 1 + value.size() <= kReceiptWidth) {
            text_ += std::string(label) +
                     std::string(kReceiptWidth - label.size() - value.size(), ' ') +
                     std::string(value) + '\n';
            return;
        }
        text_ += std::string(label) + '\n';
        for (const auto& piece : wrapText(value, kReceiptWidth)) {
            text_ += std::string(kReceiptWidth - piece.size(), ' ') + piece + '\n';
        }
    }

    void optionalPair(std::string_view label, const std::optional<std::string>& value) {
        if (value && !value->empty()) pair(label, *value);
    }

    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    std::string text_;
};

template <typename Enum>
std::string enumText(EnumType type, Enum value) {
    return displayString(type, static_cast<std::uint64_t>(value));
}

// "TransactionTypeRefundWithCard" -> "REFUND WITH CARD".
std::string transactionTitle(TransactionType type) {
    constexpr std::string_view kPrefix = "TransactionType";
    std::string name = enumText(EnumType::TransactionType, type);
    if (name.starts_with(kPrefix)) name.erase(0, kPrefix.size());
    std::string title;
    for (const char c : name) {
        if (std::isupper(static_cast<unsigned char>(c)) != 0 && !title.empty()) title += ' ';
        title += asciiUpper(c);
    }
    return title;
}

// "42.8" -> "42.80": whole cents, as shoppers read amounts. Other texts stay as they are.
std::string amountText(std::string amount) {
    const auto point = amount.find('.');
    if (point == std::string::npos) return amount + ".00";
    if (amount.size() - point == 2) amount += '0';
    return amount;
}

void printHeader(ReceiptPaper& paper, const TransactionReceipt& receipt,
                 const ReceiptHeader& header) {
    paper.rule('=');
    if (!header.merchantName.empty()) paper.centred(header.merchantName);
    for (const auto& line : header.merchantAddress)
        paper.centred(line);
    paper.rule('=');
    const auto& date = receipt.transactionDateTime();
    paper.pair(transactionTitle(receipt.transactionType()),
               date ? formatUtcDateTime(*date, "%Y-%m-%d %H:%M:%S") : "");
    paper.optionalPair("INVOICE", receipt.invoiceNumber());
    paper.blank();
}

void printCard(ReceiptPaper& paper, const TransactionReceipt& receipt) {
    std::string brand = enumText(EnumType::CardType, receipt.cardType());
    if (receipt.cardType() == CardType::Unknown) brand = "CARD";
    paper.pair(brand, receipt.maskedPan().value_or(""));
    paper.optionalPair("CARDHOLDER", receipt.cardholderName());
    paper.pair("ENTRY MODE", enumText(EnumType::CardDataSourceType, receipt.posEntryMode()));
    paper.blank();
}

void printTotalAndVerdict(ReceiptPaper& paper, const TransactionReceipt& receipt,
                          const ReceiptHeader& header) {
    const auto& amount = receipt.transactionAmount();
    if (amount && *amount != kAbsentAmount) {
        paper.pair("TOTAL", enumText(EnumType::CurrencyCode, receipt.currencyCode()) + " " +
                                amountText(*amount));
    }
    paper.rule('-');
    if (header.approved) paper.centred(*header.approved ? "APPROVED" : "DECLINED");
    if (header.responseText && *header.responseText != "APPROVED" &&
        *header.responseText != "DECLINED") {
        paper.centred(*header.responseText);
    }
    paper.optionalPair("AUTH CODE", receipt.authorizationCode());
    paper.optionalPair("TRANSACTION ID", receipt.transactionId());
}

// The chip data card schemes ask to see on a receipt; nothing for a swiped card.
void printChipData(ReceiptPaper& paper, const TransactionReceipt& receipt) {
    if (!receipt.aid()) return;
    paper.rule('-');
    paper.optionalPair("APPLICATION", receipt.applicationLabel());
    paper.optionalPair("AID", receipt.aid());
    paper.optionalPair("TVR", receipt.terminalVerificationResult());
    paper.optionalPair("AIP", receipt.applicationInterchangeProfile());
    paper.optionalPair("ATC", receipt.applicationTransactionCounter());
    paper.optionalPair("PAN SEQ", receipt.panSequenceNumber());
    paper.optionalPair("CRYPTOGRAM", receipt.cryptogram());
    paper.optionalPair("CID", receipt.cryptogramInformationData());
    paper.optionalPair("UN", receipt.unpredictableNumber());
    paper.optionalPair("IAD", receipt.issuerApplicationData());
    paper.pair("CVM", cvmResultText(receipt.cvmResult()));
    if (receipt.pinStatementType() == PinStatementType::PinVerified) {
        paper.blank();
        paper.centred(enumText(EnumType::PinStatementType, receipt.pinStatementType()));
    }
}

void printSignature(ReceiptPaper& paper, const TransactionReceipt& receipt,
                    const ReceiptHeader& header) {
    const bool declined = header.approved && !*header.approved;
    if (receipt.cvmResult() != CVMResult::SignatureRequired || declined) return;
    paper.blank();
    paper.blank();
    paper.pair("X", std::string(kReceiptWidth - 2, '_'));
    if (receipt.cardholderName()) paper.centred(*receipt.cardholderName());
    paper.centred("I AGREE TO PAY THE ABOVE TOTAL AMOUNT");
    paper.centred("ACCORDING TO THE CARD ISSUER AGREEMENT");
}

}  // namespace

std::string layOutReceipt(const TransactionReceipt& receipt, const ReceiptHeader& header) {
    ReceiptPaper paper;
    printHeader(paper, receipt, header);
    printCard(paper, receipt);
    printTotalAndVerdict(paper, receipt, header);
    printChipData(paper, receipt);
    printSignature(paper, receipt, header);
    paper.blank();
    paper.centred("CUSTOMER COPY");
    paper.rule('=');
    return paper.text();
}

}  // namespace vastrel::tool
