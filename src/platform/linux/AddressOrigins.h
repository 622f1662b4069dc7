// Where an address came from. The kernel does not record whether an IPv4 address came from a DHCP
// server, so that is asked of whoever configured the link: systemd-networkd when it manages the link, else
// dhclient's leases and ifupdown's definitions; an address none of them explains was set by hand.
#pragma once

#include "platform/NetworkTypes.h"
#include "platform/linux/DhcpLeases.h"
#include "platform/linux/HostFacts.h"
#include "platform/linux/NetworkdLink.h"

#include <map>
#include <string>
#include <vector>

namespace Platform::Linux {

struct OriginSources {
    std::vector<DhcpLease> leases;
    std::map<std::string, IfupdownMethods> ifupdown; // by link name
    std::map<std::string, NetworkdLink> networkd;    // by link name; only links networkd describes
};

struct Ipv4Origin {
    bool dhcp = false;
    HostCtl::Network::Ipv4Address server; // unset when not known (DHCP configured, no lease yet)
};

// `address` is the link's IPv4 address now; unset when it has none.
Ipv4Origin DecideIpv4Origin(const OriginSources& sources, const std::string& link,
                            const HostCtl::Network::Ipv4Address& address);

// The origin type of an IPv6 address (Ipv6Network::TYPE_STATIC, TYPE_AUTOCONF or TYPE_DHCP): networkd's
// word when it manages the link; else a link-local address is autoconfigured, an address without lifetime
// static, a single-address prefix from DHCPv6 and any other an address from a router advertisement.
int DecideIpv6Type(const OriginSources& sources, const std::string& link, const AddressFact& address);

} // namespace Platform::Linux
