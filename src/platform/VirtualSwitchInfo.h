// Standard and distributed switches of the host-control layer: the list objects and one object per switch.
// A switch object is a snapshot of its switch; its changes go to the host at once. Operations throw
// HostCtlException.
#pragma once

#include "platform/Network.h"
#include "platform/NetworkBackend.h"

#include <memory>
#include <string>
#include <vector>

namespace TesCtl::Network {

class VirtualSwitchImpl : public HostCtl::Network::VirtualSwitch {
public:
    // `tesnicPorts`: ports taken on this switch by kernel interfaces, counted from the same snapshot.
    VirtualSwitchImpl(Platform::StandardSwitchRecord record, int tesnicPorts);

    std::string GetName() override { return record_.name; }
    std::vector<std::string> GetUplinks() override { return record_.uplinks; }
    std::vector<std::string> GetPortGroups() override;
    int GetNumPorts() override { return record_.ports; }
    int GetConfiguredPorts() override { return record_.ports; }
    int GetUsedPorts() override { return static_cast<int>(record_.uplinks.size()) + tesnicPorts_; }

    void AddUplink(const std::string& pnic) override;
    void RemoveUplink(const std::string& pnic) override;
    void AddPortGroup(const std::string& name) override;
    HostCtl::Network::NicTeamingPolicy GetTeamingPolicy(const std::string& portGroup) override;
    void SetTeamingPolicy(const std::string& portGroup,
                          const HostCtl::Network::NicTeamingPolicy& policy) override;
    uint16_t GetVlanId(const std::string& portGroup) override;
    void SetVlanId(const std::string& portGroup, uint16_t vlan) override;

private:
    Platform::PortGroupRecord& PortGroup(const std::string& name);

    Platform::StandardSwitchRecord record_;
    int tesnicPorts_;
};

class DkSwitchImpl : public HostCtl::Network::DkSwitch {
public:
    explicit DkSwitchImpl(Platform::DistributedSwitchRecord record) : record_(std::move(record)) {}

    std::string GetName() override { return record_.name; }
    std::string GetUuid() override { return record_.uuid; }
    std::vector<std::string> GetUplinks() override { return record_.uplinks; }
    std::vector<std::string> GetPortKeys() override;
    int GetUsedPorts() override;
    void RemoveUplink(const std::string& pnic) override;
    std::string GetVendor() override { return record_.vendor; }
    HostCtl::Network::DVPortSettings GetPort(const std::string& key) override;
    void AddHostLocalPort(const HostCtl::Network::DVPortSettings& port) override;

private:
    Platform::DistributedSwitchRecord record_;
};

class VirtualSwitchInfoImpl {
public:
    // Standard switches.
    std::vector<std::unique_ptr<HostCtl::Network::VirtualSwitch>> GetVirtualSwitches();
    // Distributed switches.
    std::vector<std::unique_ptr<HostCtl::Network::DkSwitch>> GetDkSwitches();
    std::vector<std::unique_ptr<HostCtl::Network::DkSwitch>> GetDistributedSwitches() {
        return GetDkSwitches();
    }
    void AddVirtualSwitch(const std::string& name, int numPorts);
};

} // namespace TesCtl::Network
