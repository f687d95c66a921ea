// KeyedUnarchiver on any text. Only std::invalid_argument escapes, exactly when the text
// is not a JSON object. Every key then answers as its JSON value says (a string, a bool,
// or present without either), archiving those answers again with KeyedArchiver reads back
// the same, and AID and EMVCAPK decode from the archive without throwing.
#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>

#include "FuzzSupport.hpp"
#include "vastrel/Model/AID.hpp"
#include "vastrel/Model/EMVCAPK.hpp"
#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"

using namespace vastrel;
using namespace vastrel::fuzz;

namespace {

void checkAnswers(const KeyedUnarchiver& archive, const nlohmann::json& object) {
    for (const auto& [key, value] : object.items()) {
        FUZZ_CHECK(archive.containsValueForKey(key));
        FUZZ_CHECK(archive.decodeObjectForKey(key) ==
                   (value.is_string() ? std::optional(value.get<std::string>()) : std::nullopt));
        FUZZ_CHECK(archive.decodeBoolForKey(key) == (value.is_boolean() && value.get<bool>()));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    const auto parsed = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
    std::optional<KeyedUnarchiver> archive;
    try {
        archive.emplace(text);
    } catch (const std::invalid_argument&) {
        FUZZ_CHECK(!parsed.is_object());
        return 0;
    }
    FUZZ_CHECK(parsed.is_object());
    checkAnswers(*archive, parsed);

    KeyedArchiver again;
    nlohmann::json expected = nlohmann::json::object();
    for (const auto& [key, value] : parsed.items()) {
        if (value.is_boolean()) {
            again.encodeBool(archive->decodeBoolForKey(key), key);
            expected[key] = value;
        } else {
            again.encodeObject(archive->decodeObjectForKey(key), key);
            expected[key] = value.is_string() ? value : nlohmann::json();
        }
    }
    const KeyedUnarchiver reread(again.data());
    checkAnswers(reread, expected);

    const AID aid(*archive);
    FUZZ_CHECK(!aid.rid() && !aid.pix() && !aid.label() && !aid.preferredName());
    const EMVCAPK key(*archive);
    FUZZ_CHECK(!key.productionKey() && !key.checksum());
    return 0;
}
