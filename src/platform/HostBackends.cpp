// Picks the backend of each area for the host selected at start-up.
#include "platform/HostBackends.h"

#include "platform/HostRoot.h"
#include "platform/LinuxHost.h"
#include "platform/sim/SimHostAreas.h"

namespace Platform {

SystemBackend& ActiveSystemBackend() {
    return IsSimulatedHost() ? Sim::SystemArea() : Linux::SystemArea();
}

HardwareBackend& ActiveHardwareBackend() {
    return IsSimulatedHost() ? Sim::HardwareArea() : Linux::HardwareArea();
}

OptionBackend& ActiveOptionBackend() {
    return IsSimulatedHost() ? Sim::OptionArea() : Linux::OptionArea();
}

SmartCardBackend& ActiveSmartCardBackend() {
    return IsSimulatedHost() ? Sim::SmartCardArea() : Linux::SmartCardArea();
}

ResourceBackend& ActiveResourceBackend() {
    return IsSimulatedHost() ? Sim::ResourceArea() : Linux::ResourceArea();
}

FirewallBackend& ActiveFirewallBackend() {
    return IsSimulatedHost() ? Sim::FirewallArea() : Linux::FirewallArea();
}

} // namespace Platform
