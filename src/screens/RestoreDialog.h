// Reset System Configuration: F11 to confirm, the reset with its waiting text, then Enter restarts the host.
#pragma once

#include "ui/ConfirmDialog.h"

namespace Tarn {

class RestoreDialog : public ConfirmDialog {
public:
    // 60 x 12.
    explicit RestoreDialog(Frame* parent);

    // False on Esc, when the reset failed or when the restart could not be started. After a reset and the
    // operator's Enter it does not return: the host goes down and ends the console.
    bool Run();
    // The question, the reset, the restart prompt: 0 on Esc or failure; never returns once the host restarts.
    int Foreground() override;
};

} // namespace Tarn
