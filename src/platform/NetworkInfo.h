// Host-wide network objects of the host-control layer: the network info (management interface, physical
// NIC names, IPv6 state, factory reset of the network), the list of kernel interfaces, and the existence
// tests for switches and port groups. Each is a fresh view of the host; operations throw HostCtlException.
#pragma once

#include "platform/Network.h"
#include "platform/NetworkBackend.h"

#include <memory>
#include <string>
#include <vector>

namespace TesCtl::Network {

class NetworkInfoImpl {
public:
    // Re-reads which interface carries management.
    void UpdateManagementInterface();
    // Null when the host has no management interface. Reads the host first if never updated.
    std::unique_ptr<HostCtl::Network::TesNic> GetManagementInterface();
    std::vector<std::string> GetPnics();
    // Names of the port groups of all standard switches.
    std::vector<std::string> GetAllPortGroups();
    // Whether IPv6 runs on the kernel interfaces now.
    bool IsTesIpv6Enabled();
    // Takes effect after the next host restart.
    void SetTesIpv6Enabled(bool enabled);
    // Removes the whole network configuration (switches, kernel interfaces, routes).
    void ClearNetworkConfig();
    // Builds the default configuration: kSwitch0 with one uplink, "Management Network", tes0 on DHCP.
    void AutoConfigNetwork();
    void DisableNetDumper();

private:
    Platform::NetworkSnapshot& Snapshot();

    Platform::NetworkSnapshot snapshot_;
    bool read_ = false;
};

class TesselNicInfoImpl {
public:
    std::vector<std::unique_ptr<HostCtl::Network::TesNic>> GetTesselNics();
};

class PortsetImpl {
public:
    // True when a standard or distributed switch of that name exists.
    bool IsValidVirtualSwitch(const std::string& name);
};

class PortGroupImpl {
public:
    // True when a port group of that name exists on a standard switch.
    bool IsValidPortGroup(const std::string& name);
};

} // namespace TesCtl::Network
