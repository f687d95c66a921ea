// ReceiptHelper::cvmResultFromTlv on any text. It never throws and answers one of the six
// CVM results, which all have a display string. Absent, empty or odd-length text is
// NOT AVAILABLE; otherwise only the first two characters count, in either case.
#include <optional>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const CVMResult result = ReceiptHelper::cvmResultFromTlv(text);
    const auto number = static_cast<std::int64_t>(result);
    FUZZ_CHECK(number == 0 || number == 1 || number == 2 || number == 3 || number == 31 ||
               number == 94);
    FUZZ_CHECK(EnumStringValues::valueForAnEnumType(EnumType::CVMResult,
                                                    static_cast<std::uint64_t>(number))
                   .has_value());
    FUZZ_CHECK(ReceiptHelper::cvmResultFromTlv(std::nullopt) == CVMResult::NotAvailable);
    if (text.empty() || text.size() % 2 != 0) {
        FUZZ_CHECK(result == CVMResult::NotAvailable);
        return 0;
    }
    FUZZ_CHECK(result != CVMResult::NotAvailable);
    FUZZ_CHECK(result == ReceiptHelper::cvmResultFromTlv(text.substr(0, 2)));
    FUZZ_CHECK(result == ReceiptHelper::cvmResultFromTlv(lowerCased(text)));
    return 0;
}
