// Deciding the origin of addresses from the configuring programs' records.
#include "platform/linux/AddressOrigins.h"

#include <sys/socket.h>

namespace Platform::Linux {

using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Network;

namespace {

const NetworkdLink* Managed(const OriginSources& sources, const std::string& link) {
    auto it = sources.networkd.find(link);
    return it != sources.networkd.end() && it->second.managed ? &it->second : nullptr;
}

} // namespace

Ipv4Origin DecideIpv4Origin(const OriginSources& sources, const std::string& link,
                            const Ipv4Address& address) {
    Ipv4Origin origin;
    if (const NetworkdLink* networkd = Managed(sources, link)) {
        if (const NetworkdAddress* dhcp = Dhcp4Address(*networkd)) {
            origin.dhcp = true;
            if (Ipv4Address::IsValidAddress(dhcp->provider))
                origin.server = Ipv4Address(dhcp->provider);
        }
        return origin;
    }
    if (const DhcpLease* lease = FindLease(sources.leases, link, address)) {
        origin.dhcp = true;
        origin.server = lease->server;
        return origin;
    }
    auto it = sources.ifupdown.find(link);
    origin.dhcp = it != sources.ifupdown.end() && it->second.inet == "dhcp";
    return origin;
}

int DecideIpv6Type(const OriginSources& sources, const std::string& link, const AddressFact& address) {
    if (const NetworkdLink* networkd = Managed(sources, link)) {
        for (const auto& known : networkd->addresses) {
            if (known.family != AF_INET6 || known.address != address.address)
                continue;
            if (known.source == "DHCPv6" || known.source == "DHCP-PD")
                return Ipv6Network::TYPE_DHCP;
            if (known.source == "NDisc")
                return Ipv6Network::TYPE_AUTOCONF;
            if (known.source == "static")
                return Ipv6Network::TYPE_STATIC;
        }
    }
    if (address.linkScope)
        return Ipv6Network::TYPE_AUTOCONF;
    if (address.permanent)
        return Ipv6Network::TYPE_STATIC;
    return address.prefixLength == 128 ? Ipv6Network::TYPE_DHCP : Ipv6Network::TYPE_AUTOCONF;
}

} // namespace Platform::Linux
