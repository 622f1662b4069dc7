// Power confirm dialogs: "in progress" text, VM stop, the power command through the runner, then waiting.
#include "screens/PowerConfirmDialog.h"

#include "core/EventLoop.h"
#include "core/Report.h"
#include "core/Terminal.h"
#include "hostops/Command.h"
#include "hostops/KelpCmd.h"
#include "ui/DialogSize.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <string>

namespace Tarn {
namespace {

DialogSize SizeFor(const PowerAction& action) {
    const StringFactory* strings = StringFactory::Get("en_US");
    return MessageDialogSize(strings->GetString(action.titleId), strings->GetString(action.textId),
                             ScreenColumns(), ScreenLines());
}

} // namespace

const PowerAction kShutdownAction = {"Shutting down host",       kEventShutdownHost, TextId::ShutDownHost,
                                     TextId::ShutdownInProgress, "/sbin/poweroff",   "poweroff"};
const PowerAction kRebootAction = {"Rebooting host",          kEventRebootHost, TextId::RestartHost,
                                   TextId::RestartInProgress, "/sbin/reboot",   "reboot"};

PowerConfirmDialog::PowerConfirmDialog(Frame* parent, const PowerAction& action, bool softStop)
    : Dialog(parent, SizeFor(action).width, SizeFor(action).height, SizeFor(action).splitRow),
      action_(action), softStop_(softStop) {
    SetTitle(Text(action.titleId));
    SetBody(Text(action.textId));
}

int PowerConfirmDialog::Foreground() {
    StopAllVirtualMachines(softStop_);

    if (Run({action_.program, {action_.programName}}).exitCode == -1)
        return 0;
    // The host is going down and ends the console; until then keys mean nothing, and no idle time-out
    // may log the user out in the middle of it.
    for (;;)
        GetKey(this, false);
}

} // namespace Tarn
