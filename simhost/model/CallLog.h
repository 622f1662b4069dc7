// The simulated host's record of what was done to it and its injected failures. Tool runs and the console's
// host-control operations append to the same log (DIR/var/log/simhost-calls.log, one JSON array of words
// per line), so a test sees one ordered history; "simulation.failing" entries make either kind fail.
#pragma once

#include "simhost/model/Store.h"

#include <string>
#include <vector>

namespace SimHost {

// One write with O_APPEND, so lines of concurrent writers never interleave. A log that cannot be opened
// is skipped: recording must never change what the host does.
void AppendCallLog(const std::string& dir, const std::vector<std::string>& words);

// True when an entry of the state's "simulation.failing" list, split at blanks, begins `words`.
bool IsFailing(const Json& state, const std::vector<std::string>& words);

} // namespace SimHost
