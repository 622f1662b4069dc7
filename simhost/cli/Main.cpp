// simhost: creates, lists, shows and powers on simulated hosts.
#include "simhost/model/Init.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"

#include <filesystem>
#include <iostream>

namespace {

int Usage() {
    std::cerr << "usage: simhost init DIR [--scenario NAME]\n"
                 "       simhost scenarios\n"
                 "       simhost show DIR\n"
                 "       simhost power DIR       (prints on, rebooting or off)\n"
                 "       simhost power-on DIR\n";
    return 2;
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
    if (command == "scenarios" && a.size() == 1) {
        for (const auto& name : SimHost::ScenarioNames())
            std::cout << name << "\t" << SimHost::ScenarioDescription(name) << "\n";
        return 0;
    }
    if (command == "init" && (a.size() == 2 || (a.size() == 4 && a[2] == "--scenario"))) {
        std::string scenario = a.size() == 4 ? a[3] : "default";
        SimHost::InitHost(a[1], scenario, BuildDir());
        std::cout << "created simulated host " << a[1] << " (scenario " << scenario << ")\n";
        return 0;
    }
    if (command == "show" && a.size() == 2) {
        std::cout << SimHost::Load(a[1]).dump(2) << "\n";
        return 0;
    }
    if (command == "power" && a.size() == 2) {
        std::cout << SimHost::Load(a[1]).value("/power/state"_json_pointer, std::string("on")) << "\n";
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
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& e) {
        std::cerr << "simhost: " << e.what() << "\n";
        return 1;
    }
}
