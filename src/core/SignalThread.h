// The signal thread and the wake-up pipe: every asynchronous signal becomes one byte on the pipe, which the
// user-interface thread polls beside the terminal.
#pragma once

namespace Tarn {

// Values WaitForInput returns besides curses key codes.
enum WaitResult : int {
    kWaitOther = -1,     // poll failure or an unknown byte
    kWaitTimeout = -2,   // -ENOENT: the poll time-out passed
    kWaitNotify = -3,    // SIGUSR1
    kWaitRestart = -4,   // SIGUSR2
    kWaitResize = -5,    // SIGWINCH
    kWaitTerminate = -6, // SIGHUP, SIGINT, SIGQUIT, SIGTERM
};

// The byte the signal thread writes for `signal`, or 0 when the signal is not one it passes on.
unsigned char WakeByteForSignal(int signal);
// What WaitForInput returns for a byte read from the pipe.
int WaitResultForWakeByte(unsigned char byte);

// Read end of the wake-up pipe (-1 before StartSignalThread).
int WakePipeReadEnd();

} // namespace Tarn
