// Backend selection for the network areas; the real host's backends are in linux/LinuxNetwork.cpp.
#include "platform/NetworkBackend.h"

#include "platform/Backends.h"
#include "platform/sim/SimNetworkBackend.h"

namespace Platform {
namespace Sim {

NetworkBackend& NetworkArea() {
    static SimNetworkBackend sim;
    return sim;
}

DnsBackend& DnsArea() {
    static SimDnsBackend sim;
    return sim;
}

RoutingBackend& RoutingArea() {
    static SimRoutingBackend sim;
    return sim;
}

} // namespace Sim

NetworkBackend& ActiveNetworkBackend() {
    return *ActiveBackends().network;
}

DnsBackend& ActiveDnsBackend() {
    return *ActiveBackends().dns;
}

RoutingBackend& ActiveRoutingBackend() {
    return *ActiveBackends().routing;
}

} // namespace Platform
