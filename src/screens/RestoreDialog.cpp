// The configuration reset dialog.
#include "screens/RestoreDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "hostops/SystemReset.h"
#include "screens/MenuTable.h"
#include "ui/DialogSize.h"
#include "ui/RunWindow.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize = {60, 12, 7};
constexpr const char* kRestartHostFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}Restart Host{/color}{/align}";

Confirmation Question(const Frame& parent) {
    return {parent.Text(TextId::ResetSystemConfigurationConfirm), parent.Text(TextId::ResetSystemWarning),
            parent.Text(TextId::ResetSystemQuestion), kF11OkCancelFooter, kF11CancelKeys};
}

} // namespace

RestoreDialog::RestoreDialog(Frame* parent) : ConfirmDialog(parent, kSize, Question(*parent)) {}

bool RestoreDialog::Run() {
    return RunWindow(this) == 1;
}

int RestoreDialog::Foreground() {
    if (static_cast<Answer>(ConfirmDialog::Foreground()) != Answer::Yes)
        return 0;
    ReportSystemReset();
    SetTitle(Text(TextId::ResetSystemConfigurationTitle));
    SetBody(Text(TextId::ResetSystemWait));
    SetFooter("");
    Draw(true);
    Refresh();
    if (!RunSystemReset())
        return 0;

    // The question is answered: a blank area takes its place.
    if (ContentPane() != nullptr)
        ContentPane()->AddChild<TextArea>(0, 0, ContentPane()->Width(), ContentPane()->Height(),
                                          ContentPane()->Foreground(), ContentPane()->Background());
    SetFooter(kRestartHostFooter);
    SetBody(Text(TextId::ResetSystemDone));
    Draw(true);
    Refresh();
    // The configuration is gone: an idle time-out must not end the session before the restart.
    while (GetKey(this, false) != Key::Enter) {
    }
    if (!RestartHostForced())
        return 0;
    WaitForHostDown();
}

void OpenSystemReset(MenuContext& context) {
    RestoreDialog dialog(&context.window);
    dialog.Run();
}

} // namespace Tarn
