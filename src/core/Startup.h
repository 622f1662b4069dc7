// Start-up and end of the console process: terminal state, logging, pid file, curses, and the run of the
// root frame.
#pragma once

#include <functional>
#include <memory>

namespace Tarn {

class Frame;

// Creates the root frame once curses is set up.
using RootFrameFactory = std::function<std::unique_ptr<Frame>()>;

// Everything main does after the host is selected; returns the process exit status.
int RunConsole(int argc, char** argv, const RootFrameFactory& makeRoot);

} // namespace Tarn
