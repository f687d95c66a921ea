// `vastrel capk`: CA public keys checked as a terminal should check them before loading them:
// the published checksum, the modulus length, the exponent, and no index given twice within
// a RID. One verdict per key; exit status 1 when any key fails.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "CaKeyInput.hpp"
#include "Commands.hpp"
#include "HexInput.hpp"
#include "vastrel/Oda/CaKeyCheck.hpp"

namespace vastrel::tool {
namespace {

struct CapkOptions {
    std::vector<std::string> keys;
    std::optional<std::string> file;
    bool json = false;
};

// The keys to check and where each came from: the arguments (one key each), the file, or the
// built-in table when neither is given.
struct NamedKey {
    std::string source;  // "argument 2", "line 14", "built-in key 3"
    CaPublicKey key;
};

std::vector<NamedKey> keysToCheck(const CapkOptions& options, const InputSource& input) {
    std::vector<NamedKey> keys;
    for (std::size_t i = 0; i < options.keys.size(); ++i) {
        const std::string source = "argument " + std::to_string(i + 1);
        for (CaKeyLine& line : readCaKeys(options.keys[i], source).keys) {
            keys.push_back({source, std::move(line.key)});
        }
    }
    if (options.file) {
        for (CaKeyLine& line : readCaKeys(readFileText(*options.file, input), *options.file).keys) {
            keys.push_back({"line " + std::to_string(line.line), std::move(line.key)});
        }
    }
    if (options.keys.empty() && !options.file) {
        std::size_t number = 0;
        for (const CaPublicKey& key : CaKeyTable::builtIn().keys()) {
            keys.push_back({"built-in key " + std::to_string(++number), key});
        }
    }
    return keys;
}

std::string keyText(const NamedKey& named, const std::vector<OdaCheck>& checks) {
    const CaPublicKey& key = named.key;
    std::string out = key.name() + "  " + (key.scheme.empty() ? "" : key.scheme + "  ") + "(" +
                      named.source + "): " + std::string(describe(CaKeyCheck::verdict(checks))) +
                      '\n';
    for (const OdaCheck& check : checks) {
        if (check.ok == true) continue;
        out += "  - " + check.name + (check.ok ? ": " : " not checked: ") + check.detail + '\n';
    }
    return out;
}

CommandOutput runCapk(const CapkOptions& options, const CommandContext& context) {
    const std::vector<NamedKey> named = keysToCheck(options, context.input);
    std::vector<CaPublicKey> keys;
    std::vector<std::string> sources;
    for (const NamedKey& each : named) {
        keys.push_back(each.key);
        sources.push_back(each.source);
    }
    const auto verdicts = CaKeyCheck::checkAll(keys, sources);
    CommandOutput output;
    if (options.json) {
        output.text = CaKeyCheck::toJson(keys, sources, verdicts);
    } else {
        for (std::size_t i = 0; i < named.size(); ++i)
            output.text += keyText(named[i], verdicts[i]);
    }
    if (const std::size_t failed = CaKeyCheck::failures(verdicts); failed > 0) {
        output.error =
            std::to_string(failed) + " of " + std::to_string(named.size()) + " keys failed";
    }
    return output;
}

}  // namespace

Command addCapkCommand(CLI::App& app) {
    auto options = std::make_shared<CapkOptions>();
    auto* parser = app.add_subcommand(
        "capk",
        "Check CA public keys: the published SHA-1 checksum over RID, index, modulus and "
        "exponent, the modulus length, the exponent (3 or 65537), and no index given twice "
        "within a RID. Without keys or a file, checks the built-in table");
    parser->add_option("KEY", options->keys,
                       "A key as 'RID INDEX EXPONENT MODULUS [SHA1 [SCHEME]]', hex fields "
                       "separated by blanks");
    parser->add_option("--file", options->file,
                       "A key file, one key a line, tab-separated: rid, index, exponent, "
                       "modulus, published_sha1, scheme, source ('-' for standard input)");
    parser->add_flag("--json", options->json, "Print one JSON array");
    return {parser, [options](CommandContext& context) { return runCapk(*options, context); }};
}

}  // namespace vastrel::tool
