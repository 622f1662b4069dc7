// Physical NIC object.
#include "platform/PnicImpl.h"

#include "platform/HostCtlException.h"

namespace TesCtl::Network {

void PnicImpl::Refresh() {
    for (auto& pnic : Platform::ActiveNetworkBackend().Read().pnics) {
        if (pnic.name == name_) {
            record_ = std::move(pnic);
            return;
        }
    }
    throw HostCtl::Lib::HostCtlException("physical NIC " + name_ + " not found");
}

const Platform::PnicRecord& PnicImpl::Current() {
    if (!record_)
        Refresh();
    return *record_;
}

HostCtl::Network::MacAddress PnicImpl::GetMacAddress() {
    return Current().mac;
}
bool PnicImpl::GetLinkUp() {
    return Current().link;
}
int PnicImpl::GetLinkSpeedMbps() {
    return Current().speedMbps;
}
std::string PnicImpl::GetDriver() {
    return Current().driver;
}

HostCtl::Network::PciDevice PnicImpl::GetPciDevice() {
    const auto& r = Current();
    if (!r.pciReadable)
        throw HostCtl::Lib::HostCtlException("Unable to read PCI device " + r.pci + " of " + name_);
    return HostCtl::Network::PciDevice(r.pci, r.label);
}

} // namespace TesCtl::Network
