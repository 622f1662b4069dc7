// The tasks the System Customization menu opens: each runs its dialog on top of the menu.
#include "core/EventLoop.h"
#include "core/Log.h"
#include "core/Session.h"
#include "hostops/HostActions.h"
#include "network/NetworkAccess.h"
#include "network/NetworkWindow.h"
#include "network/RestartNetworkDialog.h"
#include "network/TestDialog.h"
#include "platform/HostCtlException.h"
#include "restore/NetworkRestoreWindow.h"
#include "screens/ChangePasswordDialog.h"
#include "screens/KeyboardDialog.h"
#include "screens/LockdownDialog.h"
#include "screens/MenuTable.h"
#include "screens/PowerConfirmDialog.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {

void OpenPasswordChange(MenuContext& context) {
    ChangePasswordDialog dialog(&context.window);
    if (RunWindow(&dialog) == 1)
        SetEmptyPassword(false);
}

void OpenLockdown(MenuContext& context) {
    const bool enabled = context.facts.lockdown == LockdownState::Enabled;
    LockdownDialog dialog(&context.window, enabled);
    if (std::optional<bool> wanted = dialog.Ask())
        ApplyLockdownChange(DecideLockdownChange(*wanted, enabled));
}

void OpenNetworkWindow(MenuContext& context) {
    // An IPv6 change takes effect at the next boot: offer the restart, letting the virtual machines stop.
    NetworkWindow window(&context.window,
                         [](Frame* parent) { RunPowerConfirm(parent, kRebootAction, true); });
    if (window.Outcome() == OpenOutcome::NoInterface) {
        MessageDialog message(&context.window, TextId::EnableManagementNetworkError,
                              context.window.Text(TextId::ManagementInterfaceNotFound));
        RunWindow(&message);
    } else if (window.Outcome() == OpenOutcome::Ready) {
        RunWindow(&window);
    }
}

void OpenRestartManagementNetwork(MenuContext& context) {
    RunRestartManagementNetwork(&context.window);
}

void OpenTestManagementNetwork(MenuContext& context) {
    RunTestManagementNetwork(&context.window);
}

void OpenNetworkRestoreOptions(MenuContext& context) {
    NetworkRestoreWindow window(&context.window);
    RunWindow(&window);
}

void OpenKeyboard(MenuContext& context) {
    ChooseKeyboardLayout(&context.window);
}

} // namespace Tarn
