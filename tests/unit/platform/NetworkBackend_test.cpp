// The network backend seam: a real host refuses reads under the test guard and every change (never
// touching the machine), and an IP configuration survives its trip through host.json unchanged.
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/NetworkInfo.h"
#include "platform/RoutingInfo.h"
#include "platform/sim/SimNetworkJson.h"
#include "simhost/model/JsonNumber.h"

#include <gtest/gtest.h>

#include <functional>

using namespace HostCtl::Network;
using HostCtl::Lib::HostCtlException;

// Unit tests run under the test guard (set by the test main): the real host's reads refuse outside the
// namespace sandbox, and its changes are refused in any case.
TEST(NetworkBackendTest, RealHostReadsRefuseOutsideTheSandboxAndChangesAreUnavailable) {
    Platform::UseRealHost();
    const std::pair<std::function<void()>, const char*> calls[] = {
        {[] { TesCtl::Network::NetworkInfoImpl().GetPnics(); }, "refused under the test guard"},
        {[] { TesCtl::Network::DnsConfigImpl().GetHostname(); }, "refused under the test guard"},
        {[] { TesCtl::Network::RoutingInfoImpl().GetTesselDefaultGateway(); },
         "refused under the test guard"},
        {[] { TesCtl::Network::NetworkInfoImpl().ClearNetworkConfig(); }, "not available on this host"},
        {[] { TesCtl::Network::RoutingInfoImpl().SetTesselDefaultGateway(Ipv4Address("192.0.2.1"), false); },
         "not available on this host"},
    };
    for (const auto& [call, message] : calls) {
        try {
            call();
            ADD_FAILURE() << "no exception";
        } catch (const HostCtlException& e) {
            EXPECT_TRUE(std::string(e.what()).starts_with(message)) << e.what();
        }
    }
}

TEST(NetworkBackendTest, IpConfigRoundTripsThroughHostJson) {
    IpConfig dhcp, none, full;
    dhcp.SetUseDhcp(true);
    dhcp.SetDhcpDns(true);
    none.SetUseDhcp(false, true);
    full.SetIpv4Address(Ipv4Address("192.0.2.10"));
    full.SetIpv4Gateway(Ipv4Address("192.0.2.1"));
    full.EnableIpv6();
    full.SetUseIpv6Dhcp(true);
    full.SetUseIpv6RouterAdvertised(true);
    for (auto [text, type] : {std::pair{"fe80::1%tes0/64", Ipv6Network::TYPE_AUTOCONF},
                              {"2001:db8::9/128", Ipv6Network::TYPE_DHCP}}) {
        Ipv6Network network(text);
        network.SetIpv6AddressType(type);
        full.AddIpv6Network(network);
    }
    full.SetIpv6Gateway(Ipv6Address("fe80::fe%tes0"));

    // Equality of networks ignores type and scope, so those are compared on their own.
    auto kinds = [](const IpConfig& c) {
        std::vector<std::pair<int, int>> kinds;
        for (const auto& n : c.GetIpv6Network())
            kinds.emplace_back(n.GetIpv6AddressType(), n.GetIpv6Scope());
        return kinds;
    };
    for (const IpConfig& config : {IpConfig(), dhcp, none, full}) {
        IpConfig back = Platform::Sim::IpConfigFromJson(Platform::Sim::IpConfigToJson(config));
        EXPECT_EQ(back, config) << Platform::Sim::IpConfigToJson(config).dump();
        EXPECT_EQ(kinds(back), kinds(config));
    }
    EXPECT_THROW(Platform::Sim::IpConfigFromJson({{"address", "1.2.3"}}), HostCtlException);
    EXPECT_THROW(Platform::Sim::IpConfigFromJson({{"dhcp", "yes"}}), HostCtlException);
}

TEST(NetworkBackendTest, HostJsonNumbersThatDoNotFitAreRefused) {
    using SimHost::Json;
    for (const auto& [value, fits] : {std::pair{Json(4095), true},
                                      {Json(65535), true},
                                      {Json(65536), false},
                                      {Json(-1), false},
                                      {Json(1e+28), false},
                                      {Json(12.0), false},
                                      {Json("12"), false}}) {
        SCOPED_TRACE(value.dump());
        if (fits)
            EXPECT_EQ(SimHost::WholeNumber<uint16_t>(value, "vlan"), value.get<int>());
        else
            EXPECT_THROW(SimHost::WholeNumber<uint16_t>(value, "vlan"), Json::exception);
    }
    // Through a reader: a host-control failure that names the key.
    const Json entry = {{"address", "2001:db8::1"}, {"prefix", 1e+28}};
    try {
        Platform::Sim::IpConfigFromJson({{"ipv6", Json::array({entry})}});
        ADD_FAILURE() << "a prefix of 1e+28 was read";
    } catch (const HostCtlException& e) {
        EXPECT_NE(std::string(e.what()).find("prefix must be a whole number"), std::string::npos) << e.what();
    }
}
