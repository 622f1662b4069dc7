// Lending the terminal to a full-screen child program (the log pager) and taking it back afterwards, so that
// screens can run such a child without touching curses themselves.
#pragma once

namespace Tarn {

// Saves the terminal attributes of standard output, puts the terminal back into the mode it had when the
// console started, and clears the screen.
void SuspendForChild();

// Restores the attributes saved by SuspendForChild, makes the console's process group the terminal's
// foreground group again, re-sends the keypad mode and makes the next update repaint the whole screen.
// The caller draws its window afterwards.
void ResumeAfterChild();

} // namespace Tarn
