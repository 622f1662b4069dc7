// Hardware facts of the host: system vendor and model, CPU packages and model, physical memory.
#pragma once

#include <cstdint>
#include <string>

namespace TesCtl::Hardware {

// All operations throw HostCtl::Lib::HostCtlException on a backend failure.
class HardwareInfoImpl {
public:
    std::string GetVendorName();
    std::string GetProductName();
};

class CpuInfoImpl {
public:
    int GetNumCpuPackages();
    std::string GetModelName();
};

class MemoryInfoImpl {
public:
    uint64_t GetTotalPages();
    // Bytes per page.
    uint64_t GetPageSize();
};

} // namespace TesCtl::Hardware
