// Asks whether a new password that equals the old one is really meant.
#pragma once

#include "ui/DialogSize.h"
#include "ui/Window.h"

namespace Tarn {

class SamePasswordConfirmDialog : public Dialog {
public:
    explicit SamePasswordConfirmDialog(Frame* parent);
    // 1 for Enter (confirmed), 0 for Esc.
    int Foreground() override;
    bool Run() { return Foreground() != 0; }

private:
    SamePasswordConfirmDialog(Frame* parent, DialogSize size);
};

} // namespace Tarn
