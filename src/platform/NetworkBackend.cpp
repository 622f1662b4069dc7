// Backend selection for the network areas. A real host has no network backend yet: every call there fails
// with a HostCtlException, which the console handles like any other host-control failure.
#include "platform/NetworkBackend.h"

#include "platform/Backends.h"
#include "platform/HostCtlException.h"
#include "platform/sim/SimNetworkBackend.h"

namespace Platform {
namespace {

[[noreturn]] void NotAvailable() {
    throw HostCtl::Lib::HostCtlException("not available on this host");
}

class UnavailableNetworkBackend : public NetworkBackend {
public:
    NetworkSnapshot Read() override { NotAvailable(); }
    void SetTesNicIpConfig(const std::string&, const HostCtl::Network::IpConfig&) override { NotAvailable(); }
    void SetTesNicMac(const std::string&, const HostCtl::Network::MacAddress&) override { NotAvailable(); }
    void SetTesNicEnabled(const std::string&, bool) override { NotAvailable(); }
    void SetTesNicDhcpBound(const std::string&, bool) override { NotAvailable(); }
    void SetTesNicConnection(const std::string&, const ConnectionRecord&) override { NotAvailable(); }
    void RenewDhcpLease(const std::string&) override { NotAvailable(); }
    void RenewDhcpv6Lease(const std::string&) override { NotAvailable(); }
    void AddStandardSwitch(const std::string&, int) override { NotAvailable(); }
    void AddPortGroup(const std::string&, const std::string&) override { NotAvailable(); }
    void AddUplink(const std::string&, const std::string&) override { NotAvailable(); }
    void RemoveUplink(const std::string&, const std::string&) override { NotAvailable(); }
    void SetTeamingPolicy(const std::string&, const std::string&,
                          const HostCtl::Network::NicTeamingPolicy&) override {
        NotAvailable();
    }
    void SetVlanId(const std::string&, const std::string&, uint16_t) override { NotAvailable(); }
    void RemoveDistributedUplink(const std::string&, const std::string&) override { NotAvailable(); }
    void AddDistributedPort(const std::string&, const DistributedPortRecord&) override { NotAvailable(); }
    void SetIpv6Enabled(bool) override { NotAvailable(); }
    void ClearNetworkConfig() override { NotAvailable(); }
    void AutoConfigNetwork() override { NotAvailable(); }
    void DisableNetDumper() override { NotAvailable(); }
};

class UnavailableDnsBackend : public DnsBackend {
public:
    DnsRecord Read() override { NotAvailable(); }
    void Write(const DnsRecord&) override { NotAvailable(); }
};

class UnavailableRoutingBackend : public RoutingBackend {
public:
    RouteRecord Read() override { NotAvailable(); }
    void SetIpv4Gateway(const HostCtl::Network::Ipv4Address&) override { NotAvailable(); }
    void SetIpv6Gateway(const HostCtl::Network::Ipv6Address&) override { NotAvailable(); }
};

} // namespace

namespace Linux {

NetworkBackend& NetworkArea() {
    static UnavailableNetworkBackend real;
    return real;
}

DnsBackend& DnsArea() {
    static UnavailableDnsBackend real;
    return real;
}

RoutingBackend& RoutingArea() {
    static UnavailableRoutingBackend real;
    return real;
}

} // namespace Linux

namespace Sim {

NetworkBackend& NetworkArea() {
    static SimNetworkBackend sim;
    return sim;
}

DnsBackend& DnsArea() {
    static SimDnsBackend sim;
    return sim;
}

RoutingBackend& RoutingArea() {
    static SimRoutingBackend sim;
    return sim;
}

} // namespace Sim

NetworkBackend& ActiveNetworkBackend() {
    return *ActiveBackends().network;
}

DnsBackend& ActiveDnsBackend() {
    return *ActiveBackends().dns;
}

RoutingBackend& ActiveRoutingBackend() {
    return *ActiveBackends().routing;
}

} // namespace Platform
