// The shut-down dialog: F2 shuts down, F11 restarts, Space chooses whether running virtual machines are
// forced off. The action is logged and reported before its confirm dialog runs, so that it is on record
// even when the power command cannot be started.
#include "screens/ShutdownDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Report.h"
#include "screens/PowerConfirmDialog.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize{70, 17, 12};

constexpr const char* kFooter =
    "{color:black}<F2>{/color} {color:dark-grey}Shut Down{/color}  {color:black}<F11>{/color} "
    "{color:dark-grey}Restart{/color}{align:right}{color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}"
    "{/align}";

const char* Catalogue(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

ShutdownDialog::ShutdownDialog(Frame* parent)
    : FormDialog(parent, kSize, Catalogue(TextId::ShutDownRestartTitle),
                 Catalogue(TextId::ShutdownDialogBody), kFooter),
      terminate_(Catalogue(TextId::ForceTerminateVms), false) {
    SetItems({&terminate_});
    SetKeyHook([this](int key) { return OnKey(key); });
}

FormKey ShutdownDialog::OnKey(int key) {
    if (key == Key::F(2))
        PowerOff(kShutdownAction);
    else if (key == Key::F(11))
        PowerOff(kRebootAction);
    else if (key != Key::Enter)
        return FormKey::Unused;
    return FormKey::Used;
}

void ShutdownDialog::PowerOff(const PowerAction& action) {
    Log(LOG_INFO, "%s", action.logText);
    ReportEvent(action.event);
    // Virtual machines are left to the shutdown policy unless the check item asks to force them off.
    RunPowerConfirm(this, action, !terminate_.Checked());
}

} // namespace Tarn
