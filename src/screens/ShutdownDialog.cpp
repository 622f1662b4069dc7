// The shut-down dialog: F2 shuts down, F11 restarts, Space chooses whether running virtual machines are
// forced off. The action is logged and reported before its confirm dialog runs, so that it is on record
// even when the power command cannot be started.
#include "screens/ShutdownDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Report.h"
#include "screens/PowerConfirmDialog.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr int kWidth = 70;
constexpr int kHeight = 17;
constexpr int kSplitRow = 12;

constexpr const char* kFooter =
    "{color:black}<F2>{/color} {color:dark-grey}Shut Down{/color}  {color:black}<F11>{/color} "
    "{color:dark-grey}Restart{/color}{align:right}{color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}"
    "{/align}";

} // namespace

ShutdownDialog::ShutdownDialog(Frame* parent)
    : Dialog(parent, kWidth, kHeight, kSplitRow),
      terminate_(std::make_unique<CheckItem>(Text(TextId::ForceTerminateVms), false)) {
    SetTitle(Text(TextId::ShutDownRestartTitle));
    SetBody(Text(TextId::ShutdownDialogBody));
    SetFooter(kFooter);
    if (content_ != nullptr) {
        list_ = content_->AddChild<ItemList>(0, 0, content_->Width(), content_->Height());
        list_->SetItems({terminate_.get()});
    }
}

ShutdownDialog::~ShutdownDialog() = default;

int ShutdownDialog::Foreground() {
    for (;;) {
        const int key = GetKey(this, true);
        if (key == Key::Space) {
            terminate_->SetChecked(!terminate_->Checked());
            if (list_ != nullptr)
                list_->Draw();
        } else if (key == Key::F(2)) {
            Announce(kShutdownAction);
            ShutdownConfirmDialog confirm(this, SoftStop());
            RunWindow(&confirm);
        } else if (key == Key::F(11)) {
            Announce(kRebootAction);
            RebootConfirmDialog confirm(this, SoftStop());
            RunWindow(&confirm);
        } else if (key == Key::Escape) {
            return 0;
        }
    }
}

void ShutdownDialog::Announce(const PowerAction& action) {
    Log(LOG_INFO, "%s", action.logText);
    ReportEvent(action.event);
}

bool ShutdownDialog::SoftStop() const {
    return !terminate_->Checked();
}

} // namespace Tarn
