// What /proc tells about a running process: CPU time, context switches, memory high-water mark.
#pragma once

#include <optional>
#include <sys/types.h>

namespace e2e {

struct ProcStats {
    double cpuSeconds = 0; // user + system, from /proc/PID/stat
    long voluntarySwitches = 0;
    long involuntarySwitches = 0;
    long peakRssKb = 0; // VmHWM
};

// nullopt once the process is gone (or is a zombie without its status lines).
std::optional<ProcStats> ReadProcStats(pid_t pid);

} // namespace e2e
