// The real host's network in the console's model. Physical NICs are the Ethernet links with a bus device,
// in bus-address order, then the links tarn's configuration adds, named nicx0, nicx1, ...; a bridge (or a
// bond) is a standard switch whose ports are its uplinks, with one port group of its own name; a NIC in no
// bridge is a switch of its own. The links that hold addresses (bridges, bonds, bare NICs) are the
// tesnics, under their kernel names. There are no distributed switches.
#pragma once

#include "platform/NetworkBackend.h"
#include "platform/linux/AddressOrigins.h"
#include "platform/linux/HostFacts.h"
#include "platform/linux/LinuxHostConfig.h"

#include <string>
#include <vector>

namespace Platform::Linux {

struct MappedNetwork {
    NetworkSnapshot snapshot;
    RouteRecord routes;                // unset members: no such default route
    bool managementDhcp = false;       // the management interface takes IPv4 from DHCP
    std::vector<std::string> problems; // what could not be told, with the reason
};

// The management interface is the link named in the configuration, else the link that holds the source
// address of the IPv4 default route with the lowest metric (the route's own link when it names none), else
// the first tesnic with uplinks, one with an IPv4 address first.
MappedNetwork MapNetwork(const HostFacts& facts, const LinuxHostConfig& config, const OriginSources& origins);

} // namespace Platform::Linux
