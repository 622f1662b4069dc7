// Factory network restore dialogs: the F11 question, the running-VMs warning and the progress.
#include "core/EventLoop.h"
#include "restore/FactoryRestore.h"
#include "restore/RestoreDialogs.h"
#include "ui/ConfirmDialog.h"
#include "ui/ProgressDialog.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kResetFooter =
    "{color:black}<F11>{/color} {color:dark-grey}Yes, Reset{/color}{align:right}{color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";
constexpr const char* kConfirmFooter =
    "{color:black}<Enter>{/color} {color:dark-grey}Confirm{/color}{align:right}{color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";
constexpr const char* kEnterOk =
    "{align:right}{color:black}<Enter>{/color}{color:dark-grey} OK{/color}{/align}";

bool RunningVMsWarningDialog(Frame* parent) {
    ConfirmDialog warning(parent, {60, 10, 6},
                          {parent->Text(TextId::VmsRunningWarning), parent->Text(TextId::VmsRunningQuestion),
                           "", kConfirmFooter, kEnterCancelKeys});
    return warning.Ask() == Answer::Yes;
}

// The progress of the restore; closes at once, without waiting for Enter, when the operator keeps the
// running machines.
class DoRestoreNetworkDialog : public ProgressDialog {
public:
    explicit DoRestoreNetworkDialog(Frame* parent)
        : ProgressDialog(parent, {60, 12, 6}, parent->Text(TextId::RestoreNetworkSettingsTitle),
                         parent->Text(TextId::RestoreFactoryWait), nullptr) {}

    int Foreground() override {
        ProgressOn<ProgressDialog> sink(*this);
        if (!RunFactoryRestore(Strings(), sink, [this] { return RunningVMsWarningDialog(this); }))
            return 0;
        SetFooter(kEnterOk);
        FooterArea()->Draw(true);
        WaitForEnter(this);
        return 1;
    }
};

} // namespace

bool RestoreNetworkDialog(Frame* parent) {
    ConfirmDialog confirm(parent, {60, 12, 6},
                          {parent->Text(TextId::RestoreNetworkFactorySettings),
                           parent->Text(TextId::RestoreFactoryHelp),
                           parent->Text(TextId::RestoreFactoryQuestion), kResetFooter, kF11CancelKeys});
    if (confirm.Ask() != Answer::Yes)
        return false;
    DoRestoreNetworkDialog progress(parent);
    if (RunWindow(&progress) == 0)
        return false; // declined at the running-VMs warning: nothing changed, nothing to report
    ReportFactoryRestore();
    return true;
}

} // namespace Tarn
