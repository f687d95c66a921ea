#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vastrel/Codec/TLVObject.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Platform/Log.hpp"

namespace vastrel::testing {

// Collects every log line while alive, then restores the default handler.
class LogCapture {
  public:
    LogCapture() {
        log::setHandler([this](std::string_view line) { lines_.emplace_back(line); });
    }
    ~LogCapture() { log::setHandler(nullptr); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    const std::vector<std::string>& lines() const { return lines_; }

  private:
    std::vector<std::string> lines_;
};

// Bytes as hex, so mismatches print readably.
inline std::string hex(std::span<const std::uint8_t> bytes) {
    return TLVUtility::dataToHexString(bytes);
}

// One element as "tag:length:value", with its children in braces when it has any
// ("70:10:5A08...{5A:8:...}"), so decoded trees compare as short texts.
inline std::string render(const TLVObject& object) {
    std::string out = object.tag().value_or("<absent>") + ":" +
                      object.length().value_or("<absent>") + ":" +
                      object.value().value_or("<absent>");
    if (const auto& children = object.innerTlvs()) {
        out += "{";
        for (std::size_t i = 0; i < children->size(); ++i) {
            if (i > 0) out += ' ';
            out += render((*children)[i]);
        }
        out += "}";
    }
    return out;
}

inline std::vector<std::string> render(const std::optional<std::vector<TLVObject>>& objects) {
    std::vector<std::string> out;
    if (!objects) return {"<absent>"};
    for (const TLVObject& object : *objects)
        out.push_back(render(object));
    return out;
}

}  // namespace vastrel::testing
