// What dhclient and ifupdown leave on disk: dhclient's lease files (/var/lib/dhcp/dhclient*.leases) and
// ifupdown's interface definitions (/etc/network/interfaces).
#pragma once

#include "platform/NetworkTypes.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Platform::Linux {

struct DhcpLease {
    std::string interface;
    HostCtl::Network::Ipv4Address address;
    HostCtl::Network::Ipv4Address netmask;
    HostCtl::Network::Ipv4Address server; // the server identifier; unset when the lease names none
    std::vector<HostCtl::Network::Ipv4Address> routers;
    std::vector<HostCtl::Network::Ipv4Address> nameServers;
    std::string domain;
};

// Every "lease { ... }" block of a dhclient lease file, in file order (the newest last). Statements
// that cannot be read are skipped; an unterminated block is dropped.
std::vector<DhcpLease> ParseDhclientLeases(std::string_view text);

// The newest lease of `interface` that hands out `address`: only such a lease explains the address the
// interface holds now. Null when there is none.
const DhcpLease* FindLease(const std::vector<DhcpLease>& leases, const std::string& interface,
                           const HostCtl::Network::Ipv4Address& address);

struct IfupdownMethods {
    std::string inet;  // "dhcp", "static", "manual", ...; empty when not defined
    std::string inet6; // "auto", "dhcp", "static", ...
};

// The "iface NAME FAMILY METHOD" stanzas by interface name; "source" lines are not followed.
std::map<std::string, IfupdownMethods> ParseIfupdownInterfaces(std::string_view text);

} // namespace Platform::Linux
