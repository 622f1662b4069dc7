// The host root: every fixed host path and every program the console starts goes through HostPath, so
// that against the simulated host nothing can reach the real machine.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// "/" on a real host, the simulated host's directory otherwise. Set once at start-up.
const std::string& HostRoot();
bool IsSimulatedHost();

// Selects the simulated host in `dir` (absolute). Used by start-up and by tests.
void UseSimulatedHost(const std::string& dir);
// Selects the real machine ("linux" backend).
void UseRealHost();

// Prefixes an absolute host path with the host root: HostPath("/etc/hosts") is "DIR/etc/hosts" in sim mode.
std::string HostPath(std::string_view absolutePath);

} // namespace Platform
