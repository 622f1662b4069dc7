// The Corla Shell's two time-outs, advanced options in seconds: reading them through corlacfg-advcfg and
// writing them through corlacli (nearcli when corlacli fails), with the running services restarted so that
// a new availability time-out takes effect.
#pragma once

namespace Tarn {

struct ShellTimeoutOption {
    const char* path;        // the advanced option
    const char* modifiedLog; // info line with the minutes
    const char* disabledLog; // info line for 0
    bool restartsServices;   // the running shell services read this option when they start
};

// "/UserVars/CorlaShellTimeOut": how long the shell stays available after it is enabled.
extern const ShellTimeoutOption kShellAvailabilityTimeout;
// "/UserVars/CorlaShellInteractiveTimeOut": idle time-out of interactive shell sessions.
extern const ShellTimeoutOption kShellIdleTimeout;

// The option's value in whole minutes (0 when it cannot be read).
long ReadShellTimeoutMinutes(const ShellTimeoutOption& option);

// Writes `minutes` × 60 seconds, then restarts whichever of the Corla Shell and SSH is running when the
// option asks for it, and logs the change. Failed commands are logged as warnings; the next step still runs.
void ApplyShellTimeout(const ShellTimeoutOption& option, long minutes);

} // namespace Tarn
