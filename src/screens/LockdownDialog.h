// Asks whether lockdown mode should be on: one check box showing the host's state. The caller changes the
// host (ApplyLockdownChange) with the answer.
#pragma once

#include "ui/FormDialog.h"
#include "ui/Item.h"

namespace Tarn {

class LockdownDialog : public FormDialog {
public:
    LockdownDialog(Frame* parent, bool lockdownEnabled);

    // The box's state after Enter; nothing after Esc.
    std::optional<bool> Ask();

private:
    CheckItem check_;
};

} // namespace Tarn
