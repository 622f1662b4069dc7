// The configuration reset's commands.
#include "hostops/SystemReset.h"

#include "core/Log.h"
#include "core/Report.h"
#include "hostops/CommandRunner.h"
#include "platform/HostRoot.h"

namespace Tarn {

void ReportSystemReset() {
    Log(LOG_INFO, "Restoring factory defaults");
    ReportEvent(kEventRestoreFactoryDefaults);
}

bool RunSystemReset() {
    return RunShellCommand(Platform::HostPath("/sbin/resetCfg.py") + " --reset-only > /dev/null 2>&1") == 0;
}

bool RestartHostForced() {
    return RunShellCommand(Platform::HostPath("/sbin/reboot") + " -f") != -1;
}

} // namespace Tarn
