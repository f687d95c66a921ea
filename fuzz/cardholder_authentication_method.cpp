// EMVTagHelper::cardholderAuthenticationMethodfromTlv on any text. It never throws and
// answers 0, 1, 2, 4 or 9. Absent or empty text is 9, one character is 0; otherwise only
// the first two characters count, exactly as written (a lower-case code matches nothing).
#include <optional>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

std::uint64_t methodOf(std::optional<std::string_view> text) {
    return static_cast<std::uint64_t>(EMVTagHelper::cardholderAuthenticationMethodfromTlv(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const std::uint64_t method = methodOf(text);
    FUZZ_CHECK(method == 0 || method == 1 || method == 2 || method == 4 || method == 9);
    FUZZ_CHECK(methodOf(std::nullopt) == 9);
    if (text.empty()) {
        FUZZ_CHECK(method == 9);
    } else if (text.size() == 1) {
        FUZZ_CHECK(method == 0);
    } else {
        FUZZ_CHECK(method == methodOf(text.substr(0, 2)));
        if (upperCased(text.substr(0, 2)) != text.substr(0, 2)) FUZZ_CHECK(method == 0);
    }
    return 0;
}
