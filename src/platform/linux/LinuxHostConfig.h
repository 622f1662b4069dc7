// tarn's own file on a real host (/etc/tarn/linux-host.conf): which link carries management, and which
// links count as physical NICs although they have no bus device (veth pairs in tests, for example).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Platform::Linux {

inline constexpr const char* kLinuxHostConfigPath = "/etc/tarn/linux-host.conf";

struct LinuxHostConfig {
    std::string management;            // kernel name; empty: the link of the IPv4 default route
    std::vector<std::string> nics;     // kernel names, in the order they follow the NICs with a bus address
    std::vector<std::string> problems; // one text per line that was not understood
};

// "key = value" lines ("management", "nic"; "nic" may repeat), '#' comments and blank lines.
LinuxHostConfig ParseLinuxHostConfig(std::string_view text);

} // namespace Platform::Linux
