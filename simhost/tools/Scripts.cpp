// The host's scripts (svcctl.sh, cfgsave.sh, resetCfg.py, the init scripts) and the helper programs
// tesbacktrace and bryncfg-kswitch, as they act on the simulated host.
#include "Tool.h"

#include "simhost/model/Scenarios.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <thread>
#include <unistd.h>

namespace SimHost::Tools {
namespace {

const char* const kAgents[] = {"stewd", "plexa"};

} // namespace

// svcctl.sh stop|start: the management agents.
int SvcCtl(const Call& call) {
    std::string verb = call.args.empty() ? "" : call.args[0];
    if (verb != "stop" && verb != "start")
        return Complain(call, "usage: svcctl.sh stop|start");
    // Agents take a moment to shut down: a live core started just before the stop still finds stewd.
    if (verb == "stop")
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    Transact(call.dir, [&](Json& s) {
        for (const char* agent : kAgents)
            s["services"][agent]["running"] = verb == "start";
    });
    for (const char* agent : kAgents)
        std::cout << (verb == "start" ? "Starting " : "Stopping ") << agent << " ... OK\n";
    return 0;
}

// cfgsave.sh: persists the configuration; the simulated host counts the saves.
int CfgSave(const Call& call) {
    Transact(call.dir, [](Json& s) {
        s["system"]["configSaves"] = int64_t{WholeNumber(s["system"], "configSaves", 0)} + 1;
    });
    return 0;
}

// resetCfg.py --reset-only: back to the default configuration. What belongs to the machine rather than to
// its configuration stays: hardware, NICs, smart-card slots, the keyboard layouts offered, product
// identity, boot options, power history and the simulation's own settings. Users and their passwords are
// configuration and go back to the defaults too (root with an empty password), as on a freshly installed
// host; so do services, firewall, advanced options, network and lockdown.
int ResetCfg(const Call& call) {
    if (call.args.empty() || call.args[0] != "--reset-only")
        return Complain(call, "usage: resetCfg.py --reset-only");
    Json fresh = ScenarioState("default");
    Transact(call.dir, [&](Json& s) {
        Json next = fresh;
        for (const char* keep : {"hardware", "pnics", "smartCards", "power", "simulation"})
            if (s.contains(keep))
                next[keep] = s[keep];
        for (const char* keep : {"layouts", "offerChoice"})
            if (s["keyboard"].contains(keep))
                next["keyboard"][keep] = s["keyboard"][keep];
        for (const char* keep : {"productName", "productVersion", "kernelVersion", "build", "bootOptions"})
            if (s["system"].contains(keep))
                next["system"][keep] = s["system"][keep];
        next["system"]["resets"] = int64_t{WholeNumber(s["system"], "resets", 0)} + 1;
        // The default uplinks may not exist on this hardware.
        for (auto& sw : next["standardSwitches"]) {
            Json kept = Json::array();
            for (const auto& nic : sw["uplinks"])
                if (FindNamed(next["pnics"], nic.get<std::string>()))
                    kept.push_back(nic);
            sw["uplinks"] = kept;
            for (auto& pg : sw["portGroups"])
                pg["teaming"] = {{"uplinkOrder", kept}, {"maxActive", static_cast<int>(kept.size())}};
        }
        s = next;
    });
    return 0;
}

// /etc/init.d/{CorlaShell,SSH,bryn-opsagent} status|start|stop|restart. status exits 0 when running,
// 3 when stopped, 4 when the service is not installed.
int InitScript(const Call& call) {
    std::string verb = call.args.empty() ? "" : call.args[0];
    if (verb != "status" && verb != "start" && verb != "stop" && verb != "restart")
        return Complain(call, "usage: " + call.name + " status|start|stop|restart");
    int code = 0;
    Transact(call.dir, [&](Json& s) {
        Json& service = s["services"][call.name];
        if (!service.value("installed", true)) {
            code = 4;
            return;
        }
        if (verb == "status")
            code = service.value("running", false) ? 0 : 3;
        else
            service["running"] = verb != "stop";
    });
    if (code == 4)
        std::cout << call.name << " is not installed\n";
    else if (verb == "status")
        std::cout << call.name << (code == 0 ? " is running\n" : " is not running\n");
    return code;
}

// tesbacktrace -w -n stewd -o PATTERN -d DIRECTORY: a live core of a running process, written under DIR.
int TesBacktrace(const Call& call) {
    std::string process = Option(call.args, "-n");
    std::string pattern = Option(call.args, "-o");
    std::string folder = Option(call.args, "-d");
    Json state = Load(call.dir);
    if (process.empty() || !state["services"].value(process, Json::object()).value("running", false))
        return Complain(call, "no running process " + process);
    if (pattern.empty())
        pattern = process + "%";
    if (auto at = pattern.find('%'); at != std::string::npos)
        pattern.replace(at, 1, std::to_string(getpid()));
    namespace fs = std::filesystem;
    // The console maps the host paths of a command line into the host root: take "DIR/var/log/" like
    // "/var/log/".
    if (folder.rfind(call.dir + "/", 0) == 0)
        folder.erase(0, call.dir.size());
    fs::path target = (fs::path(call.dir) / fs::path(folder.empty() ? "/var/log" : folder).relative_path() /
                       (pattern + ".core"))
                          .lexically_normal();
    if (target.string().rfind(call.dir + "/", 0) != 0)
        return Complain(call, "refusing to write outside the host: " + target.string());
    std::ofstream core(target);
    core << "simulated live core of " << process << "\n";
    if (!core.flush())
        return Complain(call, "cannot write " + target.string());
    std::cout << "Core written to " << target.string().substr(call.dir.size()) << "\n";
    return 0;
}

// bryncfg-kswitch -m -p A -I B: rewrites the network virtualisation agent's switch configuration, which
// it refuses to do under a running agent.
int BrynCfgKswitch(const Call& call) {
    Json agent = Load(call.dir)["services"].value("bryn-opsagent", Json::object());
    if (!agent.value("installed", false))
        return Complain(call, "bryn-opsagent is not installed");
    if (agent.value("running", false))
        return Complain(call, "bryn-opsagent is running: stop it first");
    return 0;
}

} // namespace SimHost::Tools
