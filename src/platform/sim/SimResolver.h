// Name resolution on the simulated host (docs/simhost.md, "Name resolution").
#pragma once

#include <string>

namespace Platform::Sim {

// The hosts file under the host root, then the simulated network's names through the configured name
// servers. Reads host.json directly (not the shared parsed copy), so a worker thread may call it.
bool ResolveHostName(const std::string& name);

} // namespace Platform::Sim
