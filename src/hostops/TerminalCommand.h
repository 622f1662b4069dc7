// Running an interactive host program (the log pager) on the console's own terminal.
#pragma once

namespace Tarn {

// Runs `path` with the null-terminated `argv` on the console's standard input, output and error, in the
// console's current environment (an interactive program needs TERM and the variables set for it), and
// waits for it to end. Unlike RunProcess nothing is captured and there is no time-out: the user ends it.
// Returns the exit code 0-255, or -1 when it could not be started or ended by a signal.
int RunOnTerminal(const char* path, const char* const argv[]);

} // namespace Tarn
