// The real-host implementations of the system, hardware, option, smart-card, resource and firewall backends.
// They use what Linux offers cheaply (uname, os-release, /proc/cpuinfo, sysconf, DMI); everything else
// throws HostCtlException("not available on this host").
#pragma once

#include "platform/HostBackends.h"

#include <string_view>

namespace Platform::Linux {

SystemBackend& SystemArea();
HardwareBackend& HardwareArea();
OptionBackend& OptionArea();
SmartCardBackend& SmartCardArea();
ResourceBackend& ResourceArea();
FirewallBackend& FirewallArea();

[[noreturn]] void NotAvailable();

// /proc/cpuinfo: packages = distinct "physical id" values (1 when the kernel lists none), model = the first
// "model name".
CpuFacts ParseCpuInfo(std::string_view text);

// /etc/os-release: NAME and VERSION_ID, quotes removed.
struct OsRelease {
    std::string name;
    std::string versionId;
};
OsRelease ParseOsRelease(std::string_view text);

} // namespace Platform::Linux
