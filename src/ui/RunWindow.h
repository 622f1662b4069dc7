// The modal run of a frame: the frame under it dims, the frame is drawn and runs its key loop, then the
// frame under it is drawn active again. The chain of parent frames is the dialog stack.
#pragma once

namespace Tarn {

class Frame;

// The frame's Foreground result; TarnTimeout passes through.
int RunWindow(Frame* frame);

} // namespace Tarn
