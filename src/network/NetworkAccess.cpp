// Management-interface helpers on the host-control network model, with the console's failure messages.
#include "network/NetworkAccess.h"

#include "core/Log.h"
#include "platform/NetworkInfo.h"
#include "platform/PnicImpl.h"
#include "platform/VirtualSwitchInfo.h"

#include <algorithm>
#include <cstdio>

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;
using HostCtl::Network::ConnectionPoint;
using HostCtl::Network::TesNic;

// The standard switch that holds the management port group, and that port group's name. Only a port group
// of a standard switch is handled here; anything else is refused as the console cannot change it.
struct ManagementSwitch {
    std::unique_ptr<HostCtl::Network::VirtualSwitch> kswitch;
    std::string portGroup;
};

ManagementSwitch FindManagementSwitch(TesNic& management) {
    auto point = management.GetConnectionPoint();
    const auto* pg = dynamic_cast<const HostCtl::Network::PortGroup*>(point.get());
    if (!pg || point->GetType() != ConnectionPoint::TYPE_PORT_GROUP)
        throw HostCtlException("Unsupported kSwitch type");
    for (auto& kswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetVirtualSwitches()) {
        auto groups = kswitch->GetPortGroups();
        if (std::find(groups.begin(), groups.end(), pg->GetPortGroupName()) != groups.end())
            return {std::move(kswitch), pg->GetPortGroupName()};
    }
    throw HostCtlException("No standard switch holds port group " + pg->GetPortGroupName());
}

// Runs `step`; a host-control failure is logged with `format` (one %s for the exception text) and gives
// false.
template <typename F> bool Guard(const char* format, F&& step) {
    try {
        step();
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, format, e.what());
        return false;
    }
}

} // namespace

std::unique_ptr<TesNic> FindManagementInterface() {
    TesCtl::Network::NetworkInfoImpl info;
    info.UpdateManagementInterface();
    return info.GetManagementInterface();
}

bool IsManagementOnDistributedSwitch() {
    try {
        auto management = FindManagementInterface();
        if (!management) {
            Log(LOG_ERR, "Could not locate the management interface");
            return false;
        }
        return management->GetConnectionPoint()->GetType() == ConnectionPoint::TYPE_DV_PORT;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Could not determine if a DVS was in use: %s", e.what());
        return false;
    }
}

bool GetManagementUplinks(TesNic& management, std::vector<std::string>& uplinks) {
    return Guard("Getting uplinks failed: %s", [&] {
        auto ms = FindManagementSwitch(management);
        auto onSwitch = ms.kswitch->GetUplinks();
        // The port group's failover order first: that is the order the administrator chose.
        std::vector<std::string> ordered;
        const auto policy = ms.kswitch->GetTeamingPolicy(ms.portGroup);
        for (const auto& uplink : policy.GetUplinkOrder())
            if (std::find(onSwitch.begin(), onSwitch.end(), uplink) != onSwitch.end())
                ordered.push_back(uplink);
        for (const auto& uplink : onSwitch)
            if (std::find(ordered.begin(), ordered.end(), uplink) == ordered.end())
                ordered.push_back(uplink);
        uplinks = std::move(ordered);
    });
}

bool SetManagementTeamingOrder(TesNic& management, const std::vector<std::string>& order, int32_t maxActive) {
    return Guard("VS: setting teaming policy failed: %s", [&] {
        auto ms = FindManagementSwitch(management);
        HostCtl::Network::NicTeamingPolicy policy;
        policy.SetUplinkOrder(order);
        policy.SetMaxActiveUplinks(std::clamp<int32_t>(maxActive, 0, static_cast<int32_t>(order.size())));
        if (!(policy == ms.kswitch->GetTeamingPolicy(ms.portGroup)))
            ms.kswitch->SetTeamingPolicy(ms.portGroup, policy);
    });
}

bool GetMaxActiveUplinks(TesNic& management, int32_t& count) {
    return Guard("Getting max number of active uplinks failed: %s", [&] {
        auto ms = FindManagementSwitch(management);
        count = ms.kswitch->GetTeamingPolicy(ms.portGroup).GetMaxActiveUplinks();
    });
}

bool GetManagementVlanId(TesNic& management, uint16_t& vlanId) {
    return Guard("Getting VlanID failed: %s", [&] {
        auto ms = FindManagementSwitch(management);
        vlanId = ms.kswitch->GetVlanId(ms.portGroup);
    });
}

bool SetManagementVlanId(TesNic& management, uint16_t vlanId) {
    return Guard("Setting VlanID failed: %s", [&] {
        auto ms = FindManagementSwitch(management);
        ms.kswitch->SetVlanId(ms.portGroup, vlanId);
    });
}

bool AddManagementUplink(TesNic& management, const std::string& pnic) {
    ManagementSwitch ms;
    bool added = false;
    try {
        ms = FindManagementSwitch(management);
        ms.kswitch->AddUplink(pnic);
        added = true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Adding uplink %s failed: %s", pnic.c_str(), e.what());
    }
    if (!added)
        return false;
    // The switch's uplinks with the new one last: the failover order follows the order of adding.
    return Guard("VS: add uplink to teaming policy failed: %s", [&] {
        HostCtl::Network::NicTeamingPolicy policy;
        auto order = ms.kswitch->GetUplinks();
        policy.SetUplinkOrder(order);
        policy.SetMaxActiveUplinks(static_cast<int>(order.size()));
        ms.kswitch->SetTeamingPolicy(ms.portGroup, policy);
    });
}

bool RemoveManagementUplink(TesNic& management, const std::string& pnic) {
    ManagementSwitch ms;
    // The teaming policy must let go of the uplink before the switch can.
    bool released = Guard("VS: remove uplink from teaming policy failed: %s", [&] {
        ms = FindManagementSwitch(management);
        auto policy = ms.kswitch->GetTeamingPolicy(ms.portGroup);
        auto order = policy.GetUplinkOrder();
        auto it = std::find(order.begin(), order.end(), pnic);
        if (it == order.end())
            return; // not teamed: nothing to release
        order.erase(it);
        int maxActive = std::max(0, policy.GetMaxActiveUplinks() - 1);
        policy.SetMaxActiveUplinks(std::min(maxActive, static_cast<int>(order.size())));
        policy.SetUplinkOrder(std::move(order));
        ms.kswitch->SetTeamingPolicy(ms.portGroup, policy);
    });
    if (!released)
        return false;
    try {
        ms.kswitch->RemoveUplink(pnic);
        return true;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Removing uplink %s failed: %s", pnic.c_str(), e.what());
        return false;
    }
}

std::string GetConnectionSwitchName(const ConnectionPoint& point) {
    std::string name;
    Guard("Getting switch name failed: %s", [&] {
        switch (point.GetType()) {
        case ConnectionPoint::TYPE_PORT_GROUP: {
            const auto& pg = dynamic_cast<const HostCtl::Network::PortGroup&>(point);
            for (auto& kswitch : TesCtl::Network::VirtualSwitchInfoImpl().GetVirtualSwitches()) {
                auto groups = kswitch->GetPortGroups();
                if (std::find(groups.begin(), groups.end(), pg.GetPortGroupName()) != groups.end()) {
                    name = kswitch->GetName();
                    return;
                }
            }
            throw HostCtlException("No standard switch holds port group " + pg.GetPortGroupName());
        }
        case ConnectionPoint::TYPE_DV_PORT:
            name = dynamic_cast<const HostCtl::Network::DVPort&>(point).GetSwitchName();
            return;
        case ConnectionPoint::TYPE_OPAQUE_NETWORK:
            throw HostCtlException("Opaque network connectee type not supported");
        default:
            throw HostCtlException("Unsupported connectee type");
        }
    });
    return name;
}

std::vector<std::string> GetPhysicalNicNames() {
    std::vector<std::string> names;
    Guard("Getting physical nics failed: %s", [&] { names = TesCtl::Network::NetworkInfoImpl().GetPnics(); });
    return names;
}

PhysicalNicInfo GetPhysicalNicInfo(const std::string& name) {
    PhysicalNicInfo info;
    info.name = name;
    TesCtl::Network::PnicImpl pnic(name);
    // Each field on its own: an unreadable PCI device must not cost the row its MAC address or link.
    Guard("Refreshing physical nic failed: %s", [&] { pnic.Refresh(); });
    Guard("Getting PCI device failed: %s", [&] { info.hardwareLabel = pnic.GetPciDevice().GetDeviceName(); });
    Guard("Getting MAC address failed: %s",
          [&] { info.macAddress = pnic.GetMacAddress().GetStringAddress(); });
    Guard("Getting link state failed: %s", [&] {
        info.connected = pnic.GetLinkUp();
        info.linkState = info.connected ? "Connected" : "Disconnected";
    });
    return info;
}

std::string PhysicalNicName(int number) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "nicx%d", number);
    return buffer;
}

std::string DescribeHostCtlError(const HostCtlException& error) {
    return error.what();
}

} // namespace Tarn
