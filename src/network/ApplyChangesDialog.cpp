// The apply question of the management network window.
#include "network/ApplyChangesDialog.h"

#include "ui/TextIds.h"
#include "ui/Window.h"

namespace Tarn {

Answer ApplyChangesDialog::Ask() {
    const Frame& f = *parent_;
    ConfirmDialog confirm(
        parent_, {72, 14, 9},
        {f.Text(TextId::ConfigureManagementNetworkConfirm), f.Text(TextId::NetworkChangesWarning),
         f.Text(reboot_ ? TextId::ApplyAndRebootQuestion : TextId::ApplyAndRestartNetworkQuestion),
         kYesNoCancelFooter, kYesNoCancelKeys});
    return confirm.Ask();
}

} // namespace Tarn
