// The simulated host's implementations of the system, hardware, option, smart-card, resource and firewall
// backends: each reads or changes host.json at the host root (schema in docs/simhost.md).
#pragma once

#include "platform/HostBackends.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/sim/SimState.h"

#include <string>

namespace Platform::Sim {

SystemBackend& SystemArea();
HardwareBackend& HardwareArea();
OptionBackend& OptionArea();
SmartCardBackend& SmartCardArea();
ResourceBackend& ResourceArea();
FirewallBackend& FirewallArea();

// Runs `read` on the current state; a value of the wrong JSON type surfaces as HostCtlException, like
// every other failure of the simulated host.
template <typename Fn> auto ReadState(Fn&& read) -> decltype(read(std::declval<const Json&>())) {
    auto state = Load();
    try {
        return read(*state);
    } catch (const nlohmann::json::exception& e) {
        throw HostCtl::Lib::HostCtlException(SimHost::InvalidState(HostRoot(), e.what()));
    }
}

} // namespace Platform::Sim
