// simhost: creates, lists, shows and powers on simulated hosts.
#include "simhost/model/Init.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"

#include <filesystem>
#include <iostream>

namespace {

constexpr const char* kUsage =
    "usage: simhost init DIR [--scenario NAME] [--force]\n"
    "       simhost scenarios\n"
    "       simhost show DIR\n"
    "       simhost power DIR       (prints on, rebooting or off)\n"
    "       simhost power-on DIR\n"
    "       simhost --help\n"
    "init refuses a directory that already holds a host unless --force is given.\n";

int Usage() {
    std::cerr << kUsage;
    return 2;
}

// `init DIR [--scenario NAME] [--force]` in any order after DIR; false when the words do not fit.
bool ParseInit(const std::vector<std::string>& a, std::string& scenario, bool& force) {
    if (a.size() < 2 || a[1].starts_with("--"))
        return false;
    for (size_t i = 2; i < a.size(); ++i) {
        if (a[i] == "--force" && !force)
            force = true;
        else if (a[i] == "--scenario" && i + 1 < a.size() && scenario.empty())
            scenario = a[++i];
        else
            return false;
    }
    if (scenario.empty())
        scenario = "default";
    return true;
}

// The directory of this program, where the build also puts simhost-tool and pam_simhost.so.
std::string BuildDir() {
    std::error_code ec;
    auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string(".") : exe.parent_path().string();
}

int Run(const std::vector<std::string>& a) {
    if (a.empty())
        return Usage();
    const std::string& command = a[0];
    if (command == "--help" && a.size() == 1) {
        std::cout << kUsage;
        return 0;
    }
    if (command == "scenarios" && a.size() == 1) {
        for (const auto& name : SimHost::ScenarioNames())
            std::cout << name << "\t" << SimHost::ScenarioDescription(name) << "\n";
        return 0;
    }
    std::string scenario;
    bool force = false;
    if (command == "init" && ParseInit(a, scenario, force)) {
        // Re-initialising throws away every change made to the host: only on request.
        if (!force && std::filesystem::exists(SimHost::StatePath(a[1]))) {
            std::cerr << "simhost: " << a[1]
                      << " already holds a simulated host; use --force to replace it\n";
            return 1;
        }
        SimHost::InitHost(a[1], scenario, BuildDir());
        std::cout << "created simulated host " << a[1] << " (scenario " << scenario << ")\n";
        return 0;
    }
    if (command == "show" && a.size() == 2) {
        std::cout << SimHost::Load(a[1]).dump(2) << "\n";
        return 0;
    }
    if (command == "power" && a.size() == 2) {
        // A "power" that is not an object is a broken state, not a host that is on.
        const SimHost::Json state = SimHost::Load(a[1]);
        auto power = state.find("power");
        std::cout << (power == state.end() ? std::string("on") : power->value("state", std::string("on")))
                  << "\n";
        return 0;
    }
    if (command == "power-on" && a.size() == 2) {
        SimHost::Transact(a[1], [](SimHost::Json& s) {
            s["power"]["state"] = "on";
            s["power"]["history"].push_back({{"action", "power-on"}});
        });
        return 0;
    }
    return Usage();
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        return Run(args);
    } catch (const SimHost::Json::exception& e) {
        // A value of the wrong type in the state: say which file holds it.
        std::cerr << "simhost: " << SimHost::InvalidState(args.size() > 1 ? args[1] : ".", e.what()) << "\n";
        return 1;
    } catch (const std::exception& e) {
        std::cerr << "simhost: " << e.what() << "\n";
        return 1;
    }
}
