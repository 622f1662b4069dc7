// Runs a helper program (simhost, rsvg-convert) to completion and captures what it prints.
#pragma once

#include <string>
#include <vector>

namespace e2e {

struct CommandResult {
    int status = -1;    // exit status, or -1 when it could not start or was killed
    std::string output; // standard output and standard error together
};

CommandResult RunCommand(const std::vector<std::string>& argv);

} // namespace e2e
