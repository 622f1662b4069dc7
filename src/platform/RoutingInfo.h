// The host's default gateways (IPv4 and IPv6) of the default network stack.
#pragma once

#include "platform/NetworkTypes.h"

namespace TesCtl::Network {

// Operations read or change the host at once and throw HostCtlException on failure.
class RoutingInfoImpl {
public:
    // 0.0.0.0 when none.
    HostCtl::Network::Ipv4Address GetTesselDefaultGateway();
    // `fromDhcp`: the gateway came from a DHCP server. The simulated host records no origin for it.
    void SetTesselDefaultGateway(const HostCtl::Network::Ipv4Address& gateway, bool fromDhcp);
    // "::" when none.
    HostCtl::Network::Ipv6Address GetIpv6TesselDefaultGateway();
    void SetIpv6TesselDefaultGateway(const HostCtl::Network::Ipv6Address& gateway);
};

} // namespace TesCtl::Network
