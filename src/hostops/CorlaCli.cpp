// corlacli wrappers.
#include "hostops/CorlaCli.h"

#include "core/Log.h"
#include "hostops/CommandRunner.h"
#include "hostops/CommandText.h"
#include "platform/HostRoot.h"

#include <cstdint>

namespace Tarn {

int RunCorlaCli(const char* const argv[]) {
    std::string command = JoinArgv(argv);
    char out[kCaptureCapacity + 1] = {};
    int32_t outLen = kCaptureCapacity;
    std::string path = Platform::HostPath("/bin/corlacli");
    int rc = RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, 0);
    out[outLen > 0 ? outLen : 0] = '\0';
    if (rc == 0)
        Log(LOG_INFO, "Command \"%s\" succeeded", command.c_str());
    else
        Log(LOG_ERR, "Command \"%s\" failed (rc=%d): %s", command.c_str(), rc, out);
    return rc;
}

bool AddStandardSwitch(const std::string& kswitch) {
    const char* argv[] = {"corlacli", "network", "kswitch",       "standard",
                          "add",      "-v",      kswitch.c_str(), nullptr};
    return RunCorlaCli(argv) == 0;
}

bool ChangeStandardSwitchUplink(const std::string& kswitch, const std::string& uplink, bool add) {
    const char* argv[] = {
        "corlacli", "network",      "kswitch", "standard",      "uplink", add ? "add" : "remove",
        "-u",       uplink.c_str(), "-v",      kswitch.c_str(), nullptr};
    return RunCorlaCli(argv) == 0;
}

bool AddPortGroup(const std::string& portGroup, const std::string& kswitch) {
    const char* argv[] = {"corlacli", "network",         "kswitch", "standard",      "portgroup", "add",
                          "-p",       portGroup.c_str(), "-v",      kswitch.c_str(), nullptr};
    return RunCorlaCli(argv) == 0;
}

} // namespace Tarn
