// The shell time-out dialog and the entry that runs it.
#include "screens/ShellTimeoutDialog.h"

#include "core/EventLoop.h"
#include "hostops/ShellTimeouts.h"
#include "hostops/TimeoutValue.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize = {78, 20, 14};

// Writes one option when its input asks for it; tells the operator about a value out of range (over
// `window`: the dialog has closed by then).
void ApplyEntry(Frame& window, const ShellTimeoutOption& option, const TimeoutEntry& entry) {
    if (entry.kind == TimeoutEntry::Invalid) {
        MessageDialog message(&window, TextId::InvalidTimeout, window.Text(TextId::TimeoutRange));
        RunWindow(&message);
    } else if (entry.kind == TimeoutEntry::Set) {
        ApplyShellTimeout(option, entry.minutes);
    }
}

} // namespace

ShellTimeoutDialog::ShellTimeoutDialog(Frame* parent, long availabilityMinutes, long idleMinutes)
    : Form<ShellTimeoutInput>(parent, kSize, parent->Text(TextId::ShellTimeoutsTitle),
                              parent->Text(TextId::ShellTimeoutsBody), kOkCancelFooter,
                              [this] {
                                  return ShellTimeoutInput{availability_.Value(), idle_.Value()};
                              }),
      availability_(Text(TextId::AvailabilityTimeout), std::to_string(availabilityMinutes), 6,
                    FieldFilter::Number),
      idle_(Text(TextId::IdleTimeout), std::to_string(idleMinutes), 6, FieldFilter::Number) {
    SetItems({&availability_, &idle_});
    SetShowCursor(true);
}

void ChangeShellTimeouts(Frame& parent) {
    const long availability = ReadShellTimeoutMinutes(kShellAvailabilityTimeout);
    const long idle = ReadShellTimeoutMinutes(kShellIdleTimeout);
    ShellTimeoutDialog dialog(&parent, availability, idle);
    std::optional<ShellTimeoutInput> input = dialog.Ask();
    if (!input)
        return;
    ApplyEntry(parent, kShellAvailabilityTimeout, EvaluateShellTimeout(input->availability, availability));
    ApplyEntry(parent, kShellIdleTimeout, EvaluateShellTimeout(input->idle, idle));
}

} // namespace Tarn
