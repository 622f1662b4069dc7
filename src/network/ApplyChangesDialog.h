// The question asked when the management network window is left with pending changes.
#pragma once

#include "ui/ConfirmDialog.h"

namespace Tarn {

class Frame;

class ApplyChangesDialog {
public:
    // `reboot`: the IPv6 switch changed, so applying restarts the host.
    ApplyChangesDialog(Frame* parent, bool reboot) : parent_(parent), reboot_(reboot) {}
    // Yes (Y/y), No (N/n) or Cancel (Esc).
    Answer Ask();

private:
    Frame* parent_;
    bool reboot_;
};

} // namespace Tarn
