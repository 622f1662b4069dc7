// The host-control network object interfaces: kernel interfaces (TesNic), what they are attached to
// (ConnectionPoint), physical NICs, standard and distributed switches. Implementations live in TesCtl.
// Every operation may throw HostCtl::Lib::HostCtlException.
#pragma once

#include "platform/IpConfig.h"
#include "platform/NetworkTypes.h"

#include <memory>
#include <string>
#include <vector>

namespace HostCtl::Network {

// What a kernel interface is attached to.
class ConnectionPoint {
public:
    static constexpr int TYPE_PORT_GROUP = 1;
    static constexpr int TYPE_DV_PORT = 2;
    static constexpr int TYPE_OPAQUE_NETWORK = 3;

    explicit ConnectionPoint(int type) : type_(type) {}
    virtual ~ConnectionPoint() = default;
    int GetType() const { return type_; }

private:
    int type_;
};

// A port group of a standard switch.
class PortGroup : public ConnectionPoint {
public:
    explicit PortGroup(std::string name) : ConnectionPoint(TYPE_PORT_GROUP), name_(std::move(name)) {}
    const std::string& GetPortGroupName() const { return name_; }

private:
    std::string name_;
};

// A port of a distributed switch.
class DVPort : public ConnectionPoint {
public:
    DVPort(std::string switchName, std::string portKey)
        : ConnectionPoint(TYPE_DV_PORT), switch_(std::move(switchName)), port_(std::move(portKey)) {}
    const std::string& GetSwitchName() const { return switch_; }
    const std::string& GetPortKey() const { return port_; }

private:
    std::string switch_;
    std::string port_;
};

// A PCI function as far as the console needs it.
class PciDevice {
public:
    PciDevice(std::string address, std::string label)
        : address_(std::move(address)), label_(std::move(label)) {}
    const std::string& GetAddress() const { return address_; }
    // The hardware label ("Intel Corporation 82599 ...").
    const std::string& GetDeviceName() const { return label_; }

private:
    std::string address_;
    std::string label_;
};

class Pnic {
public:
    virtual ~Pnic() = default;
    virtual std::string GetName() = 0;
    virtual MacAddress GetMacAddress() = 0;
    // Throws when the device cannot be read.
    virtual PciDevice GetPciDevice() = 0;
    virtual bool GetLinkUp() = 0;
    virtual int GetLinkSpeedMbps() = 0;
    virtual std::string GetDriver() = 0;
};

// A kernel network interface ("tes0").
class TesNic {
public:
    virtual ~TesNic() = default;
    virtual std::string GetName() = 0;

    // Running configuration: what the interface has now (addresses obtained by DHCP included).
    virtual IpConfig GetIpConfig() = 0;
    // Stored configuration: what the host will set up at boot.
    virtual IpConfig GetConfiguredIpConfig() = 0;
    // Applies `config` now and stores it (a host persists interface configuration).
    virtual void SetIpConfig(const IpConfig& config) = 0;

    virtual MacAddress GetMacAddress() = 0;
    virtual void SetMacAddress(const MacAddress& mac) = 0;
    virtual void SetMacAddressFromPnic(Pnic& pnic) = 0;

    virtual std::unique_ptr<ConnectionPoint> GetConnectionPoint() = 0;
    // Moves the interface onto a port group or a distributed port.
    virtual void SetConnectionPoint(const ConnectionPoint& point) = 0;

    // Takes the interface down or up; each takes effect at once.
    virtual void Disable() = 0;
    virtual void Enable() = 0;
    virtual bool IsEnabled() = 0;

    virtual bool GetDhcpBound() = 0;
    virtual void SetDhcpBound(bool bound) = 0;
    virtual void RenewDhcpLease() = 0;
    virtual void RenewDhcpv6Lease() = 0;
    // Address of the DHCP server that answered; 0.0.0.0 when none.
    virtual Ipv4Address GetDhcpServer() = 0;

    // Re-reads the interface from the host; reads refresh by themselves after a change (stale flag).
    virtual void Refresh() = 0;
    virtual bool IsStale() = 0;
};

// A standard switch ("kSwitch0").
class VirtualSwitch {
public:
    virtual ~VirtualSwitch() = default;
    virtual std::string GetName() = 0;
    virtual std::vector<std::string> GetUplinks() = 0;
    virtual std::vector<std::string> GetPortGroups() = 0;
    // Number of ports the switch was created with.
    virtual int GetNumPorts() = 0;
    virtual int GetConfiguredPorts() = 0;
    // Ports in use: one per uplink and one per kernel interface on its port groups.
    virtual int GetUsedPorts() = 0;

    virtual void AddUplink(const std::string& pnic) = 0;
    virtual void RemoveUplink(const std::string& pnic) = 0;
    virtual void AddPortGroup(const std::string& name) = 0;

    virtual NicTeamingPolicy GetTeamingPolicy(const std::string& portGroup) = 0;
    virtual void SetTeamingPolicy(const std::string& portGroup, const NicTeamingPolicy& policy) = 0;
    virtual uint16_t GetVlanId(const std::string& portGroup) = 0;
    virtual void SetVlanId(const std::string& portGroup, uint16_t vlan) = 0;
};

// The settings of one port of a distributed switch.
struct DVPortSettings {
    std::string key;
    std::string portGroup;
    uint16_t vlan = 0;                // 0: none
    std::vector<std::string> uplinks; // the active uplinks of the port's teaming, in order
    bool hostLocal = false;           // created on this host, not by the switch's manager
};

// A distributed switch (kDS) as seen from this host.
class DkSwitch {
public:
    virtual ~DkSwitch() = default;
    virtual std::string GetName() = 0;
    virtual std::string GetUuid() = 0;
    virtual std::vector<std::string> GetUplinks() = 0;
    virtual std::vector<std::string> GetPortKeys() = 0;
    virtual int GetUsedPorts() = 0;
    virtual void RemoveUplink(const std::string& pnic) = 0;
    // Who made the switch ("Orvane" for the platform's own).
    virtual std::string GetVendor() = 0;
    // Throws when the switch has no port `key`.
    virtual DVPortSettings GetPort(const std::string& key) = 0;
    // A new port that this host keeps by itself; its key must be new on the switch.
    virtual void AddHostLocalPort(const DVPortSettings& port) = 0;
};

class Portset {
public:
    // Ports of a switch created without an explicit count.
    static constexpr int DEF_NUM_PORTS = 128;
};

} // namespace HostCtl::Network
