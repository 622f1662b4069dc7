// Start-up and end of the console process: terminal state, logging, pid file, curses, and the run of the
// root frame.
#pragma once

#include <functional>

namespace Tarn {

// Builds and runs the root screen once curses is set up; returns when the console is to end.
using RootRunner = std::function<void()>;

// Everything main does after the host is selected; returns the process exit status.
int RunConsole(int argc, char** argv, const RootRunner& runRoot);

} // namespace Tarn
