// Service operations for the network virtualisation agent bryn-opsagent, stopped and restarted around
// changes to the switches it manages.
#pragma once

#include <string>

namespace Tarn {

// Stops the agent; `wasStopped` tells BrynOpsAgentStart whether there is anything to start again.
void BrynOpsAgentStop(bool& wasStopped);
void BrynOpsAgentStart(bool wasStopped);

// The agent's init script answers its status with 0.
bool BrynOpsAgentPresent();
// The installed package's major version is 3 or more.
bool BrynOpsAgentIsV3();
// Present and at least version 3.
bool BrynOpsAgentActive();

// Runs the agent's switch migration tool with "-m -p a -I b"; true on exit code 0.
bool BrynMigrateSwitch(const std::string& a, const std::string& b);

// The shell line that exits 0 exactly when the installed agent's major version is 3 or more.
std::string BrynOpsAgentVersionTestLine();

} // namespace Tarn
