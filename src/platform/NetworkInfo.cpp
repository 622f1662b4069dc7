// Host-wide network objects, built on snapshots of the active network backend.
#include "platform/NetworkInfo.h"

#include "platform/TesNicImpl.h"

namespace TesCtl::Network {

using Platform::ActiveNetworkBackend;

Platform::NetworkSnapshot& NetworkInfoImpl::Snapshot() {
    if (!read_)
        UpdateManagementInterface();
    return snapshot_;
}

void NetworkInfoImpl::UpdateManagementInterface() {
    snapshot_ = ActiveNetworkBackend().Read();
    read_ = true;
}

std::unique_ptr<HostCtl::Network::TesNic> NetworkInfoImpl::GetManagementInterface() {
    const auto& s = Snapshot();
    if (s.management.empty())
        return nullptr;
    for (const auto& tesnic : s.tesnics)
        if (tesnic.name == s.management)
            return std::make_unique<TesNicImpl>(tesnic);
    // Management named but missing: the host has no usable management interface.
    return nullptr;
}

std::vector<std::string> NetworkInfoImpl::GetPnics() {
    std::vector<std::string> names;
    for (const auto& pnic : ActiveNetworkBackend().Read().pnics)
        names.push_back(pnic.name);
    return names;
}

std::vector<std::string> NetworkInfoImpl::GetAllPortGroups() {
    std::vector<std::string> names;
    for (const auto& kswitch : ActiveNetworkBackend().Read().standardSwitches)
        for (const auto& pg : kswitch.portGroups)
            names.push_back(pg.name);
    return names;
}

bool NetworkInfoImpl::IsTesIpv6Enabled() {
    return ActiveNetworkBackend().Read().ipv6Enabled;
}
void NetworkInfoImpl::SetTesIpv6Enabled(bool enabled) {
    ActiveNetworkBackend().SetIpv6Enabled(enabled);
}
void NetworkInfoImpl::ClearNetworkConfig() {
    ActiveNetworkBackend().ClearNetworkConfig();
}
void NetworkInfoImpl::AutoConfigNetwork() {
    ActiveNetworkBackend().AutoConfigNetwork();
}
void NetworkInfoImpl::DisableNetDumper() {
    ActiveNetworkBackend().DisableNetDumper();
}

std::vector<std::unique_ptr<HostCtl::Network::TesNic>> TesselNicInfoImpl::GetTesselNics() {
    std::vector<std::unique_ptr<HostCtl::Network::TesNic>> out;
    for (auto& tesnic : ActiveNetworkBackend().Read().tesnics)
        out.push_back(std::make_unique<TesNicImpl>(std::move(tesnic)));
    return out;
}

bool PortsetImpl::IsValidVirtualSwitch(const std::string& name) {
    auto s = ActiveNetworkBackend().Read();
    for (const auto& v : s.standardSwitches)
        if (v.name == name)
            return true;
    for (const auto& d : s.distributedSwitches)
        if (d.name == name)
            return true;
    return false;
}

bool PortGroupImpl::IsValidPortGroup(const std::string& name) {
    for (const auto& v : ActiveNetworkBackend().Read().standardSwitches)
        for (const auto& pg : v.portGroups)
            if (pg.name == name)
                return true;
    return false;
}

} // namespace TesCtl::Network
