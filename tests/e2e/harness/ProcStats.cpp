// /proc/PID/stat and /proc/PID/status parsing.
#include "harness/ProcStats.h"

#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace e2e {

std::optional<ProcStats> ReadProcStats(pid_t pid) {
    const std::string base = "/proc/" + std::to_string(pid);
    std::ifstream stat(base + "/stat");
    std::string line;
    if (!std::getline(stat, line))
        return std::nullopt;
    // The command name may hold blanks and parentheses: fields are counted after its last ')'.
    const size_t close = line.rfind(')');
    if (close == std::string::npos)
        return std::nullopt;
    std::istringstream fields(line.substr(close + 2));
    std::string field;
    unsigned long long utime = 0, stime = 0;
    for (int i = 3; fields >> field; ++i) {
        if (i == 14)
            utime = std::stoull(field);
        else if (i == 15) {
            stime = std::stoull(field);
            break;
        }
    }
    ProcStats s;
    s.cpuSeconds = double(utime + stime) / double(sysconf(_SC_CLK_TCK));
    std::ifstream status(base + "/status");
    bool any = false;
    while (std::getline(status, line)) {
        std::istringstream in(line);
        std::string key;
        long value = 0;
        in >> key >> value;
        if (key == "VmHWM:")
            s.peakRssKb = value, any = true;
        else if (key == "voluntary_ctxt_switches:")
            s.voluntarySwitches = value;
        else if (key == "nonvoluntary_ctxt_switches:")
            s.involuntarySwitches = value;
    }
    if (!any)
        return std::nullopt;
    return s;
}

} // namespace e2e
