// The network backend seam: a real host answers every network call with a host-control failure (never
// touching the machine), and an IP configuration survives its trip through host.json unchanged.
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/NetworkInfo.h"
#include "platform/RoutingInfo.h"
#include "platform/sim/SimNetworkJson.h"

#include <gtest/gtest.h>

#include <functional>

using namespace HostCtl::Network;

TEST(NetworkBackendTest, RealHostHasNoNetworkBackendYet) {
    Platform::UseRealHost();
    const std::function<void()> calls[] = {
        [] { TesCtl::Network::NetworkInfoImpl().GetPnics(); },
        [] { TesCtl::Network::NetworkInfoImpl().ClearNetworkConfig(); },
        [] { TesCtl::Network::DnsConfigImpl().GetHostname(); },
        [] { TesCtl::Network::RoutingInfoImpl().SetTesselDefaultGateway(Ipv4Address("192.0.2.1"), false); },
    };
    for (const auto& call : calls) {
        try {
            call();
            ADD_FAILURE() << "no exception";
        } catch (const HostCtl::Lib::HostCtlException& e) {
            EXPECT_STREQ(e.what(), "not available on this host");
        }
    }
}

TEST(NetworkBackendTest, IpConfigRoundTripsThroughHostJson) {
    IpConfig dhcp;
    dhcp.SetUseDhcp(true);
    dhcp.SetDhcpDns(true);

    IpConfig none;
    none.SetUseDhcp(false, true);

    IpConfig full;
    full.SetIpv4Address(Ipv4Address("192.0.2.10"));
    full.SetIpv4Netmask(Ipv4Address("255.255.255.0"));
    full.SetIpv4Gateway(Ipv4Address("192.0.2.1"));
    full.EnableIpv6();
    full.SetUseIpv6Dhcp(true);
    full.SetUseIpv6RouterAdvertised(true);
    Ipv6Network linkLocal("fe80::1%tes0/64");
    linkLocal.SetIpv6AddressType(Ipv6Network::TYPE_AUTOCONF);
    Ipv6Network leased("2001:db8::9/128");
    leased.SetIpv6AddressType(Ipv6Network::TYPE_DHCP);
    full.AddIpv6Network(linkLocal);
    full.AddIpv6Network(leased);
    full.SetIpv6Gateway(Ipv6Address("fe80::fe%tes0"));

    for (const IpConfig& config : {IpConfig(), dhcp, none, full}) {
        IpConfig back = Platform::Sim::IpConfigFromJson(Platform::Sim::IpConfigToJson(config));
        EXPECT_EQ(back, config) << Platform::Sim::IpConfigToJson(config).dump();
        ASSERT_EQ(back.GetIpv6Network().size(), config.GetIpv6Network().size());
        for (size_t i = 0; i < back.GetIpv6Network().size(); ++i) {
            EXPECT_EQ(back.GetIpv6Network()[i].GetIpv6AddressType(),
                      config.GetIpv6Network()[i].GetIpv6AddressType());
            EXPECT_EQ(back.GetIpv6Network()[i].GetIpv6Scope(), config.GetIpv6Network()[i].GetIpv6Scope());
        }
    }
    EXPECT_THROW(Platform::Sim::IpConfigFromJson({{"address", "1.2.3"}}), HostCtl::Lib::HostCtlException);
    EXPECT_THROW(Platform::Sim::IpConfigFromJson({{"dhcp", "yes"}}), HostCtl::Lib::HostCtlException);
}
