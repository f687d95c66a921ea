#include "vastrel/Platform/Log.hpp"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <memory>
#include <mutex>
#include <string>

namespace vastrel::log {
namespace {

void writeToStderr(std::string_view text) {
    using Clock = std::chrono::system_clock;
    const auto now = Clock::now();
    const auto wholeSecond = std::chrono::floor<std::chrono::seconds>(now);
    const std::time_t seconds = Clock::to_time_t(wholeSecond);
    const auto millis =
        std::chrono::duration_cast<std::chrono::milliseconds>(now - wholeSecond).count();
    std::tm local{};
    localtime_r(&seconds, &local);
    char stamp[32];
    const std::size_t stampLength = std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &local);

    std::string line;
    line.reserve(stampLength + text.size() + 16);
    line.append(stamp, stampLength);
    char fraction[8];
    std::snprintf(fraction, sizeof fraction, ".%03d", static_cast<int>(millis));
    line.append(fraction);
    line.append(" vastrel: ");
    line.append(text);
    line.push_back('\n');
    // One fwrite per line keeps lines from concurrent threads whole.
    std::fwrite(line.data(), 1, line.size(), stderr);
}

struct State {
    std::mutex mutex;
    std::shared_ptr<const Handler> handler;
    std::atomic<bool> enabled{true};
    std::atomic<bool> maskSensitiveData{true};
};

State& state() {
    static State instance;
    return instance;
}

}  // namespace

void setHandler(Handler handler) {
    auto replacement = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
    State& s = state();
    const std::lock_guard lock(s.mutex);
    s.handler = std::move(replacement);
}

void write(std::string_view text) {
    State& s = state();
    if (!s.enabled.load(std::memory_order_relaxed)) return;
    std::shared_ptr<const Handler> handler;
    {
        const std::lock_guard lock(s.mutex);
        handler = s.handler;
    }
    // The handler runs outside the lock, so it may itself log or replace the handler.
    if (handler) {
        (*handler)(text);
    } else {
        writeToStderr(text);
    }
}

void setEnabled(bool enabled) noexcept {
    state().enabled.store(enabled, std::memory_order_relaxed);
}

bool enabled() noexcept { return state().enabled.load(std::memory_order_relaxed); }

void setMaskSensitiveData(bool mask) noexcept {
    state().maskSensitiveData.store(mask, std::memory_order_relaxed);
}

bool masksSensitiveData() noexcept {
    return state().maskSensitiveData.load(std::memory_order_relaxed);
}

}  // namespace vastrel::log
