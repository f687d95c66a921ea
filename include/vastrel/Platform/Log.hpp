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

}  // namespace vastrel::log
