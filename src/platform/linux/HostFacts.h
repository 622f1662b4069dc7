// The network facts of a real host as the kernel reports them, before they are mapped onto the console's
// model: links, addresses and default routes, plus the little that sysfs and /proc add per link.
#pragma once

#include "platform/NetworkTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Platform::Linux {

struct LinkFact {
    int index = 0;
    std::string name;
    std::string kind; // the link type ("bridge", "bond", "veth", "vlan", ...); empty for hardware
    int master = 0;   // index of the bridge or bond it is a port of; 0 when none
    HostCtl::Network::MacAddress mac;
    bool ethernet = false; // an Ethernet-type hardware address
    bool loopback = false;
    bool up = false;        // administratively up
    bool carrier = false;   // lower layer up
    std::string busAddress; // "0000:00:03.0"; empty when the link has no bus device
    std::string driver;     // the bus device's driver, else the link type
    int speedMbps = 0;      // 0 when unknown
    int acceptRa = 0;       // the link's accept_ra setting; 0 also when unreadable
};

struct AddressFact {
    int link = 0;
    bool ipv6 = false;
    std::string address; // text form, without zone
    int prefixLength = 0;
    bool permanent = false; // set by hand, no lifetime: neither DHCP nor router advertisement
    bool linkScope = false;
};

struct DefaultRouteFact {
    bool ipv6 = false;
    int link = 0;
    std::string gateway;         // text form; empty for a device route
    std::string preferredSource; // text form; empty when the route names none
    uint32_t metric = 0;
};

struct HostFacts {
    std::vector<LinkFact> links;
    std::vector<AddressFact> addresses;
    std::vector<DefaultRouteFact> defaultRoutes; // of the main table
    bool ipv6Enabled = false;
    std::vector<std::string> problems; // facts that could not be read, with the reason
};

// Reads the facts through rtnetlink (libnl-route-3), sysfs and /proc. Throws HostCtlException when the
// kernel cannot be asked at all; a single unreadable fact becomes a problem and stays unknown.
HostFacts ReadHostFacts();

} // namespace Platform::Linux
