#pragma once

#include <functional>
#include <string_view>

// The library's log. Every line Vastrel writes goes through write(); an application
// installs its own handler to route the lines into its logging system.
namespace vastrel::log {

using Handler = std::function<void(std::string_view)>;

// Installs the process-wide handler. nullptr restores the default handler, which writes
// each line to stderr with a timestamp and the prefix "vastrel". Thread-safe.
void setHandler(Handler handler);

// Hands one line to the installed handler, unless logging is disabled. Thread-safe.
void write(std::string_view text);

// Turns logging on (the default) or off for the whole process. While it is off, write()
// does nothing and code that builds costly log lines skips building them.
void setEnabled(bool enabled) noexcept;

// True when write() would hand a line to the handler.
[[nodiscard]] bool enabled() noexcept;

// Turns masking of card data in the library's log lines on (the default) or off for the
// whole process. While it is on, lines that carry EMV values (the decoder's summaries)
// show card numbers, track data, cardholder names and PIN blocks only as
// SensitiveData::maskedValue does. Turn it off only for a diagnostic session on test
// cards: the lines then hold the data in full.
void setMaskSensitiveData(bool mask) noexcept;

// True while the library's log lines mask card data.
[[nodiscard]] bool masksSensitiveData() noexcept;

}  // namespace vastrel::log
