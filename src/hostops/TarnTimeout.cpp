// Reading and writing the console's idle time-out option.
#include "hostops/TarnTimeout.h"

#include "core/EventLoop.h"
#include "core/IdleDeadline.h"
#include "core/Log.h"
#include "hostops/TimeoutValue.h"
#include "platform/AdvancedOptions.h"
#include "platform/HostCtlException.h"

namespace Tarn {
namespace {
constexpr const char* kTarnTimeoutOption = "/UserVars/TarnTimeOut";
}

long GetTarnTimeout() {
    try {
        TesCtl::Adv::AdvancedOptionImpl options;
        auto option = options.FindOption(kTarnTimeoutOption);
        return IdleTimeoutFromOption(option.get());
    } catch (const HostCtl::Lib::HostCtlException&) {
        return kDefaultIdleTimeoutSeconds;
    }
}

void SetTarnTimeout(long seconds) {
    try {
        TesCtl::Adv::AdvancedOptionImpl options;
        if (options.FindOption(kTarnTimeoutOption) != nullptr)
            options.SetIntegerOption(kTarnTimeoutOption, seconds);
    } catch (const HostCtl::Lib::HostCtlException&) {
    }
}

void ApplyTarnTimeout(long minutes) {
    SetTarnTimeout(SecondsFromMinutes(minutes));
    LoadIdleTimeout();
    if (minutes == 0)
        Log(LOG_INFO, "Disabled Tarn timeout");
    else
        Log(LOG_INFO, "Modified Tarn timeout to %d minutes", static_cast<int>(minutes));
}

} // namespace Tarn
