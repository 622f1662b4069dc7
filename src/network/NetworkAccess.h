// The console's own access to the host's network model: the management interface, the uplinks, teaming and
// VLAN of its port group, and the physical NIC rows. Every function catches host-control failures, logs
// them and answers false or an empty value; only FindManagementInterface lets them pass.
#pragma once

#include "platform/HostCtlException.h"
#include "platform/Network.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tarn {

// The interface that carries management traffic; null when the host has none. Throws HostCtlException.
std::unique_ptr<HostCtl::Network::TesNic> FindManagementInterface();

// True when the management interface sits on a distributed-switch port; false when it does not, when there
// is none, or when that cannot be told (each logged).
bool IsManagementOnDistributedSwitch();

// The uplinks of the standard switch that holds the management port group, in the port group's failover
// order (uplinks outside it last).
bool GetManagementUplinks(HostCtl::Network::TesNic& management, std::vector<std::string>& uplinks);
// Max active uplinks of the management port group's teaming policy.
bool GetMaxActiveUplinks(HostCtl::Network::TesNic& management, int32_t& count);
// Sets the port group's failover order and active count (capped at the order's length) unless they are so.
bool SetManagementTeamingOrder(HostCtl::Network::TesNic& management, const std::vector<std::string>& order,
                               int32_t maxActive);
bool GetManagementVlanId(HostCtl::Network::TesNic& management, uint16_t& vlanId);
bool SetManagementVlanId(HostCtl::Network::TesNic& management, uint16_t vlanId);
// Adds `pnic` to the management switch, then last to the port group's uplink order.
bool AddManagementUplink(HostCtl::Network::TesNic& management, const std::string& pnic);
// Takes `pnic` out of the port group's uplink order, then off the management switch.
bool RemoveManagementUplink(HostCtl::Network::TesNic& management, const std::string& pnic);

// Name of the switch behind a connection point; empty when it cannot be told (logged).
std::string GetConnectionSwitchName(const HostCtl::Network::ConnectionPoint& point);

// Names of the physical NICs; empty when they cannot be read (logged).
std::vector<std::string> GetPhysicalNicNames();

struct PhysicalNicInfo {
    std::string name;
    std::string hardwareLabel; // empty when the PCI device cannot be read
    std::string macAddress;
    std::string linkState; // "Connected", "Disconnected", or empty when unknown
    bool connected = false;
};

// One adapter row; a field that cannot be read stays empty and the failure is logged.
PhysicalNicInfo GetPhysicalNicInfo(const std::string& name);

// "nicx<number>".
std::string PhysicalNicName(int number);

// The text for messages made of an action, " failed: " and this.
std::string DescribeHostCtlError(const HostCtl::Lib::HostCtlException& error);

} // namespace Tarn
