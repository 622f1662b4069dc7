// systemd-networkd's description of one link, as `networkctl --json=short status LINK` prints it.
// The JSON is networkd's documented output, whereas its state files under /run/systemd/netif say they
// are private; the description also names the source of every address, which is what the console needs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Platform::Linux {

struct NetworkdAddress {
    int family = 0;      // AF_INET or AF_INET6
    std::string address; // text form
    int prefixLength = 0;
    std::string source;   // "static", "DHCPv4", "DHCPv6", "NDisc", "IPv4LL", "foreign", ...
    std::string provider; // the server or router that gave it, text form; empty when none
};

struct NetworkdLink {
    bool managed = false; // networkd configures the link (its setup state is not "unmanaged")
    std::string networkFile;
    std::vector<NetworkdAddress> addresses;
};

// Throws std::runtime_error when `json` is not a link description.
NetworkdLink ParseNetworkdLink(std::string_view json);

// The IPv4 address networkd took from a DHCP server, or null.
const NetworkdAddress* Dhcp4Address(const NetworkdLink& link);

} // namespace Platform::Linux
