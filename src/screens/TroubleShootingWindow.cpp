// The troubleshooting window: one table of entries, the toggles and the dialogs they open.
#include "screens/TroubleShootingWindow.h"

#include "core/EventLoop.h"
#include "hostops/ServiceToggle.h"
#include "screens/MenuTable.h"
#include "screens/RestartAgentsDialog.h"
#include "screens/ShellTimeoutDialog.h"
#include "screens/TarnTimeoutDialog.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kChangeFooter =
    "{color:white}<Enter>{/color}{color:light-grey} Change{/color}{align:right}"
    "{color:white}<Esc>{/color}{color:light-grey} Exit{/color}{/align}";
constexpr const char* kRestartFooter =
    "{color:white}<Enter>{/color}{color:light-grey} Restart{/color}"
    "{align:right}{color:white}<Esc>{/color}{color:light-grey} Exit{/color}{/align}";

enum Entry { kShell, kSsh, kShellTimeouts, kTarnTimeout, kRestartAgents };

} // namespace

TroubleShootingWindow::TroubleShootingWindow(Frame* parent)
    : ListSummaryWindow(
          parent, parent->Text(TextId::TroubleshootingModeOptions),
          WidestText(*parent, {TextId::EnableCorlaShell, TextId::DisableCorlaShell, TextId::EnableSsh,
                               TextId::DisableSsh, TextId::ModifyCorlaShellSshTimeouts,
                               TextId::ModifyTarnIdleTimeout, TextId::RestartManagementAgents})) {
    ReadStates();
    SetEntries(Entries());
}

void TroubleShootingWindow::ReadStates() {
    shellEnabled_ = ServiceEnabled(Service::CorlaShell);
    sshEnabled_ = ServiceEnabled(Service::SSH);
}

std::vector<SummaryEntry> TroubleShootingWindow::Entries() const {
    return {{Text(shellEnabled_ ? TextId::DisableCorlaShell : TextId::EnableCorlaShell)},
            {Text(sshEnabled_ ? TextId::DisableSsh : TextId::EnableSsh)},
            {Text(TextId::ModifyCorlaShellSshTimeouts)},
            {Text(TextId::ModifyTarnIdleTimeout)},
            {Text(TextId::RestartManagementAgents)}};
}

SummaryPane TroubleShootingWindow::Pane(int index) {
    auto state = [this](unsigned line, unsigned help) {
        return "{color:white}" + std::string(Text(line)) + "{/color}\n\n" + Text(help);
    };
    const std::vector<SummaryEntry> entries = Entries();
    SummaryPane pane{index >= 0 ? entries[index].label : "", "", kChangeFooter};
    switch (index) {
    case kShell:
        pane.body = state(shellEnabled_ ? TextId::CorlaShellEnabled : TextId::CorlaShellDisabled,
                          TextId::ChangeCorlaShellState);
        break;
    case kSsh:
        pane.body = state(sshEnabled_ ? TextId::SshEnabled : TextId::SshDisabled, TextId::ChangeSshState);
        break;
    case kShellTimeouts:
        pane.body = Text(TextId::ShellTimeoutsHelp);
        break;
    case kTarnTimeout:
        pane.body = Text(TextId::IdleTimeoutHelp);
        break;
    case kRestartAgents:
        pane.body = Text(TextId::RestartAgentsHelp);
        pane.footer = kRestartFooter;
        break;
    default:
        break;
    }
    return pane;
}

bool TroubleShootingWindow::Open(int index) {
    // Only the toggles change what the window shows; the dialogs leave it as it was.
    switch (index) {
    case kShell:
        ToggleService(Service::CorlaShell, !shellEnabled_);
        return true;
    case kSsh:
        ToggleService(Service::SSH, !sshEnabled_);
        return true;
    case kShellTimeouts:
        ChangeShellTimeouts(*this);
        return false;
    case kTarnTimeout:
        ChangeTarnTimeout(*this);
        return false;
    case kRestartAgents: {
        RestartAgentsDialog dialog(this);
        dialog.Run();
        return false;
    }
    default:
        return false;
    }
}

void TroubleShootingWindow::Reload() {
    // The toggles' titles follow the new state; the cursor stays on the entry that ran.
    const int selected = Selected();
    ReadStates();
    SetEntries(Entries());
    List()->FocusItem(selected);
    ComposePane();
}

void OpenTroubleshooting(MenuContext& context) {
    TroubleShootingWindow window(&context.window);
    RunWindow(&window);
}

} // namespace Tarn
