// Shut down or restart the host, optionally forcing running virtual machines off.
#pragma once

#include "ui/FormDialog.h"
#include "ui/Item.h"

namespace Tarn {

struct PowerAction;

class ShutdownDialog : public FormDialog {
public:
    explicit ShutdownDialog(Frame* parent);

private:
    // F2 shuts down, F11 restarts; Enter means nothing here.
    FormKey OnKey(int key);
    // Logs and reports the action, then runs its confirm dialog; the dialog stays open if the power command
    // could not be started.
    void PowerOff(const PowerAction& action);

    CheckItem terminate_;
};

} // namespace Tarn
