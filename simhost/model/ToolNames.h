// Where the multi-call tool is installed in a simulated host, under which names.
#pragma once

#include <array>

namespace SimHost {

// Paths relative to DIR; each is a copy (or hard link) of simhost-tool, which dispatches on its name.
inline constexpr std::array<const char*, 13> kToolPaths = {
    "bin/kelp-cmd",      "bin/corlacli",         "bin/haltGuests",
    "bin/tesping",       "sbin/haltGuests",      "sbin/reboot",
    "sbin/poweroff",     "sbin/corlacfg-advcfg", "sbin/corlacli",
    "sbin/tesbacktrace", "sbin/simhost-script",  "usr/lib64/orvane/bryn-opsagent/bin/bryncfg-kswitch",
    "sbin/nearcli",
};

} // namespace SimHost
