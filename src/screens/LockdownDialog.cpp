// The lockdown dialog: one check box; Enter runs kelp-cmd as the service account only when the box no
// longer shows the host's state. Failures are logged, not shown: the menu re-reads the state afterwards.
#include "screens/LockdownDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "hostops/Accounts.h"
#include "hostops/CommandRunner.h"
#include "platform/HostRoot.h"
#include "screens/LockdownChange.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextIds.h"

#include <string>

namespace Tarn {
namespace {

constexpr int kWidth = 60;
constexpr int kHeight = 11;
constexpr int kSplitRow = 6;

constexpr const char* kFooter =
    "{color:black}<Space>{/color} {color:dark-grey}Toggle "
    "Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

// What the tool wrote, cut at the returned length (a read error leaves nothing).
std::string Captured(const char* buffer, int32_t length) {
    return length > 0 ? std::string(buffer, static_cast<size_t>(length)) : std::string();
}

} // namespace

LockdownDialog::LockdownDialog(Frame* parent, bool lockdownEnabled)
    : Dialog(parent, kWidth, kHeight, kSplitRow), enabled_(lockdownEnabled),
      check_(std::make_unique<CheckItem>(Text(TextId::EnableLockdownMode), lockdownEnabled)) {
    SetTitle(Text(TextId::ConfigureLockdownModeTitle));
    SetBody(Text(TextId::LockdownDialogBody));
    SetFooter(kFooter);
    if (content_ != nullptr) {
        list_ = content_->AddChild<ItemList>(0, 0, content_->Width(), content_->Height());
        list_->SetItems({check_.get()});
    }
}

// The list is a child window and goes with the dialog; the item outlives it only by this destructor.
LockdownDialog::~LockdownDialog() = default;

int LockdownDialog::Foreground() {
    for (;;) {
        switch (GetKey(this, true)) {
        case Key::Space:
            check_->SetChecked(!check_->Checked());
            if (list_ != nullptr)
                list_->Draw();
            break;
        case Key::Up:
            if (list_ != nullptr)
                list_->Up();
            break;
        case Key::Down:
            if (list_ != nullptr)
                list_->Down();
            break;
        case Key::Escape:
            return 0;
        case Key::Enter:
            Apply();
            return 1;
        default:
            break;
        }
    }
}

void LockdownDialog::Apply() {
    const LockdownChange change = DecideLockdownChange(check_->Checked(), enabled_);
    if (change == LockdownChange::None)
        return;
    const LockdownCommand& command = CommandFor(change);

    const char* argv[] = {"kelp-cmd", "-U", kServiceAccount, command.command, nullptr};
    char out[kCaptureCapacity + 1] = {};
    char err[kCaptureCapacity + 1] = {};
    int32_t outLen = kCaptureCapacity;
    int32_t errLen = kCaptureCapacity;
    const std::string path = Platform::HostPath("/bin/kelp-cmd");
    const int rc = RunProcess(path.c_str(), argv, out, &outLen, err, &errLen, nullptr, 0, 0);
    if (rc != 0) {
        const std::string text = LockdownFailureText(Captured(out, outLen), Captured(err, errLen));
        // The formats come from the lockdown command table; each holds exactly one %s.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        Log(LOG_ERR, command.failedFormat, text.c_str());
#pragma GCC diagnostic pop
        return;
    }
    Log(LOG_INFO, "%s", command.succeededText);
    enabled_ = command.enabledAfter;
}

} // namespace Tarn
