// The decisions of start-up that depend only on their inputs: the terminal-number argument, the terminal
// type, and the single-instance rule of the pid file.
#pragma once

#include <string>
#include <sys/types.h>

namespace Tarn {

// The virtual-terminal number of the argument (plain decimal digits, 1..63), or -1 when it is out of range or
// anything but a plain number.
int ParseVtArgument(const char* argument);

struct TerminalChoice {
    std::string term; // the TERM the console runs with
    bool localConsole = false;
};

// `linuxConsole`: standard output is a Linux virtual console; `term`: TERM or null; `sshClient`: SSH_CLIENT
// is set.
TerminalChoice ChooseTerminalType(bool linuxConsole, const char* term, bool sshClient);

enum class PidFileOutcome {
    Claimed,       // the file now holds `self`
    OtherInstance, // a live process holds the file; left alone
};

// Claims the pid file at `path` for `self` unless it names another live process. A write failure is silent
// (the outcome is still Claimed: nothing else holds the file).
PidFileOutcome ClaimPidFile(const std::string& path, pid_t self);

} // namespace Tarn
