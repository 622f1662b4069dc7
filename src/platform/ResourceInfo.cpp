// ResourceInfoImpl: forwards to the active resource backend.
#include "platform/ResourceInfo.h"

#include "platform/HostBackends.h"

namespace TesCtl::Resource {

bool ResourceInfoImpl::HasRunningVirtualMachines() {
    return Platform::ActiveResourceBackend().HasRunningVirtualMachines();
}

} // namespace TesCtl::Resource
