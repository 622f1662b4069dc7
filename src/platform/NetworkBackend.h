// The seam between the network objects and the host: data-shaped backend interfaces, one per area (network
// model, DNS resolver, routes). A backend hands out snapshots and applies one change per call; the objects
// that the console uses (TesNicImpl, DnsConfigImpl, ...) are built on top and never know which backend runs.
#pragma once

#include "platform/IpConfig.h"
#include "platform/NetworkTypes.h"

#include <string>
#include <vector>

namespace Platform {

struct PnicRecord {
    std::string name;
    std::string pci;
    std::string label;
    std::string driver;
    HostCtl::Network::MacAddress mac;
    bool link = false;
    int speedMbps = 0;
    bool pciReadable = true;
};

struct PortGroupRecord {
    std::string name;
    uint16_t vlan = 0;
    HostCtl::Network::NicTeamingPolicy teaming;
};

struct StandardSwitchRecord {
    std::string name;
    int ports = 0;
    std::vector<std::string> uplinks;
    std::vector<PortGroupRecord> portGroups;
};

struct DistributedPortRecord {
    std::string key;
    std::string portGroup;
    uint16_t vlan = 0;
    std::vector<std::string> uplinks;
    bool hostLocal = false;
};

struct DistributedSwitchRecord {
    std::string name;
    std::string uuid;
    std::string vendor = "Orvane";
    std::vector<std::string> uplinks;
    std::vector<DistributedPortRecord> ports;
};

// What a kernel interface is attached to.
struct ConnectionRecord {
    int type = 0;           // 1 port group, 2 distributed port, 3 opaque network, others unknown
    std::string portGroup;  // type 1
    std::string switchName; // type 2
    std::string port;       // type 2
};

struct TesNicRecord {
    std::string name;
    ConnectionRecord connection;
    HostCtl::Network::MacAddress mac;
    bool enabled = true;
    bool dhcpBound = false;
    HostCtl::Network::Ipv4Address dhcpServer;
    HostCtl::Network::IpConfig stored;
    HostCtl::Network::IpConfig running;
};

struct NetworkSnapshot {
    std::vector<PnicRecord> pnics;
    std::vector<StandardSwitchRecord> standardSwitches;
    std::vector<DistributedSwitchRecord> distributedSwitches;
    std::vector<TesNicRecord> tesnics;
    std::string management; // name of the management tesnic; empty: none
    bool ipv6Enabled = false;
    bool ipv6PendingEnabled = false;
};

struct DnsRecord {
    std::string hostname;
    std::string domain;
    std::vector<HostCtl::Network::Ipv4Address> servers;
    std::vector<HostCtl::Network::Ipv6Address> ipv6Servers;
    std::vector<std::string> search;
    bool dhcp = false;
};

struct RouteRecord {
    HostCtl::Network::Ipv4Address ipv4Gateway;
    HostCtl::Network::Ipv6Address ipv6Gateway;
};

// Every operation throws HostCtl::Lib::HostCtlException on failure (an unknown name included).
class NetworkBackend {
public:
    virtual ~NetworkBackend() = default;
    virtual NetworkSnapshot Read() = 0;

    // Kernel interfaces.
    virtual void SetTesNicIpConfig(const std::string& tesnic, const HostCtl::Network::IpConfig& config) = 0;
    virtual void SetTesNicMac(const std::string& tesnic, const HostCtl::Network::MacAddress& mac) = 0;
    virtual void SetTesNicEnabled(const std::string& tesnic, bool enabled) = 0;
    virtual void SetTesNicDhcpBound(const std::string& tesnic, bool bound) = 0;
    virtual void SetTesNicConnection(const std::string& tesnic, const ConnectionRecord& connection) = 0;
    virtual void RenewDhcpLease(const std::string& tesnic) = 0;
    virtual void RenewDhcpv6Lease(const std::string& tesnic) = 0;

    // Standard switches and their port groups.
    virtual void AddStandardSwitch(const std::string& name, int ports) = 0;
    virtual void AddPortGroup(const std::string& kswitch, const std::string& portGroup) = 0;
    virtual void AddUplink(const std::string& kswitch, const std::string& pnic) = 0;
    virtual void RemoveUplink(const std::string& kswitch, const std::string& pnic) = 0;
    virtual void SetTeamingPolicy(const std::string& kswitch, const std::string& portGroup,
                                  const HostCtl::Network::NicTeamingPolicy& policy) = 0;
    virtual void SetVlanId(const std::string& kswitch, const std::string& portGroup, uint16_t vlan) = 0;

    // Distributed switches.
    virtual void RemoveDistributedUplink(const std::string& dswitch, const std::string& pnic) = 0;
    virtual void AddDistributedPort(const std::string& dswitch, const DistributedPortRecord& port) = 0;

    // Host-wide.
    virtual void SetIpv6Enabled(bool enabled) = 0; // takes effect at the next boot
    virtual void ClearNetworkConfig() = 0;
    virtual void AutoConfigNetwork() = 0;
    virtual void DisableNetDumper() = 0;
};

class DnsBackend {
public:
    virtual ~DnsBackend() = default;
    virtual DnsRecord Read() = 0;
    // Replaces the whole resolver configuration in one step.
    virtual void Write(const DnsRecord& dns) = 0;
    // Called before a change is held for the next Write (its name, then its arguments), so that a host can
    // refuse it at once; the default takes every change.
    virtual void Prepare(const std::vector<std::string>& /*operation*/) {}
};

class RoutingBackend {
public:
    virtual ~RoutingBackend() = default;
    virtual RouteRecord Read() = 0;
    virtual void SetIpv4Gateway(const HostCtl::Network::Ipv4Address& gateway) = 0;
    virtual void SetIpv6Gateway(const HostCtl::Network::Ipv6Address& gateway) = 0;
};

// The backends of the host selected at start-up (Platform::ActiveBackends()).
NetworkBackend& ActiveNetworkBackend();
DnsBackend& ActiveDnsBackend();
RoutingBackend& ActiveRoutingBackend();

} // namespace Platform
