// HardwareInfoImpl, CpuInfoImpl and MemoryInfoImpl: forwarders to the active hardware backend.
#include "platform/HardwareInfo.h"

#include "platform/HostBackends.h"

namespace TesCtl::Hardware {

std::string HardwareInfoImpl::GetVendorName() {
    return Platform::ActiveHardwareBackend().Identity().vendor;
}
std::string HardwareInfoImpl::GetProductName() {
    return Platform::ActiveHardwareBackend().Identity().product;
}

int CpuInfoImpl::GetNumCpuPackages() {
    return Platform::ActiveHardwareBackend().Cpu().packages;
}
std::string CpuInfoImpl::GetModelName() {
    return Platform::ActiveHardwareBackend().Cpu().model;
}

uint64_t MemoryInfoImpl::GetTotalPages() {
    return Platform::ActiveHardwareBackend().Memory().totalPages;
}
uint64_t MemoryInfoImpl::GetPageSize() {
    return Platform::ActiveHardwareBackend().Memory().pageSize;
}

} // namespace TesCtl::Hardware
