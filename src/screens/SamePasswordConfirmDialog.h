// Asks whether a new password that equals the old one is really meant.
#pragma once

namespace Tarn {

class Frame;

// True for Enter (confirmed), false for Esc.
bool ConfirmSamePassword(Frame* parent);

} // namespace Tarn
