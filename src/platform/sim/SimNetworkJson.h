// Conversions between the network records of the backend seam and their form in the simulated host's
// host.json. Malformed documents throw HostCtl::Lib::HostCtlException.
#pragma once

#include "platform/NetworkBackend.h"
#include "platform/sim/SimState.h"

namespace Platform::Sim {

HostCtl::Network::IpConfig IpConfigFromJson(const Json& json);
Json IpConfigToJson(const HostCtl::Network::IpConfig& config);

NetworkSnapshot NetworkFromJson(const Json& state);
DnsRecord DnsFromJson(const Json& state);
RouteRecord RoutesFromJson(const Json& state);

Json ConnectionToJson(const ConnectionRecord& connection);
Json TeamingToJson(const HostCtl::Network::NicTeamingPolicy& policy);

// Scope names used in host.json ("global", "link", "site", "host").
const char* ScopeName(int scope);

} // namespace Platform::Sim
