// Switch listings on the host-control switch objects.
#include "network/SwitchListing.h"

#include "core/Log.h"
#include "platform/HostCtlException.h"
#include "platform/PnicImpl.h"
#include "platform/VirtualSwitchInfo.h"

#include <algorithm>

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;

SwitchSummary Summarize(HostCtl::Network::VirtualSwitch& kswitch) {
    SwitchSummary s;
    s.name = kswitch.GetName();
    s.numPorts = kswitch.GetNumPorts();
    s.configuredPorts = kswitch.GetConfiguredPorts();
    s.usedPorts = kswitch.GetUsedPorts();
    s.portGroups = kswitch.GetPortGroups();
    s.uplinks = kswitch.GetUplinks();
    return s;
}

SwitchSummary Summarize(HostCtl::Network::DkSwitch& dswitch) {
    SwitchSummary s;
    s.name = dswitch.GetName();
    s.distributed = true;
    // The host sees only the ports the switch gave it.
    s.numPorts = static_cast<int>(dswitch.GetPortKeys().size());
    s.configuredPorts = s.numPorts;
    s.usedPorts = dswitch.GetUsedPorts();
    s.uplinks = dswitch.GetUplinks();
    return s;
}

bool Contains(const std::vector<std::string>& list, const std::string& item) {
    return std::find(list.begin(), list.end(), item) != list.end();
}

} // namespace

bool ScanVirtualSwitches(std::vector<SwitchSummary>& switches) {
    try {
        std::vector<SwitchSummary> out;
        for (auto& kswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetVirtualSwitches())
            out.push_back(Summarize(*kswitch));
        switches = std::move(out);
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Scanning virtual switches failed: %s", e.what());
        return false;
    }
}

bool ScanDkSwitches(std::vector<SwitchSummary>& switches) {
    try {
        std::vector<SwitchSummary> out;
        for (auto& dswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetDkSwitches())
            out.push_back(Summarize(*dswitch));
        switches = std::move(out);
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Scanning dkswitches failed: %s", e.what());
        return false;
    }
}

std::map<std::string, std::string> GatherStandardSwitchUplinks() {
    std::map<std::string, std::string> users;
    try {
        for (auto& kswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetVirtualSwitches())
            for (const auto& uplink : kswitch->GetUplinks())
                users[uplink] = kswitch->GetName();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Gathering standard virtual switch list failed: %s", e.what());
        users.clear();
    }
    return users;
}

std::string FindUplinkUser(const std::string& pnic) {
    std::vector<SwitchSummary> switches;
    if (ScanVirtualSwitches(switches))
        for (const auto& s : switches)
            if (Contains(s.uplinks, pnic))
                return s.name;
    if (ScanDkSwitches(switches))
        for (const auto& s : switches)
            if (Contains(s.uplinks, pnic))
                return s.name;
    return {};
}

bool ReleaseUplink(const std::string& pnic, const std::string& keep) {
    try {
        TesCtl::Network::VirtualSwitchInfoImpl info;
        for (auto& kswitch : info.GetVirtualSwitches())
            if (kswitch->GetName() != keep && Contains(kswitch->GetUplinks(), pnic))
                kswitch->RemoveUplink(pnic);
        for (auto& dswitch : info.GetDkSwitches())
            if (dswitch->GetName() != keep && Contains(dswitch->GetUplinks(), pnic))
                dswitch->RemoveUplink(pnic);
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Removing uplink %s failed: %s", pnic.c_str(), e.what());
        return false;
    }
}

bool GetDvsUsedUplinks(const std::string& name, std::vector<std::string>& uplinks) {
    try {
        for (auto& dswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetDkSwitches()) {
            if (dswitch->GetName() == name) {
                uplinks = dswitch->GetUplinks();
                return true;
            }
        }
        throw HostCtlException("No distributed switch named " + name);
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "DVS: getting used uplinks failed: %s", e.what());
        return false;
    }
}

bool GetDvsUplinkInfo(const std::string& name, std::vector<DvsUplink>& uplinks) {
    std::vector<std::string> names;
    if (!GetDvsUsedUplinks(name, names))
        return false;
    try {
        std::vector<DvsUplink> out;
        for (const auto& pnicName : names) {
            TesCtl::Network::PnicImpl pnic(pnicName);
            pnic.Refresh();
            out.push_back({pnicName, pnic.GetMacAddress().GetStringAddress(), pnic.GetLinkUp()});
        }
        uplinks = std::move(out);
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting uplink ports or info failed: %s", e.what());
        return false;
    }
}

std::string JoinOrNone(const std::vector<std::string>& items) {
    if (items.empty())
        return "None";
    std::string out;
    for (const auto& item : items)
        out += (out.empty() ? "" : ", ") + item;
    return out;
}

std::string FormatSwitchSummary(const SwitchSummary& s) {
    std::string text = "Number of ports: " + std::to_string(s.numPorts);
    text += "\nConfigured ports: " + std::to_string(s.configuredPorts);
    text += "\nUsed ports: " + std::to_string(s.usedPorts);
    text += "\nPort groups: " + JoinOrNone(s.portGroups);
    text += "\nUplinks: " + JoinOrNone(s.uplinks);
    return text;
}

} // namespace Tarn
