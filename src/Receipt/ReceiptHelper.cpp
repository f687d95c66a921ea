#include "vastrel/Receipt/ReceiptHelper.hpp"

#include <array>
#include <cstddef>
#include <string>

#include "vastrel/Platform/Log.hpp"

namespace vastrel {
namespace {

constexpr char asciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool equalsIgnoringCase(std::string_view text, std::string_view upperExpected) {
    if (text.size() != upperExpected.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (asciiUpper(text[i]) != upperExpected[i]) return false;
    }
    return true;
}

bool hasTag(const TLVObject& element, std::string_view upperTag) {
    return element.tag() && equalsIgnoringCase(*element.tag(), upperTag);
}

struct CvmCodeResult {
    std::string_view code;
    CVMResult result;
};

// Mapped by code number, not by what EMV says each code means ("01", plaintext PIN by the
// card, reads PIN ONLINE): receipts have always printed these, so the table stays.
constexpr std::array<CvmCodeResult, 4> kReceiptCvmResults = {{
    {"01", CVMResult::PinOnline},
    {"02", CVMResult::PinOfflineEncr},
    {"03", CVMResult::PinOfflinePlain},
    {"1F", CVMResult::NoCvmRequested},
}};

}  // namespace

bool ReceiptHelper::validateEmvTagsPresent(const std::optional<std::vector<TLVObject>>& emvTags) {
    if (!emvTags) {
        log::write("All expected EMV data needed for the receipt is missing.");
        return false;
    }
    bool aidFound = false;
    bool labelFound = false;
    for (const TLVObject& element : *emvTags) {
        if (hasTag(element, "4F")) {
            aidFound = true;
        } else if (hasTag(element, "50")) {
            labelFound = true;
        }
    }
    if (aidFound && labelFound) return true;
    if (aidFound) {
        log::write("Application Label missing from EMV tags.");
    } else if (labelFound) {
        log::write("AID missing from EMV tags.");
    } else {
        log::write("AID and Application Label are missing from EMV tags.");
    }
    return false;
}

CVMResult ReceiptHelper::cvmResultFromTlv(std::optional<std::string_view> value) {
    if (!value || value->empty() || value->size() % 2 != 0) return CVMResult::NotAvailable;
    // Only the CVM code byte is read; condition and result bytes play no part.
    const std::array<char, 2> code = {asciiUpper((*value)[0]), asciiUpper((*value)[1])};
    const std::string_view codeText(code.data(), code.size());
    for (const CvmCodeResult& row : kReceiptCvmResults) {
        if (row.code == codeText) return row.result;
    }
    // Unlisted codes, the apply-next forms (41, 42, 5F) and the failure code 00 included.
    return CVMResult::SignatureRequired;
}

}  // namespace vastrel
