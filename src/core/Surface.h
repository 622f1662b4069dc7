// What the event loop needs of the window it reads keys for: dimming it when the idle time-out nears and
// lighting it again, and passing on the SIGUSR1 notification. The window toolkit (ui/) implements it, so
// that core/ knows nothing of windows.
#pragma once

namespace Tarn {

class Surface {
public:
    virtual ~Surface() = default;
    // Draws the surface active (true) or dimmed (false).
    virtual void Draw(bool active) = 0;
    // Puts what was drawn on the terminal.
    virtual void Refresh() = 0;
    // Called on SIGUSR1 while this surface is the one being run.
    virtual void Notification() {}
};

} // namespace Tarn
