#include <mutex>
#include <shared_mutex>
#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Platform/Log.hpp"

using namespace vastrel;
using namespace vastrel::capi;

namespace {

// The app's callback. Lines are handed to it under a shared lock and it is replaced under an
// exclusive one, so that replacing it waits for every call in flight: once
// vastrel_set_log_callback returns, the old callback and its context are never used again.
struct LogRoute {
    std::shared_mutex mutex;
    vastrel_log_callback callback = nullptr;
    void* context = nullptr;
};

LogRoute& route() {
    static LogRoute instance;
    return instance;
}

// Set while this thread runs the callback: a line logged from inside it is dropped rather
// than taking the lock again, and the callback may not replace itself.
thread_local bool insideCallback = false;

void deliver(std::string_view line) {
    if (insideCallback) return;
    LogRoute& r = route();
    const std::shared_lock lock(r.mutex);
    if (r.callback == nullptr) return;
    const std::string terminated(line);
    insideCallback = true;
    r.callback(r.context, terminated.c_str(), terminated.size());
    insideCallback = false;
}

// The library logs nothing until the app asks for its lines. This shared library holds its
// own copy of the core, so these settings are its own.
const bool kSilentAtLoad = [] {
    log::setEnabled(false);
    log::setHandler(deliver);
    return true;
}();

}  // namespace

extern "C" {

vastrel_status vastrel_set_log_callback(vastrel_log_callback callback, void* context) {
    if (insideCallback) {
        return fail(VASTREL_ERROR_INVALID_ARGUMENT,
                    "vastrel_set_log_callback was called from inside the log callback");
    }
    LogRoute& r = route();
    {
        const std::unique_lock lock(r.mutex);
        r.callback = callback;
        r.context = callback != nullptr ? context : nullptr;
        log::setEnabled(callback != nullptr);
    }
    return VASTREL_OK;
}

}  // extern "C"
