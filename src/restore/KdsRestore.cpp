// Repair of the management port on a distributed switch.
#include "restore/KdsRestore.h"

#include "core/Log.h"
#include "hostops/KelpCmd.h"
#include "network/NetworkAccess.h"
#include "platform/HostCtlException.h"
#include "platform/VirtualSwitchInfo.h"

#include <algorithm>

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;

std::unique_ptr<HostCtl::Network::DkSwitch> FindDkSwitch(const std::string& name) {
    for (auto& d : TesCtl::Network::VirtualSwitchInfoImpl().GetDistributedSwitches())
        if (d->GetName() == name)
            return std::move(d);
    throw HostCtlException("distributed switch " + name + " not found");
}

} // namespace

std::optional<KdsPortContext> ReadKdsPortContext() {
    try {
        auto management = FindManagementInterface();
        if (!management) {
            Log(LOG_ERR, "Could not locate the management interface");
            return std::nullopt;
        }
        auto point = management->GetConnectionPoint();
        auto* port = dynamic_cast<HostCtl::Network::DVPort*>(point.get());
        if (port == nullptr)
            return std::nullopt;
        auto dswitch = FindDkSwitch(port->GetSwitchName());
        KdsPortContext c;
        c.tesnic = management->GetName();
        c.dswitch = dswitch->GetName();
        c.port = port->GetPortKey();
        c.thirdParty = dswitch->GetVendor() != "Orvane";
        c.uplinks = dswitch->GetUplinks();
        c.portKeys = dswitch->GetPortKeys();
        HostCtl::Network::DVPortSettings current = dswitch->GetPort(c.port);
        c.vlan = current.vlan;
        c.portUplinks = current.uplinks;
        return c;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Reading the management kDS port failed: %s", e.what());
        return std::nullopt;
    }
}

std::string NextHostLocalPortKey(const std::vector<std::string>& existingKeys) {
    for (int n = 1;; ++n) {
        std::string key = "hlp-" + std::to_string(n);
        if (std::find(existingKeys.begin(), existingKeys.end(), key) == existingKeys.end())
            return key;
    }
}

std::string RestoreKdsPort(const KdsPortContext& c, uint16_t vlan, const std::vector<std::string>& uplinks) {
    try {
        auto dswitch = FindDkSwitch(c.dswitch);
        HostCtl::Network::DVPortSettings port = dswitch->GetPort(c.port); // the rest is cloned
        port.key = NextHostLocalPortKey(dswitch->GetPortKeys());
        port.vlan = vlan;
        port.uplinks = uplinks;
        port.hostLocal = true;
        Log(LOG_INFO, "Creating host local port %s on %s (VLAN %u)", port.key.c_str(), c.dswitch.c_str(),
            static_cast<unsigned>(vlan));
        dswitch->AddHostLocalPort(port);
        auto management = FindManagementInterface();
        if (!management)
            throw HostCtlException("the management interface is gone");
        management->SetConnectionPoint(HostCtl::Network::DVPort(c.dswitch, port.key));
        Log(LOG_INFO, "Moved %s from port %s to host local port %s on %s", c.tesnic.c_str(), c.port.c_str(),
            port.key.c_str(), c.dswitch.c_str());
        RefreshManagementService();
        return port.key;
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Restoring kDS failed: %s", e.what());
        return "";
    }
}

} // namespace Tarn
