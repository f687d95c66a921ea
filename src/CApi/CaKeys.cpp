#include <string>
#include <vector>

#include "CApiSupport.hpp"
#include "vastrel/Explain/ApduTrace.hpp"
#include "vastrel/Explain/SessionExplainer.hpp"
#include "vastrel/Oda/CaKeyCheck.hpp"
#include "vastrel/Oda/CaKeyTable.hpp"

using namespace vastrel;
using namespace vastrel::capi;

namespace {

// The keys of the caller's key-file text; a line that cannot be read fails the call, named by
// its number and the field at fault, never by its content.
std::vector<CaKeyLine> keysArgument(const char* text, std::size_t length, const char* what) {
    CaKeyFileRead read = CaKeyTable::parse(textArgument(text, length, what));
    if (read.errorLine) {
        throw Failure{
            VASTREL_ERROR_MALFORMED_DATA,
            std::string(what) + " line " + std::to_string(*read.errorLine) + ": " + read.error};
    }
    return std::move(read.keys);
}

}  // namespace

extern "C" {

vastrel_status vastrel_explain_session_json_with_keys(const char* trace, size_t trace_length,
                                                      const char* ca_keys, size_t ca_keys_length,
                                                      int show_sensitive, char* out,
                                                      size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        CaKeyTable keys = CaKeyTable::builtIn();
        for (CaKeyLine& line : keysArgument(ca_keys, ca_keys_length, "ca_keys")) {
            keys.add(std::move(line.key));
        }
        ExplainOptions options;
        options.showSensitive = show_sensitive != 0;
        options.caKeys = &keys;
        const SessionExplanation session = SessionExplainer::explain(
            ApduTrace::read(textArgument(trace, trace_length, "trace")), options);
        return writeText(SessionExplainer::toJson(session), out, out_capacity, out_length);
    });
}

vastrel_status vastrel_ca_keys_check_json(const char* keys, size_t keys_length,
                                          size_t* failed_count, char* out, size_t out_capacity,
                                          size_t* out_length) {
    return guarded([&] {
        require(failed_count, "failed_count");
        std::vector<CaPublicKey> read;
        std::vector<std::string> sources;
        for (CaKeyLine& line : keysArgument(keys, keys_length, "keys")) {
            read.push_back(std::move(line.key));
            sources.push_back("line " + std::to_string(line.line));
        }
        const auto verdicts = CaKeyCheck::checkAll(read, sources);
        *failed_count = CaKeyCheck::failures(verdicts);
        return writeText(CaKeyCheck::toJson(read, sources, verdicts), out, out_capacity,
                         out_length);
    });
}

}  // extern "C"
