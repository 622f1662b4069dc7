// The confirm dialogs of a shut-down and a restart: they stop the virtual machines, run the power command
// and stay on screen until the host ends the console.
#pragma once

namespace Tarn {

class Frame;

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

// Shows the action's "in progress" dialog, stops the virtual machines (`softStop`: by their shutdown policy
// instead of forcing them off) and starts the power command. Returns only when the command could not be
// started; otherwise the dialog stays, deaf to keys and without idle time-out, until the host ends the
// console.
void RunPowerConfirm(Frame* parent, const PowerAction& action, bool softStop);

} // namespace Tarn
