// Resource facts of the host: whether any virtual machine runs.
#pragma once

namespace TesCtl::Resource {

class ResourceInfoImpl {
public:
    // Throws HostCtl::Lib::HostCtlException on a backend failure.
    bool HasRunningVirtualMachines();
};

} // namespace TesCtl::Resource
