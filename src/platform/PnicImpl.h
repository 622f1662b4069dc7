// A physical NIC of the host, read by name. Each getter reads the host unless Refresh() has cached it.
#pragma once

#include "platform/Network.h"
#include "platform/NetworkBackend.h"

#include <optional>

namespace TesCtl::Network {

class PnicImpl : public HostCtl::Network::Pnic {
public:
    // Does not touch the host; a NIC that does not exist fails at the first read.
    explicit PnicImpl(std::string name) : name_(std::move(name)) {}

    // Re-reads the NIC from the host.
    void Refresh();

    std::string GetName() override { return name_; }
    HostCtl::Network::MacAddress GetMacAddress() override;
    // Throws HostCtlException when the PCI device cannot be read.
    HostCtl::Network::PciDevice GetPciDevice() override;
    bool GetLinkUp() override;
    int GetLinkSpeedMbps() override;
    std::string GetDriver() override;

private:
    const Platform::PnicRecord& Current();

    std::string name_;
    std::optional<Platform::PnicRecord> record_;
};

} // namespace TesCtl::Network
