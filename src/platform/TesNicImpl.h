// The kernel interface object of the host-control layer. It caches the interface's record and keeps a stale
// flag: every change marks it stale, and the next read re-reads the host first.
#pragma once

#include "platform/Network.h"
#include "platform/NetworkBackend.h"

#include <functional>

namespace TesCtl::Network {

class TesNicImpl : public HostCtl::Network::TesNic {
public:
    // Reads the interface now; throws HostCtlException when the host has no interface of that name.
    explicit TesNicImpl(std::string name);
    // From a snapshot already read.
    explicit TesNicImpl(Platform::TesNicRecord record);

    std::string GetName() override { return name_; }
    HostCtl::Network::IpConfig GetIpConfig() override;
    HostCtl::Network::IpConfig GetConfiguredIpConfig() override;
    void SetIpConfig(const HostCtl::Network::IpConfig& config) override;
    HostCtl::Network::MacAddress GetMacAddress() override;
    void SetMacAddress(const HostCtl::Network::MacAddress& mac) override;
    void SetMacAddressFromPnic(HostCtl::Network::Pnic& pnic) override;
    std::unique_ptr<HostCtl::Network::ConnectionPoint> GetConnectionPoint() override;
    void SetConnectionPoint(const HostCtl::Network::ConnectionPoint& point) override;
    void Disable() override;
    void Enable() override;
    bool IsEnabled() override;
    bool GetDhcpBound() override;
    void SetDhcpBound(bool bound) override;
    void RenewDhcpLease() override;
    void RenewDhcpv6Lease() override;
    HostCtl::Network::Ipv4Address GetDhcpServer() override;
    void Refresh() override;
    bool IsStale() override { return stale_; }

private:
    const Platform::TesNicRecord& Current();
    void Changing(const std::function<void(Platform::NetworkBackend&)>& change);

    std::string name_;
    Platform::TesNicRecord record_;
    bool stale_ = false;
};

} // namespace TesCtl::Network
