// corlacli (standard switches, advanced options, software packages) and corlacfg-advcfg (option reads).
// corlacli prints its errors on standard output, where the console captures them for its log.
#include "Tool.h"

#include <algorithm>
#include <iostream>

namespace SimHost::Tools {
namespace {

constexpr int kDefaultPorts = 128;
constexpr int kMaxPorts = 4096;

bool Starts(const std::vector<std::string>& words, std::initializer_list<const char*> prefix) {
    return words.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), words.begin());
}

int Error(const std::string& text) {
    std::cout << "Error: " << text << "\n";
    return 1;
}

bool SwitchExists(const Json& s, const std::string& name) {
    for (const char* kind : {"standardSwitches", "distributedSwitches"})
        for (const auto& sw : s.value(kind, Json::array()))
            if (sw.value("name", "") == name)
                return true;
    return false;
}

// Who already uses `nic` as an uplink: a switch name, or "".
std::string UplinkOwner(const Json& s, const std::string& nic) {
    for (const char* kind : {"standardSwitches", "distributedSwitches"})
        for (const auto& sw : s.value(kind, Json::array())) {
            const Json& uplinks = sw.value("uplinks", Json::array());
            if (std::find(uplinks.begin(), uplinks.end(), Json(nic)) != uplinks.end())
                return sw.value("name", "");
        }
    return "";
}

int AddSwitch(const Call& call, const std::vector<std::string>& a) {
    std::string name = Option(a, "-v");
    std::string ports = Option(a, "-P");
    if (name.empty())
        return Error("Missing required parameter -v|--kswitch-name");
    const std::optional<int> count = ports.empty() ? kDefaultPorts : CountArgument(ports, 1, kMaxPorts);
    if (!count)
        return Error("Invalid number of ports: " + ports + " (1-" + std::to_string(kMaxPorts) + ")");
    std::string error;
    Transact(call.dir, [&](Json& s) {
        if (SwitchExists(s, name)) {
            error = "A portset with this name already exists";
            return;
        }
        s["standardSwitches"].push_back(
            {{"name", name}, {"ports", *count}, {"uplinks", Json::array()}, {"portGroups", Json::array()}});
    });
    return error.empty() ? 0 : Error(error);
}

// Adds or removes an uplink, keeping the teaming order of the switch's port groups in step.
int ChangeUplink(const Call& call, const std::vector<std::string>& a, bool add) {
    std::string nic = Option(a, "-u");
    std::string name = Option(a, "-v");
    if (nic.empty() || name.empty())
        return Error("Missing required parameter -u|--uplink-name or -v|--kswitch-name");
    std::string error;
    Transact(call.dir, [&](Json& s) {
        Json* sw = FindNamed(s["standardSwitches"], name);
        if (!sw) {
            error = "Unable to find kswitch " + name;
            return;
        }
        Json& uplinks = (*sw)["uplinks"];
        auto at = std::find(uplinks.begin(), uplinks.end(), Json(nic));
        if (add) {
            if (!FindNamed(s["pnics"], nic)) {
                error = "Invalid uplink " + nic + ": no such physical NIC";
                return;
            }
            std::string owner = UplinkOwner(s, nic);
            if (!owner.empty()) {
                error = "Uplink " + nic + " is already in use by " + owner;
                return;
            }
            uplinks.push_back(nic);
        } else {
            if (at == uplinks.end()) {
                error = "Uplink " + nic + " is not an uplink of " + name;
                return;
            }
            uplinks.erase(at);
        }
        for (auto& pg : (*sw)["portGroups"]) {
            Json& teaming = pg["teaming"];
            Json& order = teaming["uplinkOrder"];
            if (order.is_null())
                order = Json::array();
            auto pos = std::find(order.begin(), order.end(), Json(nic));
            if (add && pos == order.end()) {
                order.push_back(nic);
                teaming["maxActive"] = int64_t{WholeNumber(teaming, "maxActive", 0)} + 1;
            } else if (!add && pos != order.end()) {
                order.erase(pos);
                teaming["maxActive"] = std::min<int64_t>(WholeNumber(teaming, "maxActive", 0), order.size());
            }
        }
    });
    return error.empty() ? 0 : Error(error);
}

int AddPortGroup(const Call& call, const std::vector<std::string>& a) {
    std::string group = Option(a, "-p");
    std::string name = Option(a, "-v");
    if (group.empty() || name.empty())
        return Error("Missing required parameter -p|--portgroup-name or -v|--kswitch-name");
    std::string error;
    Transact(call.dir, [&](Json& s) {
        for (auto& sw : s["standardSwitches"])
            if (FindNamed(sw["portGroups"], group)) {
                error = "A portgroup with the name " + group + " already exists";
                return;
            }
        Json* sw = FindNamed(s["standardSwitches"], name);
        if (!sw) {
            error = "Unable to find kswitch " + name;
            return;
        }
        Json uplinks = (*sw)["uplinks"];
        (*sw)["portGroups"].push_back(
            {{"name", group},
             {"vlan", 0},
             {"teaming", {{"uplinkOrder", uplinks}, {"maxActive", static_cast<int>(uplinks.size())}}}});
    });
    return error.empty() ? 0 : Error(error);
}

int SetAdvanced(const Call& call, const std::vector<std::string>& a) {
    std::string option = Option(a, "-o");
    std::string intValue = Option(a, "-i");
    std::string textValue = Option(a, "-s");
    if (option.empty() || (intValue.empty() && textValue.empty()))
        return Error("Missing required parameter -o|--option and -i|--int-value or -s|--string-value");
    std::string error;
    Transact(call.dir, [&](Json& s) {
        Json& options = s["advancedOptions"];
        if (!options.contains(option)) {
            error = "Unable to find option " + option.substr(option.rfind('/') + 1);
            return;
        }
        Json& entry = options[option];
        bool isInt = entry.value("type", "") == "int";
        if (isInt != !intValue.empty()) {
            error = "Invalid type for option " + option;
            return;
        }
        if (isInt) {
            size_t used = 0;
            long value = std::stol(intValue, &used);
            if (used != intValue.size()) {
                error = "Invalid integer value " + intValue;
                return;
            }
            entry["value"] = value;
        } else {
            entry["value"] = textValue;
        }
    });
    return error.empty() ? 0 : Error(error);
}

int GetVib(const Call& call, const std::vector<std::string>& a, bool keyValue) {
    std::string name = Option(a, "-n");
    Json state = Load(call.dir);
    const Json& services = state.value("services", Json::object());
    if (!services.contains(name) || !services[name].value("installed", false)) {
        std::cout << "[NoMatchError]\n No VIB matching VIB search pattern '" << name << "'.\n";
        return 1;
    }
    std::string version = services[name].value("version", "");
    if (keyValue) {
        std::cout << "SoftwareVib.ID.string=Orvane_bootbank_" << name << "_" << version << "\n"
                  << "SoftwareVib.Name.string=" << name << "\n"
                  << "SoftwareVib.Vendor.string=Orvane\n"
                  << "SoftwareVib.Version.string=" << version << "\n"
                  << "SoftwareVib.AcceptanceLevel.string=OrvaneCertified\n";
    } else {
        std::cout << "Orvane_bootbank_" << name << "_" << version << "\n   Name: " << name
                  << "\n   Vendor: Orvane\n   Version: " << version << "\n";
    }
    return 0;
}

} // namespace

int CorlaCli(const Call& call) {
    std::vector<std::string> words;
    bool keyValue = false;
    for (const auto& arg : call.args) {
        if (arg.rfind("--formatter=", 0) == 0)
            keyValue = arg == "--formatter=keyvalue";
        else
            words.push_back(arg);
    }
    try {
        if (Starts(words, {"network", "kswitch", "standard", "uplink", "add"}))
            return ChangeUplink(call, words, true);
        if (Starts(words, {"network", "kswitch", "standard", "uplink", "remove"}))
            return ChangeUplink(call, words, false);
        if (Starts(words, {"network", "kswitch", "standard", "portgroup", "add"}))
            return AddPortGroup(call, words);
        if (Starts(words, {"network", "kswitch", "standard", "add"}))
            return AddSwitch(call, words);
        if (Starts(words, {"system", "settings", "advanced", "set"}))
            return SetAdvanced(call, words);
        if (Starts(words, {"software", "vib", "get"}))
            return GetVib(call, words, keyValue);
    } catch (const std::invalid_argument&) {
        return Error("Invalid number");
    } catch (const std::out_of_range&) {
        return Error("Number out of range");
    }
    std::string line;
    for (const auto& w : words)
        line += " " + w;
    return Error("Unknown command or namespace" + line);
}

// corlacfg-advcfg -g OPTION prints "Value of OPTION is V"; with -q just V.
int AdvCfg(const Call& call) {
    std::string option = Option(call.args, "-g");
    bool quiet = std::find(call.args.begin(), call.args.end(), "-q") != call.args.end();
    if (option.empty())
        return Complain(call, "usage: corlacfg-advcfg [-q] -g OPTION");
    Json options = Load(call.dir).value("advancedOptions", Json::object());
    if (!options.contains(option))
        return Complain(call, "Unable to find option " + option);
    const Json& value = options[option]["value"];
    std::string text = value.is_string() ? value.get<std::string>() : value.dump();
    if (quiet)
        std::cout << text << "\n";
    else
        std::cout << "Value of " << option << " is " << text << "\n";
    return 0;
}

} // namespace SimHost::Tools
