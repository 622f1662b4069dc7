// The service toggles: one table row per service, one sequence for both.
#include "hostops/ServiceToggle.h"

#include "core/Log.h"
#include "core/Session.h"
#include "hostops/CommandRunner.h"
#include "hostops/KelpCmd.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SystemInfo.h"

#include <string>

namespace Tarn {
namespace {

struct ServiceCommands {
    const char* initScript;
    const char* start;
    const char* stop;
    const char* enable;
    const char* disable;
    const char* startStopWarning;
    const char* enableDisableWarning;
    const char* name;            // in "User %s enabled <name>"
    const char* firewallRuleset; // kept in step with the service; nullptr for none
};

const ServiceCommands& CommandsOf(Service service) {
    static const ServiceCommands shell = {"/etc/init.d/CorlaShell",
                                          "hostsvc/start_corla_shell",
                                          "hostsvc/stop_corla_shell",
                                          "hostsvc/enable_corla_shell",
                                          "hostsvc/disable_corla_shell",
                                          "Unable to run kelp-cmd to start/stop Corla Shell",
                                          "Unable to run kelp-cmd to enable/disable Corla Shell",
                                          "Corla Shell",
                                          nullptr};
    static const ServiceCommands ssh = {"/etc/init.d/SSH",
                                        "hostsvc/start_ssh",
                                        "hostsvc/stop_ssh",
                                        "hostsvc/enable_ssh",
                                        "hostsvc/disable_ssh",
                                        "Unable to run kelp-cmd to start/stop ssh",
                                        "Unable to run kelp-cmd to enable/disable ssh",
                                        "SSH",
                                        "sshServer"};
    return service == Service::CorlaShell ? shell : ssh;
}

int RunKelpCmd(const char* command) {
    const std::string path = Platform::HostPath("/bin/kelp-cmd");
    const std::string user = LoggedInUser();
    const char* argv[] = {"kelp-cmd", "-U", user.c_str(), command, nullptr};
    return RunKelpCmdWithFallback(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
}

void SetFirewallRuleset(const char* id, bool enabled) {
    try {
        TesCtl::System::SystemInfoImpl system;
        system.GetFirewallRulesetById(id)->SetEnabled(enabled);
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_WARNING, "Failed to update firewall %s ruleset status: %s", id, e.what());
    }
}

} // namespace

int RunInitScript(Service service, const char* verb) {
    const std::string shell = Platform::HostPath("/bin/sh");
    const std::string script = Platform::HostPath(CommandsOf(service).initScript);
    const char* argv[] = {"sh", script.c_str(), verb, nullptr};
    return RunProcess(shell.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0);
}

bool ServiceEnabled(Service service) {
    return RunInitScript(service, "status") == 0;
}

void ToggleService(Service service, bool enable) {
    const ServiceCommands& c = CommandsOf(service);
    if (RunKelpCmd(enable ? c.start : c.stop) != 0) {
        Log(LOG_WARNING, "%s", c.startStopWarning);
        RunInitScript(service, enable ? "start" : "stop");
    }
    if (c.firewallRuleset != nullptr)
        SetFirewallRuleset(c.firewallRuleset, enable);
    if (RunKelpCmd(enable ? c.enable : c.disable) != 0)
        Log(LOG_WARNING, "%s", c.enableDisableWarning);
    Log(LOG_INFO, "User %s %s %s", LoggedInUser().c_str(), enable ? "enabled" : "disabled", c.name);
}

} // namespace Tarn
