// The backends of the areas for the host selected at start-up (see Backends.h).
#include "platform/HostBackends.h"

#include "platform/Backends.h"

namespace Platform {

SystemBackend& ActiveSystemBackend() {
    return *ActiveBackends().system;
}

HardwareBackend& ActiveHardwareBackend() {
    return *ActiveBackends().hardware;
}

OptionBackend& ActiveOptionBackend() {
    return *ActiveBackends().options;
}

SmartCardBackend& ActiveSmartCardBackend() {
    return *ActiveBackends().smartCards;
}

ResourceBackend& ActiveResourceBackend() {
    return *ActiveBackends().resources;
}

FirewallBackend& ActiveFirewallBackend() {
    return *ActiveBackends().firewall;
}

} // namespace Platform
