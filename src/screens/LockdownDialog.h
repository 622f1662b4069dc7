// Lockdown mode on or off through the management command tool.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class LockdownDialog : public Dialog {
public:
    LockdownDialog(Frame* parent, bool lockdownEnabled);
    ~LockdownDialog() override;
    // 1 after Enter (whatever the command's outcome), 0 after Esc.
    int Foreground() override;
};

} // namespace Tarn
