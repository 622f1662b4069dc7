// The IP configuration of one kernel interface (IPv4 mode and addresses, IPv6 mode, networks and gateway,
// DNS from DHCP) and the NIC teaming policy of a port group. Plain values.
#pragma once

#include "platform/NetworkTypes.h"

#include <string>
#include <vector>

namespace HostCtl::Network {

class IpConfig {
public:
    bool GetUseDhcp() const { return useDhcp_; }
    // Using DHCP implies IPv4 is on, so switching DHCP on also clears "IPv4 disabled".
    void SetUseDhcp(bool useDhcp);
    // Sets both flags at once (DHCP off with IPv4 disabled is the "none" configuration).
    void SetUseDhcp(bool useDhcp, bool ipv4UseNone);

    bool GetIpv4UseNone() const { return ipv4UseNone_; }
    void SetIpv4UseNone() { ipv4UseNone_ = true; }

    const Ipv4Address& GetIpv4Address() const { return ipv4Address_; }
    void SetIpv4Address(const Ipv4Address& address) { ipv4Address_ = address; }
    const Ipv4Address& GetIpv4Netmask() const { return ipv4Netmask_; }
    void SetIpv4Netmask(const Ipv4Address& netmask) { ipv4Netmask_ = netmask; }
    const Ipv4Address& GetIpv4Gateway() const { return ipv4Gateway_; }
    void SetIpv4Gateway(const Ipv4Address& gateway) { ipv4Gateway_ = gateway; }

    bool GetIpv6Enabled() const { return ipv6Enabled_; }
    void EnableIpv6() { ipv6Enabled_ = true; }
    void DisableIpv6() { ipv6Enabled_ = false; }

    bool GetUseIpv6Dhcp() const { return useIpv6Dhcp_; }
    void SetUseIpv6Dhcp(bool use) { useIpv6Dhcp_ = use; }
    bool GetUseIpv6RouterAdvertised() const { return useRouterAdvertised_; }
    void SetUseIpv6RouterAdvertised(bool use) { useRouterAdvertised_ = use; }

    const std::vector<Ipv6Network>& GetIpv6Network() const { return ipv6Networks_; }
    // Adding a network already present (same address and prefix) changes nothing.
    void AddIpv6Network(const Ipv6Network& network);
    // Returns whether it was present.
    bool RemoveIpv6Network(const Ipv6Network& network);

    const Ipv6Address& GetIpv6Gateway() const { return ipv6Gateway_; }
    void SetIpv6Gateway(const Ipv6Address& gateway) { ipv6Gateway_ = gateway; }

    bool GetDhcpDns() const { return dhcpDns_; }
    void SetDhcpDns(bool dhcpDns) { dhcpDns_ = dhcpDns; }

    // IPv4 DHCP or DHCPv6 in use.
    bool IsUsingDhcp() const { return useDhcp_ || useIpv6Dhcp_; }

    bool operator==(const IpConfig& other) const = default;

private:
    bool useDhcp_ = false;
    bool ipv4UseNone_ = false;
    Ipv4Address ipv4Address_;
    Ipv4Address ipv4Netmask_;
    Ipv4Address ipv4Gateway_;
    bool ipv6Enabled_ = false;
    bool useIpv6Dhcp_ = false;
    bool useRouterAdvertised_ = false;
    std::vector<Ipv6Network> ipv6Networks_;
    Ipv6Address ipv6Gateway_;
    bool dhcpDns_ = false;
};

// Which uplinks of a switch carry a port group's traffic, in failover order, and how many are active.
class NicTeamingPolicy {
public:
    const std::vector<std::string>& GetUplinkOrder() const { return uplinkOrder_; }
    void SetUplinkOrder(std::vector<std::string> order) { uplinkOrder_ = std::move(order); }
    int GetMaxActiveUplinks() const { return maxActive_; }
    void SetMaxActiveUplinks(int count) { maxActive_ = count; }

    bool operator==(const NicTeamingPolicy& other) const = default;

private:
    std::vector<std::string> uplinkOrder_;
    int maxActive_ = 0;
};

} // namespace HostCtl::Network
