// Access of the sim backends to the simulated host's state: reads and transactions on host.json whose
// failures arrive as HostCtl::Lib::HostCtlException, like every other host-control failure.
#pragma once

#include "simhost/model/Store.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Platform::Sim {

using Json = SimHost::Json;

// The whole state of the simulated host at the host root, shared and read-only: the same parsed document
// serves every read until the file changes.
std::shared_ptr<const Json> Load();
// Runs `change` in one transaction; returns the stored state.
Json Change(const std::function<void(Json&)>& change);

// A host-control operation: recorded in the call log as "hostctl" followed by `operation` (its name, then
// its arguments), then run as one transaction unless "simulation.failing" lists it, in which case it throws
// HostCtlException "simulated failure" and changes nothing.
Json Operate(const std::vector<std::string>& operation, const std::function<void(Json&)>& change);
// Only records and checks an operation whose effect the caller holds until later (resolver changes).
void Announce(const std::vector<std::string>& operation);

// Reads `pointer` (a JSON pointer such as "/dns/hostname") from a state, throwing HostCtlException
// "invalid simulated host state <file>: missing <pointer>" when it is absent.
const Json& At(const Json& state, const char* pointer);

} // namespace Platform::Sim
