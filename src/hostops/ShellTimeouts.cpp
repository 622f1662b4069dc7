// Shell time-out reads and writes through the host's configuration tools.
#include "hostops/ShellTimeouts.h"

#include "core/Log.h"
#include "hostops/CommandRunner.h"
#include "hostops/CommandText.h"
#include "hostops/ServiceToggle.h"
#include "hostops/TimeoutValue.h"
#include "platform/HostRoot.h"

#include <string>

namespace Tarn {

const ShellTimeoutOption kShellAvailabilityTimeout = {
    "/UserVars/CorlaShellTimeOut", "Modified Shell timeout to %d minutes", "Disabled Shell timeout", true};
const ShellTimeoutOption kShellIdleTimeout = {"/UserVars/CorlaShellInteractiveTimeOut",
                                              "Modified shell interactive timeout to %d minutes",
                                              "Disabled shell interactive timeout", false};

namespace {

// Runs a host program without capture; a failure is logged as a warning. True on exit code 0.
bool RunWarned(const char* hostPath, const char* const argv[]) {
    const std::string path = Platform::HostPath(hostPath);
    int rc = RunProcess(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0);
    if (rc != 0)
        Log(LOG_WARNING, "Command \"%s\" failed (rc=%d)", JoinArgv(argv).c_str(), rc);
    return rc == 0;
}

} // namespace

long ReadShellTimeoutMinutes(const ShellTimeoutOption& option) {
    const char* argv[] = {"corlacfg-advcfg", "-q", "-g", option.path, nullptr};
    const std::string path = Platform::HostPath("/sbin/corlacfg-advcfg");
    char out[kCaptureCapacity + 1] = {};
    int32_t outLen = kCaptureCapacity;
    RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, 0);
    out[outLen > 0 ? outLen : 0] = '\0';
    return MinutesFromToolOutput(out);
}

void ApplyShellTimeout(const ShellTimeoutOption& option, long minutes) {
    const std::string seconds = std::to_string(SecondsFromMinutes(minutes));
    const char* argv[] = {"corlacli", "system",    "settings", "advanced",      "set",
                          "-o",       option.path, "-i",       seconds.c_str(), nullptr};
    if (!RunWarned("/sbin/corlacli", argv)) {
        argv[0] = "nearcli";
        RunWarned("/sbin/nearcli", argv);
    }
    if (option.restartsServices) {
        // Only after the new value is stored, and only what runs: a stopped service stays stopped.
        for (Service service : {Service::CorlaShell, Service::SSH})
            if (ServiceEnabled(service))
                RunInitScript(service, "restart");
    }
    if (minutes == 0)
        Log(LOG_INFO, "%s", option.disabledLog);
    else
        Log(LOG_INFO, option.modifiedLog, static_cast<int>(minutes));
}

} // namespace Tarn
