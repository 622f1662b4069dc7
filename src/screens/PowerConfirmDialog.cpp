// Power confirm dialogs: a notice on the dialog kit, with VM stop and the power command once it shows.
#include "screens/PowerConfirmDialog.h"

#include "core/Report.h"
#include "hostops/Command.h"
#include "hostops/KelpCmd.h"
#include "ui/ConfirmDialog.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {

const PowerAction kShutdownAction = {"Shutting down host",       kEventShutdownHost, TextId::ShutDownHost,
                                     TextId::ShutdownInProgress, "/sbin/poweroff",   "poweroff"};
const PowerAction kRebootAction = {"Rebooting host",          kEventRebootHost, TextId::RestartHost,
                                   TextId::RestartInProgress, "/sbin/reboot",   "reboot"};

void RunPowerConfirm(Frame* parent, const PowerAction& action, bool softStop) {
    const StringFactory* strings = StringFactory::Get("en_US");
    // No answer keys and no idle time-out: the host is going down and ends the console; until then keys
    // mean nothing, and no time-out may log the user out in the middle of it.
    ConfirmDialog notice(
        parent, {strings->GetString(action.titleId), strings->GetString(action.textId), "", "", {}, false});
    notice.SetWhenShown([&] {
        StopAllVirtualMachines(softStop);
        return Run({action.program, {action.programName}}).exitCode != -1;
    });
    notice.Ask();
}

} // namespace Tarn
