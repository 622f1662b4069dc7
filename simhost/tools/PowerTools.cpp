// reboot, poweroff and haltGuests. A power action marks the state and ends the console as a host going
// down would: SIGTERM to the pid in DIR/var/run/tarn.pid, but only if that process is a tarn binary.
#include "Tool.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fstream>
#include <sstream>

namespace SimHost::Tools {
namespace {

std::string Now() {
    std::time_t t = std::time(nullptr);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&t));
    return text;
}

// The first word of /proc/PID/cmdline names "tarn" (any directory).
bool IsConsole(long pid) {
    std::ifstream in("/proc/" + std::to_string(pid) + "/cmdline", std::ios::binary);
    std::string argv0;
    if (!in || !std::getline(in, argv0, '\0'))
        return false;
    size_t slash = argv0.rfind('/');
    return argv0.substr(slash == std::string::npos ? 0 : slash + 1) == "tarn";
}

void SignalConsole(const std::string& dir) {
    std::ifstream in(dir + "/var/run/tarn.pid");
    long pid = 0;
    if (!(in >> pid) || pid <= 1)
        return;
    if (IsConsole(pid))
        kill(static_cast<pid_t>(pid), SIGTERM);
}

int PowerAction(const Call& call, const char* action, const char* newState) {
    bool force = std::find(call.args.begin(), call.args.end(), "-f") != call.args.end();
    Transact(call.dir, [&](Json& s) {
        s["power"]["state"] = newState;
        s["power"]["history"].push_back({{"action", action}, {"force", force}, {"time", Now()}});
        // The kernel comes back with the IPv6 state chosen for the next boot.
        if (std::string(action) == "reboot" && s.contains("ipv6"))
            s["ipv6"]["enabled"] = s["ipv6"].value("pendingEnabled", s["ipv6"].value("enabled", true));
    });
    SignalConsole(call.dir);
    return 0;
}

} // namespace

int Reboot(const Call& call) {
    return PowerAction(call, "reboot", "rebooting");
}

int Poweroff(const Call& call) {
    return PowerAction(call, "poweroff", "off");
}

// haltGuests stops every running VM; "--terminate" powers them off instead of shutting them down.
int HaltGuests(const Call& call) {
    bool terminate = std::find(call.args.begin(), call.args.end(), "--terminate") != call.args.end();
    Transact(call.dir, [&](Json& s) {
        for (auto& vm : s["vms"])
            if (vm.value("running", false)) {
                vm["running"] = false;
                vm["lastStop"] = terminate ? "terminate" : "halt";
            }
    });
    return 0;
}

} // namespace SimHost::Tools
