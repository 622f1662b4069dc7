// The pending changes of the Configure Management Network window: what was read from the host when the
// window opened, edited by each dialog's result, and written by ApplyChanges when the administrator agrees.
// Plain data and the rules that decide whether a dialog's result is a change; it never calls the host.
#pragma once

#include "network/DnsServer.h"
#include "platform/IpConfig.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Tarn {

struct AdaptersResult {
    std::vector<std::string> adapters; // in uplink order
    int32_t activeUplinks = 0;
};

struct Ipv6Result {
    bool enabled = false;
    bool dhcpv6 = false;
    bool routerAdvertised = false;
    std::vector<HostCtl::Network::Ipv6Network> staticNetworks;
    HostCtl::Network::Ipv6Address gateway;
    bool staticEdited = false; // a static address row was changed
};

struct DnsResult {
    bool fromDhcp = false;
    DnsServer primary;
    DnsServer alternate;
    std::string hostname;
};

class PendingNetworkConfig {
public:
    // Addresses in use (DHCP ones too); holds the pending IPv4 address, netmask, gateway, the IPv4-disabled
    // mark, the IPv6 networks and gateway. This is what ApplyChanges writes.
    HostCtl::Network::IpConfig running;
    // Holds the pending mode flags: use DHCP, DHCPv6, router advertisement, DNS from DHCP.
    HostCtl::Network::IpConfig stored;
    std::vector<std::string> adapters;
    int32_t activeUplinks = 0;
    uint16_t vlanId = 0;
    bool onDistributedSwitch = false; // adapters and VLAN are neither shown nor applied
    std::string hostname;
    std::vector<std::string> searchDomains;
    DnsServer primaryDns;
    DnsServer alternateDns;
    std::string suffixes;
    bool changed = false;
    bool ipv6GatewayChanged = false;
    bool ipv6Enabled = false;
    bool ipv6EnabledAtStart = false;

    // Each takes a dialog's OK result, setting `changed` when it differs from the pending value.
    void TakeAdapters(const AdaptersResult& result);
    void TakeVlan(uint16_t vlanId);
    void TakeIpv4(const HostCtl::Network::IpConfig& result);
    void TakeIpv6(const Ipv6Result& result);
    void TakeDns(const DnsResult& result);
    void TakeSuffixes(const std::string& text);

    // The IPv6 switch is compared with its start state here rather than marked as a change, so switching
    // it off and on again is no change.
    bool Ipv6Toggled() const { return ipv6Enabled != ipv6EnabledAtStart; }
    bool HasChanges() const { return changed || Ipv6Toggled(); }
    // The static IPv6 networks of the running configuration, which the IPv6 dialog edits.
    std::vector<HostCtl::Network::Ipv6Network> StaticIpv6Networks() const;
};

// Primary: the first IPv4 server, else the first IPv6 one. Alternate: the first IPv6 server when both
// families are present, else the second server of the one family there is.
void ChooseDnsServers(const std::vector<HostCtl::Network::Ipv4Address>& ipv4,
                      const std::vector<HostCtl::Network::Ipv6Address>& ipv6, DnsServer& primary,
                      DnsServer& alternate);

// The search domains as the suffix text: joined with ", ".
std::string JoinSuffixes(const std::vector<std::string>& domains);
// The suffix text split at white space and commas, empty pieces skipped.
std::vector<std::string> SplitSuffixes(const std::string& text);

} // namespace Tarn
