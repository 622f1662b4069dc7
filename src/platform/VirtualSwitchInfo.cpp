// Switch objects: snapshots of the network backend with changes forwarded to it.
#include "platform/VirtualSwitchInfo.h"

#include "platform/HostCtlException.h"

#include <algorithm>

namespace TesCtl::Network {

using Platform::ActiveNetworkBackend;

VirtualSwitchImpl::VirtualSwitchImpl(Platform::StandardSwitchRecord record, int tesnicPorts)
    : record_(std::move(record)), tesnicPorts_(tesnicPorts) {}

std::vector<std::string> VirtualSwitchImpl::GetPortGroups() {
    std::vector<std::string> names;
    for (const auto& pg : record_.portGroups)
        names.push_back(pg.name);
    return names;
}

Platform::PortGroupRecord& VirtualSwitchImpl::PortGroup(const std::string& name) {
    for (auto& pg : record_.portGroups)
        if (pg.name == name)
            return pg;
    throw HostCtl::Lib::HostCtlException("port group " + name + " not found on " + record_.name);
}

void VirtualSwitchImpl::AddUplink(const std::string& pnic) {
    ActiveNetworkBackend().AddUplink(record_.name, pnic);
    record_.uplinks.push_back(pnic);
}

void VirtualSwitchImpl::RemoveUplink(const std::string& pnic) {
    ActiveNetworkBackend().RemoveUplink(record_.name, pnic);
    auto& u = record_.uplinks;
    u.erase(std::remove(u.begin(), u.end(), pnic), u.end());
}

void VirtualSwitchImpl::AddPortGroup(const std::string& name) {
    ActiveNetworkBackend().AddPortGroup(record_.name, name);
    Platform::PortGroupRecord pg;
    pg.name = name;
    pg.teaming.SetUplinkOrder(record_.uplinks);
    pg.teaming.SetMaxActiveUplinks(static_cast<int>(record_.uplinks.size()));
    record_.portGroups.push_back(std::move(pg));
}

HostCtl::Network::NicTeamingPolicy VirtualSwitchImpl::GetTeamingPolicy(const std::string& portGroup) {
    return PortGroup(portGroup).teaming;
}

void VirtualSwitchImpl::SetTeamingPolicy(const std::string& portGroup,
                                         const HostCtl::Network::NicTeamingPolicy& policy) {
    auto& pg = PortGroup(portGroup);
    ActiveNetworkBackend().SetTeamingPolicy(record_.name, portGroup, policy);
    pg.teaming = policy;
}

uint16_t VirtualSwitchImpl::GetVlanId(const std::string& portGroup) {
    return PortGroup(portGroup).vlan;
}

void VirtualSwitchImpl::SetVlanId(const std::string& portGroup, uint16_t vlan) {
    auto& pg = PortGroup(portGroup);
    ActiveNetworkBackend().SetVlanId(record_.name, portGroup, vlan);
    pg.vlan = vlan;
}

std::vector<std::string> DkSwitchImpl::GetPortKeys() {
    std::vector<std::string> keys;
    for (const auto& port : record_.ports)
        keys.push_back(port.key);
    return keys;
}

int DkSwitchImpl::GetUsedPorts() {
    return static_cast<int>(record_.ports.size() + record_.uplinks.size());
}

void DkSwitchImpl::RemoveUplink(const std::string& pnic) {
    ActiveNetworkBackend().RemoveDistributedUplink(record_.name, pnic);
    auto& u = record_.uplinks;
    u.erase(std::remove(u.begin(), u.end(), pnic), u.end());
}

HostCtl::Network::DVPortSettings DkSwitchImpl::GetPort(const std::string& key) {
    for (const auto& port : record_.ports)
        if (port.key == key)
            return {port.key, port.portGroup, port.vlan, port.uplinks, port.hostLocal};
    throw HostCtl::Lib::HostCtlException("port " + key + " not found on " + record_.name);
}

void DkSwitchImpl::AddHostLocalPort(const HostCtl::Network::DVPortSettings& port) {
    Platform::DistributedPortRecord record{port.key, port.portGroup, port.vlan, port.uplinks, true};
    ActiveNetworkBackend().AddDistributedPort(record_.name, record);
    record_.ports.push_back(std::move(record));
}

std::vector<std::unique_ptr<HostCtl::Network::VirtualSwitch>> VirtualSwitchInfoImpl::GetVirtualSwitches() {
    auto snapshot = ActiveNetworkBackend().Read();
    std::vector<std::unique_ptr<HostCtl::Network::VirtualSwitch>> out;
    for (auto& kswitch : snapshot.standardSwitches) {
        int tesnicPorts = 0;
        for (const auto& tesnic : snapshot.tesnics) {
            if (tesnic.connection.type != HostCtl::Network::ConnectionPoint::TYPE_PORT_GROUP)
                continue;
            for (const auto& pg : kswitch.portGroups)
                tesnicPorts += pg.name == tesnic.connection.portGroup ? 1 : 0;
        }
        out.push_back(std::make_unique<VirtualSwitchImpl>(std::move(kswitch), tesnicPorts));
    }
    return out;
}

std::vector<std::unique_ptr<HostCtl::Network::DkSwitch>> VirtualSwitchInfoImpl::GetDkSwitches() {
    std::vector<std::unique_ptr<HostCtl::Network::DkSwitch>> out;
    for (auto& dswitch : ActiveNetworkBackend().Read().distributedSwitches)
        out.push_back(std::make_unique<DkSwitchImpl>(std::move(dswitch)));
    return out;
}

void VirtualSwitchInfoImpl::AddVirtualSwitch(const std::string& name, int numPorts) {
    ActiveNetworkBackend().AddStandardSwitch(name, numPorts);
}

} // namespace TesCtl::Network
