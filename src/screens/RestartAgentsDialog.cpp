// The agent restart dialog: the question, then the restart with its progress.
#include "screens/RestartAgentsDialog.h"

#include "core/EventLoop.h"
#include "hostops/AgentRestart.h"
#include "ui/DialogSize.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize = {71, 20, 10};

Confirmation Question(const Frame& parent) {
    return {parent.Text(TextId::RestartAgentsConfirm), parent.Text(TextId::RestartAgentsWarning),
            parent.Text(TextId::RestartAgentsQuestion), kF11OkCancelFooter, kF11CancelKeys};
}

} // namespace

RestartAgentsDialog::RestartAgentsDialog(Frame* parent)
    : ConfirmDialog(parent, kSize, Question(*parent)),
      collect_(Text(TextId::CollectTroubleshootingInfo), false) {
    SetItems({&collect_});
}

void RestartAgentsDialog::ShowProgress(const std::string& markup) {
    if (progress_ == nullptr && ContentPane() != nullptr)
        progress_ =
            ContentPane()->AddChild<TextArea>(0, 0, ContentPane()->Width(), ContentPane()->Height(),
                                              ContentPane()->Foreground(), ContentPane()->Background());
    if (progress_ != nullptr)
        progress_->SetText(markup);
    Draw(true);
    Refresh();
}

bool RestartAgentsDialog::Run() {
    return RunWindow(this) == 1;
}

int RestartAgentsDialog::Foreground() {
    if (static_cast<Answer>(ConfirmDialog::Foreground()) != Answer::Yes)
        return 0;
    SetFooter("");
    const AgentRestartTexts texts = {Text(TextId::CollectingLiveCore), Text(TextId::StoppingManagementAgents),
                                     Text(TextId::StartingManagementAgents), Text(TextId::Done)};
    RestartAgents(collect_.Checked(), texts, [this](const std::string& progress) { ShowProgress(progress); });
    SetFooter(kEnterOkFooter);
    Draw(true);
    Refresh();
    WaitForEnter(this);
    return 1;
}

} // namespace Tarn
