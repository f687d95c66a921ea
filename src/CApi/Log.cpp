#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Platform/Log.hpp"

using namespace vastrel;
using namespace vastrel::capi;

extern "C" {

vastrel_status vastrel_set_log_callback(vastrel_log_callback callback, void* context) {
    return guarded([&] {
        if (callback == nullptr) {
            log::setHandler(nullptr);
        } else {
            log::setHandler([callback, context](std::string_view line) {
                const std::string terminated(line);
                callback(context, terminated.c_str(), terminated.size());
            });
        }
        return VASTREL_OK;
    });
}

vastrel_status vastrel_set_logging_enabled(int enabled) {
    log::setEnabled(enabled != 0);
    return VASTREL_OK;
}

}  // extern "C"
