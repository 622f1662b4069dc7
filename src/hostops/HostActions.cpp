// Lockdown, keyboard layout and configuration saving as host actions.
#include "hostops/HostActions.h"

#include "core/Log.h"
#include "hostops/Accounts.h"
#include "hostops/Command.h"
#include "hostops/TryHostCtl.h"
#include "platform/SystemInfo.h"

namespace Tarn {

bool ApplyLockdownChange(LockdownChange change) {
    if (change == LockdownChange::None)
        return false;
    const LockdownCommand& command = CommandFor(change);
    const CommandResult result =
        Run({"/bin/kelp-cmd", {"kelp-cmd", "-U", kServiceAccount, command.command}, true});
    if (!result.Succeeded()) {
        const std::string text = LockdownFailureText(result.out, result.err);
        // The formats come from the lockdown command table; each holds exactly one %s.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        Log(LOG_ERR, command.failedFormat, text.c_str());
#pragma GCC diagnostic pop
        return false;
    }
    Log(LOG_INFO, "%s", command.succeededText);
    return true;
}

bool ChangeKeyboardLayout(const std::string& layout) {
    const bool changed = TryHostCtl("Changing keyboard layout", [&] {
        TesCtl::System::SystemInfoImpl info;
        info.LoadKeyboardMappings(layout);
        info.SetKeyboardLayout(layout);
    });
    if (changed)
        Log(LOG_INFO, "Keyboard Layout changed to %s", layout.c_str());
    return changed;
}

void SaveHostConfiguration() {
    Run({"/sbin/cfgsave.sh", {"cfgsave.sh", "0"}});
}

} // namespace Tarn
