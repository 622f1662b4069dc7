// Restore standard switch: the move of the management network.
#include "restore/StandardSwitchRestore.h"

#include "core/Log.h"
#include "hostops/KelpCmd.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkInfo.h"
#include "platform/VirtualSwitchInfo.h"
#include "restore/RestoreNaming.h"

#include <algorithm>
#include <memory>

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;
using namespace HostCtl::Network;

bool Holds(const std::vector<std::string>& uplinks, const std::string& pnic) {
    return std::find(uplinks.begin(), uplinks.end(), pnic) != uplinks.end();
}

std::unique_ptr<VirtualSwitch> FindStandardSwitch(const std::string& name) {
    for (auto& s : TesCtl::Network::VirtualSwitchInfoImpl().GetVirtualSwitches())
        if (s->GetName() == name)
            return std::move(s);
    throw HostCtlException("standard switch " + name + " not found");
}

// Detaches `pnic` from whichever switches hold it, attaches it to `kswitch` and appends it to the port
// group's teaming.
void MoveUplink(const std::string& pnic, const std::string& kswitch, const std::string& portGroup) {
    TesCtl::Network::VirtualSwitchInfoImpl info;
    for (auto& s : info.GetVirtualSwitches())
        if (Holds(s->GetUplinks(), pnic))
            s->RemoveUplink(pnic);
    for (auto& d : info.GetDistributedSwitches())
        if (Holds(d->GetUplinks(), pnic))
            d->RemoveUplink(pnic);
    auto target = FindStandardSwitch(kswitch);
    target->AddUplink(pnic);
    try {
        NicTeamingPolicy policy = target->GetTeamingPolicy(portGroup);
        std::vector<std::string> order = policy.GetUplinkOrder();
        order.push_back(pnic);
        policy.SetUplinkOrder(order);
        policy.SetMaxActiveUplinks(policy.GetMaxActiveUplinks() + 1);
        target->SetTeamingPolicy(portGroup, policy);
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "VS: add uplink to teaming policy failed: %s", e.what());
    }
}

void Move() {
    TesCtl::Network::NetworkInfoImpl network;
    network.UpdateManagementInterface();
    std::unique_ptr<TesNic> management = network.GetManagementInterface();
    if (!management) {
        Log(LOG_ERR, "Could not find the management network");
        return;
    }
    std::vector<std::string> uplinks;
    if (auto point = management->GetConnectionPoint(); auto* port = dynamic_cast<DVPort*>(point.get())) {
        for (auto& d : TesCtl::Network::VirtualSwitchInfoImpl().GetDistributedSwitches())
            if (d->GetName() == port->GetSwitchName())
                uplinks = d->GetUplinks();
    }

    TesCtl::Network::PortsetImpl portsets;
    const std::string kswitch =
        NextSwitchName([&](const std::string& name) { return portsets.IsValidVirtualSwitch(name); });
    TesCtl::Network::VirtualSwitchInfoImpl().AddVirtualSwitch(kswitch, Portset::DEF_NUM_PORTS);
    TesCtl::Network::PortGroupImpl portGroups;
    const std::string portGroup =
        NextPortGroupName([&](const std::string& name) { return portGroups.IsValidPortGroup(name); });
    FindStandardSwitch(kswitch)->AddPortGroup(portGroup);
    Log(LOG_INFO, "Created %s with port group %s for the management network", kswitch.c_str(),
        portGroup.c_str());

    // Only the management interface stays up: the others sat on the distributed switch whose uplinks
    // leave it now, and the operator repairs them later.
    std::unique_ptr<TesNic> target;
    for (auto& nic : TesCtl::Network::TesselNicInfoImpl().GetTesselNics()) {
        if (nic->GetName() == management->GetName()) {
            target = std::move(nic);
            continue;
        }
        try {
            if (nic->IsEnabled()) {
                nic->Disable();
                Log(LOG_INFO, "Disabled %s", nic->GetName().c_str());
            }
        } catch (const HostCtlException& e) {
            Log(LOG_ERR, "Disabling %s failed: %s", nic->GetName().c_str(), e.what());
        }
    }

    for (const std::string& pnic : uplinks) {
        try {
            MoveUplink(pnic, kswitch, portGroup);
        } catch (const HostCtlException& e) {
            Log(LOG_ERR, "Moving uplink %s failed: %s", pnic.c_str(), e.what());
        }
    }
    try {
        (target ? *target : *management).SetConnectionPoint(PortGroup(portGroup));
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Changing to legacy virtual switch failed: %s", e.what());
    }
}

} // namespace

void MoveManagementToStandardSwitch() {
    try {
        Move();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Moving the management network to a standard switch failed: %s", e.what());
    }
    // Whole, half done or not begun: the management service reads the network as it now is.
    RefreshManagementService();
    Log(LOG_INFO, "Enabling safe mode networking by moving all uplinks to a new management kSwitch");
}

} // namespace Tarn
