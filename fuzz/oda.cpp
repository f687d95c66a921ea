// Offline data authentication from arbitrary keys and sessions: the input is a CA key file, a
// NUL byte, then a trace. The key file is read and every key checked; the session is explained
// with those keys, so every certificate and signature in it is recovered with a key the fuzzer
// chose. Nothing may crash; a failed method names a check that failed, and a passed one has
// every step passing.
#include <algorithm>
#include <string>
#include <string_view>

#include "FuzzSupport.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"
#include "vastrel/Oda/CaKeyCheck.hpp"
#include "vastrel/Oda/CaKeyTable.hpp"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = std::min(input.find('\0'), input.size());
    const CaKeyFileRead read = CaKeyTable::parse(input.substr(0, split));
    std::vector<CaPublicKey> keys;
    for (const CaKeyLine& line : read.keys)
        keys.push_back(line.key);
    const auto verdicts = CaKeyCheck::checkAll(keys);
    FUZZ_CHECK(verdicts.size() == keys.size());
    const std::string json = CaKeyCheck::toJson(keys, {}, verdicts);
    FUZZ_CHECK(json.front() == '[' && json.back() == '\n');

    const CaKeyTable table(keys);
    ExplainOptions options;
    options.caKeys = &table;
    const std::string_view trace = split < input.size() ? input.substr(split + 1) : "";
    const SessionExplanation session = SessionExplainer::explain(ApduTrace::read(trace), options);
    const OdaReport& oda = session.summary.oda;
    for (const OdaMethod& method : oda.methods) {
        FUZZ_CHECK(method.verdict == OdaVerdict::Passed || !method.detail.empty());
    }
    const bool anyFailedStep = std::any_of(oda.steps.begin(), oda.steps.end(),
                                           [](const OdaStep& s) { return !s.passed(); });
    for (const OdaMethod& method : oda.methods) {
        if (method.verdict == OdaVerdict::Failed) FUZZ_CHECK(anyFailedStep);
    }
    for (const OdaStep& step : oda.steps)
        FUZZ_CHECK(step.exchange < session.exchanges.size());
    const std::string sessionJson = SessionExplainer::toJson(session);
    FUZZ_CHECK(sessionJson.front() == '{' && sessionJson.back() == '\n');
    return 0;
}
