// Creating a simulated host directory from a scenario.
#pragma once

#include <string>
#include <vector>

namespace SimHost {

// Names of the built-in scenarios, "default" first.
std::vector<std::string> ScenarioNames();

// Creates (or re-creates) a simulated host in `dir` from `scenario`: state file, tools, scripts, PAM files,
// log files, marker files. `buildDir` holds the built simhost-tool and pam_simhost.so to install.
// Throws StoreError with a clear message on failure (unknown scenario, unwritable directory, missing build).
void InitHost(const std::string& dir, const std::string& scenario, const std::string& buildDir);

} // namespace SimHost
