// Listings of standard and distributed switches for the restore and adapter screens: switch summaries,
// which switch uses a physical NIC, and the uplinks of a distributed switch. Failures are logged and give
// false or an empty result.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace Tarn {

struct SwitchSummary {
    std::string name;
    bool distributed = false;
    int numPorts = 0;
    int configuredPorts = 0;
    int usedPorts = 0;
    std::vector<std::string> portGroups;
    std::vector<std::string> uplinks;
};

// Standard switches.
bool ScanVirtualSwitches(std::vector<SwitchSummary>& switches);
// Distributed switches.
bool ScanDkSwitches(std::vector<SwitchSummary>& switches);

// Physical NIC name -> name of the standard switch that uses it as an uplink.
std::map<std::string, std::string> GatherStandardSwitchUplinks();

// Name of the standard or distributed switch that uses `pnic` as an uplink; empty when none.
std::string FindUplinkUser(const std::string& pnic);

// Takes `pnic` off every standard or distributed switch other than `keep` (logged on failure).
bool ReleaseUplink(const std::string& pnic, const std::string& keep);

// Uplinks in use on the distributed switch `name`.
bool GetDvsUsedUplinks(const std::string& name, std::vector<std::string>& uplinks);

struct DvsUplink {
    std::string pnic;
    std::string macAddress;
    bool connected = false;
};

// The uplinks of the distributed switch `name` with the MAC address and link of each; all or nothing.
bool GetDvsUplinkInfo(const std::string& name, std::vector<DvsUplink>& uplinks);

// "Number of ports: N\nConfigured ports: N\nUsed ports: N\nPort groups: a, b\nUplinks: x" ("None" for an
// empty list).
std::string FormatSwitchSummary(const SwitchSummary& summary);

// Items joined with ", ", or "None".
std::string JoinOrNone(const std::vector<std::string>& items);

} // namespace Tarn
