// Restart Management Agents: the warning, the choice of a live core of stewd, F11 to go on; then the
// restart's progress in the dialog and Enter to close it.
#pragma once

#include "ui/ConfirmDialog.h"
#include "ui/Item.h"

#include <string>

namespace Tarn {

class TextArea;

class RestartAgentsDialog : public ConfirmDialog {
public:
    // 71 x 20.
    explicit RestartAgentsDialog(Frame* parent);

    // False on Esc; true once the agents were restarted and the operator pressed Enter.
    bool Run();
    // The question, then (after F11) the restart and the wait for Enter: 1 after a restart, 0 on Esc.
    int Foreground() override;

private:
    // Shows the progress in place of the question and the check item.
    void ShowProgress(const std::string& markup);

    CheckItem collect_;
    TextArea* progress_ = nullptr;
};

} // namespace Tarn
