// kelp-cmd -U USER COMMAND: the management command tool. Acts only as the users listed in
// "simulation.kelpCmdUsers"; any other user gets exit 255, the code the console retries as "tarn".
#include "Tool.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <map>

namespace SimHost::Tools {
namespace {

using Action = std::function<int(const Call&)>;

// A command that sets one Boolean in the state.
Action SetFlag(const char* pointer, bool value) {
    return [pointer, value](const Call& call) {
        Transact(call.dir, [&](Json& s) { s[Json::json_pointer(pointer)] = value; });
        return 0;
    };
}

// A query that prints "true" or "false".
Action PrintFlag(const char* pointer) {
    return [pointer](const Call& call) {
        Json s = Load(call.dir);
        Json::json_pointer ptr(pointer);
        std::cout << (s.contains(ptr) && s.at(ptr).get<bool>() ? "true" : "false") << "\n";
        return 0;
    };
}

int LockdownEnter(const Call& call) {
    bool refused = false;
    Transact(call.dir, [&](Json& s) {
        Json& lockdown = s["lockdown"];
        if (!lockdown.value("enabled", false) && !lockdown.value("possible", true))
            refused = true;
        else
            lockdown["enabled"] = true;
    });
    return refused ? Complain(call, "Lockdown mode cannot be enabled on this host") : 0;
}

int AutoStop(const Call& call) {
    Transact(call.dir, [](Json& s) {
        for (auto& vm : s["vms"])
            if (vm.value("running", false)) {
                vm["running"] = false;
                vm["lastStop"] = "autostop";
            }
    });
    return 0;
}

int Refresh(const Call& call) {
    Transact(call.dir, [](Json& s) {
        Json& stewd = s["services"]["stewd"];
        stewd["refreshes"] = int64_t{WholeNumber(stewd, "refreshes", 0)} + 1;
    });
    return 0;
}

const std::map<std::string, Action>& Commands() {
    static const std::map<std::string, Action> commands = {
        {"kelpsvc/auth/lockdown_is_enabled", PrintFlag("/lockdown/enabled")},
        {"kelpsvc/auth/lockdown_is_possible", PrintFlag("/lockdown/possible")},
        {"kelpsvc/auth/lockdown_mode_enter", LockdownEnter},
        {"kelpsvc/auth/lockdown_mode_exit", SetFlag("/lockdown/enabled", false)},
        {"hostsvc/autostartmanager/autostop", AutoStop},
        {"internalsvc/refresh", Refresh},
        {"hostsvc/start_corla_shell", SetFlag("/services/CorlaShell/running", true)},
        {"hostsvc/stop_corla_shell", SetFlag("/services/CorlaShell/running", false)},
        {"hostsvc/enable_corla_shell", SetFlag("/services/CorlaShell/enabled", true)},
        {"hostsvc/disable_corla_shell", SetFlag("/services/CorlaShell/enabled", false)},
        {"hostsvc/start_ssh", SetFlag("/services/SSH/running", true)},
        {"hostsvc/stop_ssh", SetFlag("/services/SSH/running", false)},
        {"hostsvc/enable_ssh", SetFlag("/services/SSH/enabled", true)},
        {"hostsvc/disable_ssh", SetFlag("/services/SSH/enabled", false)},
    };
    return commands;
}

} // namespace

int KelpCmd(const Call& call) {
    const auto& a = call.args;
    if (a.size() < 3 || a[0] != "-U")
        return Complain(call, "usage: kelp-cmd -U USER COMMAND [ARGS...]", 1);
    const std::string& user = a[1];
    Json users = Load(call.dir).value("simulation", Json::object()).value("kelpCmdUsers", Json::array());
    if (std::find(users.begin(), users.end(), Json(user)) == users.end())
        return Complain(call, "Failed to login as user " + user + ": permission denied", 255);
    auto command = Commands().find(a[2]);
    if (command == Commands().end())
        return Complain(call, "Unknown command or namespace " + a[2]);
    return command->second(call);
}

} // namespace SimHost::Tools
