// A card session from arbitrary text: the trace reader, then the session explanation and its
// JSON. Nothing may crash; every exchange holds a command or a response and comes from a line
// of the text; a trace error names a line that exists; masked output never shows a PIN block.
#include <algorithm>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/CommandApdu.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::size_t lines =
        static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    static_cast<void>(ApduTrace::looksLikeTrace(text));
    const TraceRead trace = ApduTrace::read(text);
    if (trace.error) FUZZ_CHECK(trace.error->line >= 1 && trace.error->line <= lines);
    const SessionExplanation session = SessionExplainer::explain(trace);
    FUZZ_CHECK(session.exchanges.size() == trace.exchanges.size());
    for (std::size_t i = 0; i < session.exchanges.size(); ++i) {
        const ExplainedExchange& exchange = session.exchanges[i];
        FUZZ_CHECK(exchange.command || exchange.response);
        FUZZ_CHECK(exchange.line >= 1 && exchange.line <= lines);
        if (!exchange.command || exchange.command->name != "VERIFY") continue;
        // After CLA INS P1 P2 Lc (ten digits), the PIN data is stars.
        const auto apdu = CommandApdu::parse(trace.exchanges[i].command->bytes);
        FUZZ_CHECK(apdu.has_value());
        if (apdu->data.empty()) continue;  // a VERIFY without data has no PIN to hide
        const std::string pinData = exchange.command->hex.substr(10, 2 * apdu->data.size());
        FUZZ_CHECK(pinData.find_first_not_of('*') == std::string::npos);
    }
    const std::string json = SessionExplainer::toJson(session);
    FUZZ_CHECK(json.front() == '{' && json.back() == '\n');
    return 0;
}
