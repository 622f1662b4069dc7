// The network, DNS and routing backends of the simulated host: snapshots read from host.json, every change
// one transaction on it. How each change maps onto the state is described in docs/simhost.md.
#pragma once

#include "platform/NetworkBackend.h"

namespace Platform::Sim {

class SimNetworkBackend : public NetworkBackend {
public:
    NetworkSnapshot Read() override;
    void SetTesNicIpConfig(const std::string& tesnic, const HostCtl::Network::IpConfig& config) override;
    void SetTesNicMac(const std::string& tesnic, const HostCtl::Network::MacAddress& mac) override;
    void SetTesNicEnabled(const std::string& tesnic, bool enabled) override;
    void SetTesNicDhcpBound(const std::string& tesnic, bool bound) override;
    void SetTesNicConnection(const std::string& tesnic, const ConnectionRecord& connection) override;
    void RenewDhcpLease(const std::string& tesnic) override;
    void RenewDhcpv6Lease(const std::string& tesnic) override;
    void AddStandardSwitch(const std::string& name, int ports) override;
    void AddPortGroup(const std::string& kswitch, const std::string& portGroup) override;
    void AddUplink(const std::string& kswitch, const std::string& pnic) override;
    void RemoveUplink(const std::string& kswitch, const std::string& pnic) override;
    void SetTeamingPolicy(const std::string& kswitch, const std::string& portGroup,
                          const HostCtl::Network::NicTeamingPolicy& policy) override;
    void SetVlanId(const std::string& kswitch, const std::string& portGroup, uint16_t vlan) override;
    void RemoveDistributedUplink(const std::string& dswitch, const std::string& pnic) override;
    void AddDistributedPort(const std::string& dswitch, const DistributedPortRecord& port) override;
    void SetIpv6Enabled(bool enabled) override;
    void ClearNetworkConfig() override;
    void AutoConfigNetwork() override;
    void DisableNetDumper() override;
};

class SimDnsBackend : public DnsBackend {
public:
    DnsRecord Read() override;
    void Write(const DnsRecord& dns) override;
    void Prepare(const std::vector<std::string>& operation) override;
};

class SimRoutingBackend : public RoutingBackend {
public:
    RouteRecord Read() override;
    void SetIpv4Gateway(const HostCtl::Network::Ipv4Address& gateway) override;
    void SetIpv6Gateway(const HostCtl::Network::Ipv6Address& gateway) override;
};

} // namespace Platform::Sim
