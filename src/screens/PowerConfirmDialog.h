// The confirm dialogs of a shut-down and a restart: they stop the virtual machines, run the power command
// and stay on screen until the host ends the console.
#pragma once

#include "ui/Window.h"

namespace Tarn {

// What one power action shows, logs and runs.
struct PowerAction {
    const char* logText;     // system log, informational
    const char* event;       // observation event
    unsigned titleId;        // confirm dialog title
    unsigned textId;         // confirm dialog text
    const char* program;     // host path of the power command
    const char* programName; // argv[0]
};

extern const PowerAction kShutdownAction;
extern const PowerAction kRebootAction;

class PowerConfirmDialog : public Dialog {
public:
    // `softStop`: let the virtual machines shut down by policy instead of forcing them off.
    PowerConfirmDialog(Frame* parent, const PowerAction& action, bool softStop);

    // 0 when the power command could not be started; otherwise it does not return.
    int Foreground() override;

    bool SoftStop() const { return softStop_; }

private:
    const PowerAction& action_;
    bool softStop_;
};

// The restart the network window offers after an IPv6 change.
class RebootConfirmDialog : public PowerConfirmDialog {
public:
    RebootConfirmDialog(Frame* parent, bool softStop) : PowerConfirmDialog(parent, kRebootAction, softStop) {}
};

} // namespace Tarn
