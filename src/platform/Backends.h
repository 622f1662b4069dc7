// One place for the backend of every host area: chosen once at start-up for the selected host, and
// replaceable by tests (a recording backend, or one that fails a chosen call).
#pragma once

#include "platform/HostBackends.h"
#include "platform/NetworkBackend.h"

namespace Platform {

struct Backends {
    SystemBackend* system = nullptr;
    HardwareBackend* hardware = nullptr;
    OptionBackend* options = nullptr;
    SmartCardBackend* smartCards = nullptr;
    ResourceBackend* resources = nullptr;
    FirewallBackend* firewall = nullptr;
    NetworkBackend* network = nullptr;
    DnsBackend* dns = nullptr;
    RoutingBackend* routing = nullptr;
};

// The built-in backends of the simulated host or of the real machine.
Backends BuiltInBackends(bool simulated);

// Fixes the backends for the rest of the run: the built-in ones of the host selected (IsSimulatedHost()).
void ChooseBackends();

// The backends in use. Before ChooseBackends or an installed set, the built-in ones of the host selected
// right now, so that tests which only switch the host root need nothing else.
const Backends& ActiveBackends();

// Installs `backends` for its lifetime; areas left null keep the backend in use before. Restores the
// previous set when it ends. For tests.
class ScopedBackends {
public:
    explicit ScopedBackends(const Backends& backends);
    ~ScopedBackends();
    ScopedBackends(const ScopedBackends&) = delete;
    ScopedBackends& operator=(const ScopedBackends&) = delete;

private:
    bool hadInstalled_;
    Backends previous_;
};

namespace Sim {
NetworkBackend& NetworkArea();
DnsBackend& DnsArea();
RoutingBackend& RoutingArea();
} // namespace Sim

namespace Linux {
NetworkBackend& NetworkArea();
DnsBackend& DnsArea();
RoutingBackend& RoutingArea();
} // namespace Linux

} // namespace Platform
