// Restore Standard Switch: the F11 question before the management network is moved.
#include "restore/RestoreDialogs.h"
#include "restore/StandardSwitchRestore.h"
#include "ui/ConfirmDialog.h"
#include "ui/TextIds.h"

namespace Tarn {

bool SafeModeNetworkDialog(Frame* parent) {
    // Two blanks before the Esc key, like every F11/Esc footer.
    ConfirmDialog confirm(
        parent, {60, 12, 7},
        {parent->Text(TextId::RestoreStandardSwitchTitle), parent->Text(TextId::RestoreStandardSwitchBody),
         parent->Text(TextId::RestoreStandardSwitchQuestion), kF11OkCancelFooter, kF11CancelKeys});
    if (confirm.Ask() != Answer::Yes)
        return false;
    MoveManagementToStandardSwitch();
    return true;
}

} // namespace Tarn
