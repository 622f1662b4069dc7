// Default gateways, forwarded to the active routing backend.
#include "platform/RoutingInfo.h"

#include "platform/NetworkBackend.h"

namespace TesCtl::Network {

HostCtl::Network::Ipv4Address RoutingInfoImpl::GetTesselDefaultGateway() {
    return Platform::ActiveRoutingBackend().Read().ipv4Gateway;
}

void RoutingInfoImpl::SetTesselDefaultGateway(const HostCtl::Network::Ipv4Address& gateway, bool) {
    Platform::ActiveRoutingBackend().SetIpv4Gateway(gateway);
}

HostCtl::Network::Ipv6Address RoutingInfoImpl::GetIpv6TesselDefaultGateway() {
    return Platform::ActiveRoutingBackend().Read().ipv6Gateway;
}

void RoutingInfoImpl::SetIpv6TesselDefaultGateway(const HostCtl::Network::Ipv6Address& gateway) {
    Platform::ActiveRoutingBackend().SetIpv6Gateway(gateway);
}

} // namespace TesCtl::Network
