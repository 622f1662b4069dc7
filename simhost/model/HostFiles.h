// The text files a new simulated host is created with: shell scripts that call the multi-call tool, PAM
// service files, the hosts file, support information and sample log lines.
#pragma once

#include "simhost/model/Store.h"

#include <string>
#include <vector>

namespace SimHost {

struct HostFile {
    std::string path; // relative to DIR
    std::string text;
    bool executable = false;
};

// The internal tool name the scripts exec (DIR/sbin/simhost-script SCRIPT ARGS...).
inline constexpr const char* kScriptTool = "simhost-script";

// Every text file of a new host in `dir` (absolute) with state `state`.
std::vector<HostFile> HostTextFiles(const std::string& dir, const Json& state);

} // namespace SimHost
