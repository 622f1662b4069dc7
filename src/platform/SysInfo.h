// Kernel sysinfo reads: the system-version record and the boot options.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace Platform {

struct SystemVersion {
    std::string productName;
    std::string productVersion;
    std::string kernelVersion;
    std::string build;
};

// Node "system.version". Throws HostCtl::Lib::HostCtlException when it cannot be read.
SystemVersion ReadSystemVersion();

// Node "system.bootOption" (4 bytes; the first is 1 in audit mode). Returns false when the read fails.
bool ReadBootOption(std::array<uint8_t, 4>& out);

} // namespace Platform
