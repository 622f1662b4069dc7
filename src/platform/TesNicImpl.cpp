// Kernel interface object: cached record, stale flag, changes forwarded to the active backend.
#include "platform/TesNicImpl.h"

#include "platform/HostCtlException.h"

namespace TesCtl::Network {

using namespace HostCtl::Network;
using Platform::ActiveNetworkBackend;

TesNicImpl::TesNicImpl(std::string name) : name_(std::move(name)) {
    Refresh();
}

TesNicImpl::TesNicImpl(Platform::TesNicRecord record) : name_(record.name), record_(std::move(record)) {}

void TesNicImpl::Refresh() {
    for (auto& tesnic : ActiveNetworkBackend().Read().tesnics) {
        if (tesnic.name == name_) {
            record_ = std::move(tesnic);
            stale_ = false;
            return;
        }
    }
    throw HostCtl::Lib::HostCtlException("tesnic " + name_ + " not found");
}

const Platform::TesNicRecord& TesNicImpl::Current() {
    if (stale_)
        Refresh();
    return record_;
}

IpConfig TesNicImpl::GetIpConfig() {
    return Current().running;
}
IpConfig TesNicImpl::GetConfiguredIpConfig() {
    return Current().stored;
}
MacAddress TesNicImpl::GetMacAddress() {
    return Current().mac;
}
bool TesNicImpl::IsEnabled() {
    return Current().enabled;
}
bool TesNicImpl::GetDhcpBound() {
    return Current().dhcpBound;
}
Ipv4Address TesNicImpl::GetDhcpServer() {
    return Current().dhcpServer;
}

std::unique_ptr<ConnectionPoint> TesNicImpl::GetConnectionPoint() {
    const auto& c = Current().connection;
    switch (c.type) {
    case ConnectionPoint::TYPE_PORT_GROUP:
        return std::make_unique<PortGroup>(c.portGroup);
    case ConnectionPoint::TYPE_DV_PORT:
        return std::make_unique<DVPort>(c.switchName, c.port);
    default:
        return std::make_unique<ConnectionPoint>(c.type);
    }
}

// Every change marks the cache stale, even a failed one: the host may have taken part of it.
void TesNicImpl::Changing(const std::function<void(Platform::NetworkBackend&)>& change) {
    stale_ = true;
    change(ActiveNetworkBackend());
}

void TesNicImpl::SetIpConfig(const IpConfig& config) {
    Changing([&](auto& b) { b.SetTesNicIpConfig(name_, config); });
}
void TesNicImpl::SetMacAddress(const MacAddress& mac) {
    Changing([&](auto& b) { b.SetTesNicMac(name_, mac); });
}
void TesNicImpl::SetMacAddressFromPnic(Pnic& pnic) {
    SetMacAddress(pnic.GetMacAddress());
}
void TesNicImpl::Disable() {
    Changing([&](auto& b) { b.SetTesNicEnabled(name_, false); });
}
void TesNicImpl::Enable() {
    Changing([&](auto& b) { b.SetTesNicEnabled(name_, true); });
}
void TesNicImpl::SetDhcpBound(bool bound) {
    Changing([&](auto& b) { b.SetTesNicDhcpBound(name_, bound); });
}
void TesNicImpl::RenewDhcpLease() {
    Changing([&](auto& b) { b.RenewDhcpLease(name_); });
}
void TesNicImpl::RenewDhcpv6Lease() {
    Changing([&](auto& b) { b.RenewDhcpv6Lease(name_); });
}

void TesNicImpl::SetConnectionPoint(const ConnectionPoint& point) {
    Platform::ConnectionRecord record;
    record.type = point.GetType();
    if (const auto* pg = dynamic_cast<const PortGroup*>(&point))
        record.portGroup = pg->GetPortGroupName();
    else if (const auto* port = dynamic_cast<const DVPort*>(&point)) {
        record.switchName = port->GetSwitchName();
        record.port = port->GetPortKey();
    } else
        throw HostCtl::Lib::HostCtlException("Unsupported connection point type " +
                                             std::to_string(record.type));
    Changing([&](auto& b) { b.SetTesNicConnection(name_, record); });
}

} // namespace TesCtl::Network
