// The console time-out dialog and the entry that runs it.
#include "screens/TarnTimeoutDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "hostops/TarnTimeout.h"
#include "hostops/TimeoutValue.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize = {70, 15, 9};

} // namespace

TarnTimeoutDialog::TarnTimeoutDialog(Frame* parent, long seconds)
    : Form<std::string>(parent, kSize, parent->Text(TextId::IdleTimeoutTitle),
                        parent->Text(TextId::IdleTimeoutBody), kOkCancelFooter,
                        [this] { return minutes_.Value(); }),
      minutes_(Text(TextId::TarnIdleTimeoutLabel), std::to_string(MinutesFromSeconds(seconds)),
               kTarnTimeoutInputChars + 1, FieldFilter::Number) {
    SetItems({&minutes_});
    SetShowCursor(true);
    // A sixth digit is not taken (a pre-filled value is still replaced by the first one typed).
    SetKeyHook([this](int key) {
        const bool full =
            !minutes_.State().fresh && static_cast<int>(minutes_.Value().size()) >= kTarnTimeoutInputChars;
        return full && key >= '0' && key <= '9' ? FormKey::Used : FormKey::Unused;
    });
}

void ChangeTarnTimeout(Frame& parent) {
    const long seconds = GetTarnTimeout();
    TarnTimeoutDialog dialog(&parent, seconds);
    std::optional<std::string> input = dialog.Ask();
    if (!input)
        return;
    const TimeoutEntry entry = EvaluateTarnTimeout(*input, seconds);
    if (entry.kind == TimeoutEntry::Invalid) {
        MessageDialog message(&parent, TextId::InvalidTimeout, parent.Text(TextId::TimeoutRange));
        RunWindow(&message);
    } else if (entry.kind == TimeoutEntry::Set) {
        ApplyTarnTimeout(entry.minutes);
    }
}

} // namespace Tarn
