// Management network test targets and step texts.
#include "network/TestTargets.h"

#include "core/Log.h"
#include "network/NetworkAccess.h"
#include "platform/DnsConfig.h"
#include "platform/NetworkInfo.h"
#include "platform/NetworkTypes.h"
#include "platform/RoutingInfo.h"

namespace Tarn {
namespace {

using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

bool Offerable(const std::string& address) {
    return !address.empty() && address != "0.0.0.0" && address != "::";
}

} // namespace

TestTargets DefaultTestTargets(const TestCandidates& c) {
    std::vector<std::string> offered;
    auto offer = [&](const std::string& address) {
        if (offered.size() < kTestAddressRows && Offerable(address))
            offered.push_back(address);
    };
    offer(c.ipv4Gateway);
    for (const auto& server : c.ipv4Servers)
        offer(server);
    if (c.ipv6Enabled) {
        offer(c.ipv6Gateway);
        for (const auto& server : c.ipv6Servers)
            offer(server);
    }
    TestTargets targets;
    targets.addresses = offered;
    targets.addresses.resize(kTestAddressRows);
    targets.hostname = c.hostname;
    if (!c.hostname.empty() && !c.domain.empty())
        targets.hostname += "." + c.domain;
    return targets;
}

TestCandidates ReadTestCandidates() {
    TestCandidates c;
    try {
        TesCtl::Network::RoutingInfoImpl routing;
        c.ipv4Gateway = routing.GetTesselDefaultGateway().GetStringAddress();
        c.ipv6Enabled = TesCtl::Network::NetworkInfoImpl().IsTesIpv6Enabled();
        if (c.ipv6Enabled)
            c.ipv6Gateway = routing.GetIpv6TesselDefaultGateway().GetScopedStringAddress();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting default gateways failed: %s", DescribeHostCtlError(e).c_str());
    }
    try {
        TesCtl::Network::DnsConfigImpl dns("defaultTcpipStack");
        dns.Refresh();
        for (const Ipv4Address& server : dns.GetNameServers())
            c.ipv4Servers.push_back(server.GetStringAddress());
        for (const Ipv6Address& server : dns.GetIpv6NameServers(false))
            c.ipv6Servers.push_back(server.GetScopedStringAddress());
        c.hostname = dns.GetHostname();
        c.domain = dns.GetDomain();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting DNS configuration failed: %s", DescribeHostCtlError(e).c_str());
    }
    return c;
}

int FirstInvalidTestAddress(const std::vector<std::string>& addresses) {
    for (size_t i = 0; i < addresses.size(); ++i) {
        const std::string& a = addresses[i];
        if (!a.empty() && !Ipv6Address::IsValidAddress(a) && !Ipv4Address::IsValidAddress(a))
            return static_cast<int>(i);
    }
    return -1;
}

std::string PingCommandLine(const std::string& address, const std::string& interfaceName) {
    std::string line = "/bin/tesping -c 3 ";
    if (!interfaceName.empty())
        line += "-I " + interfaceName + " ";
    return line + address;
}

std::string PingStepText(const std::string& label, int row, const std::string& address,
                         const std::string& interfaceName) {
    std::string scope;
    if (address.find('%') == std::string::npos && !interfaceName.empty() &&
        Ipv6Address::IsValidAddress(address) && Ipv6Address(address).IsLinkLocal())
        scope = "%" + interfaceName;
    return label + " #" + std::to_string(row) + " (" + address + scope + ").";
}

} // namespace Tarn
