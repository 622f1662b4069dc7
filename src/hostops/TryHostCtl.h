// The common shape of a host-control call whose failure the console only logs: try it, log
// "<action> failed: <message>" at error level, and go on with a default.
#pragma once

#include "core/Log.h"
#include "platform/HostCtlException.h"

#include <utility>

namespace Tarn {

template <class T, class Call> T TryHostCtl(const char* action, Call&& call, T fallback) {
    try {
        return std::forward<Call>(call)();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "%s failed: %s", action, e.what());
        return fallback;
    }
}

// For calls without a result: true when the call went through.
template <class Call> bool TryHostCtl(const char* action, Call&& call) {
    try {
        std::forward<Call>(call)();
        return true;
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "%s failed: %s", action, e.what());
        return false;
    }
}

} // namespace Tarn
