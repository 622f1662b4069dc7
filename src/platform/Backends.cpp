// Backend choice: the built-in sets of both hosts, the set fixed at start-up, and the test override.
#include "platform/Backends.h"

#include "platform/HostRoot.h"
#include "platform/LinuxHost.h"
#include "platform/sim/SimHostAreas.h"

#include <optional>

namespace Platform {
namespace {

std::optional<Backends> gInstalled;

template <class T> void Fill(T*& field, T* replacement) {
    if (replacement != nullptr)
        field = replacement;
}

} // namespace

Backends BuiltInBackends(bool simulated) {
    if (simulated) {
        return {&Sim::SystemArea(),    &Sim::HardwareArea(), &Sim::OptionArea(),
                &Sim::SmartCardArea(), &Sim::ResourceArea(), &Sim::FirewallArea(),
                &Sim::NetworkArea(),   &Sim::DnsArea(),      &Sim::RoutingArea()};
    }
    return {&Linux::SystemArea(),    &Linux::HardwareArea(), &Linux::OptionArea(),
            &Linux::SmartCardArea(), &Linux::ResourceArea(), &Linux::FirewallArea(),
            &Linux::NetworkArea(),   &Linux::DnsArea(),      &Linux::RoutingArea()};
}

void ChooseBackends() {
    gInstalled = BuiltInBackends(IsSimulatedHost());
}

const Backends& ActiveBackends() {
    if (gInstalled)
        return *gInstalled;
    // Built once each (a function's statics are initialised thread-safely): workers may ask at any time.
    if (IsSimulatedHost()) {
        static const Backends simulated = BuiltInBackends(true);
        return simulated;
    }
    static const Backends real = BuiltInBackends(false);
    return real;
}

ScopedBackends::ScopedBackends(const Backends& backends)
    : hadInstalled_(gInstalled.has_value()), previous_(ActiveBackends()) {
    Backends next = previous_;
    Fill(next.system, backends.system);
    Fill(next.hardware, backends.hardware);
    Fill(next.options, backends.options);
    Fill(next.smartCards, backends.smartCards);
    Fill(next.resources, backends.resources);
    Fill(next.firewall, backends.firewall);
    Fill(next.network, backends.network);
    Fill(next.dns, backends.dns);
    Fill(next.routing, backends.routing);
    gInstalled = next;
}

ScopedBackends::~ScopedBackends() {
    if (hadInstalled_)
        gInstalled = previous_;
    else
        gInstalled.reset();
}

} // namespace Platform
