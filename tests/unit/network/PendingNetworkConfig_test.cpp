// The pending model of the management network window: when a dialog's result is a change and what is
// taken, the IPv6 switch compared with its start, name server choice and the suffix text.
#include "network/PendingNetworkConfig.h"

#include <gtest/gtest.h>

using namespace HostCtl::Network;
using namespace Tarn;

namespace {

// Static 192.0.2.10/24 via 192.0.2.1, IPv6 on with one autoconfigured and one static address.
PendingNetworkConfig StaticHost() {
    PendingNetworkConfig p;
    for (IpConfig* c : {&p.running, &p.stored}) {
        c->SetIpv4Address(Ipv4Address("192.0.2.10"));
        c->SetIpv4Netmask(Ipv4Address("255.255.255.0"));
        c->SetIpv4Gateway(Ipv4Address("192.0.2.1"));
        c->EnableIpv6();
    }
    Ipv6Network autoconf("fe80::1/64");
    autoconf.SetIpv6AddressType(Ipv6Network::TYPE_AUTOCONF);
    p.running.AddIpv6Network(autoconf);
    p.running.AddIpv6Network(Ipv6Network("2001:db8::10/64"));
    p.ipv6Enabled = p.ipv6EnabledAtStart = true;
    p.adapters = {"nicx0", "nicx1"};
    p.activeUplinks = 2;
    p.hostname = "host01";
    p.primaryDns = Ipv4Address("192.0.2.53");
    p.suffixes = "example.test";
    return p;
}

IpConfig Ipv4Result(bool dhcp, bool none, const char* address, const char* mask, const char* gateway) {
    IpConfig c;
    c.SetUseDhcp(dhcp, none);
    c.SetIpv4Address(Ipv4Address(address));
    c.SetIpv4Netmask(Ipv4Address(mask));
    c.SetIpv4Gateway(Ipv4Address(gateway));
    return c;
}

Ipv6Result SameIpv6(const PendingNetworkConfig& p) {
    return {true, false, false, p.StaticIpv6Networks(), p.running.GetIpv6Gateway(), false};
}

} // namespace

TEST(PendingNetworkConfig, Ipv4ResultIsAChangeOnlyWhenModeOrStaticValuesDiffer) {
    struct Case {
        const char* what;
        IpConfig result;
        bool changed;
    } cases[] = {
        {"same static", Ipv4Result(false, false, "192.0.2.10", "255.255.255.0", "192.0.2.1"), false},
        {"new gateway", Ipv4Result(false, false, "192.0.2.10", "255.255.255.0", "192.0.2.254"), true},
        {"new address", Ipv4Result(false, false, "192.0.2.11", "255.255.255.0", "192.0.2.1"), true},
        {"dynamic", Ipv4Result(true, false, "192.0.2.10", "255.255.255.0", ""), true},
        {"disabled", Ipv4Result(false, true, "192.0.2.10", "255.255.255.0", ""), true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto p = StaticHost();
        p.TakeIpv4(c.result);
        EXPECT_EQ(p.changed, c.changed);
        EXPECT_EQ(p.stored.GetUseDhcp(), c.result.GetUseDhcp());
        EXPECT_EQ(p.running.GetIpv4UseNone(), c.result.GetIpv4UseNone());
        EXPECT_EQ(p.running.GetIpv4Gateway(),
                  c.changed ? c.result.GetIpv4Gateway() : Ipv4Address("192.0.2.1"));
    }

    // Two DHCP configurations with different (leased) addresses are the same choice.
    auto p = StaticHost();
    p.stored.SetUseDhcp(true);
    p.TakeIpv4(Ipv4Result(true, false, "10.9.9.9", "255.0.0.0", ""));
    EXPECT_FALSE(p.changed);

    // Leaving "disabled" for static clears the mark and takes the addresses.
    p = StaticHost();
    p.running.SetUseDhcp(false, true);
    p.TakeIpv4(Ipv4Result(false, false, "192.0.2.20", "255.255.255.0", "192.0.2.1"));
    EXPECT_TRUE(p.changed);
    EXPECT_FALSE(p.running.GetIpv4UseNone());
    EXPECT_EQ(p.running.GetIpv4Address(), Ipv4Address("192.0.2.20"));
}

TEST(PendingNetworkConfig, Ipv6SwitchedOffAndOnAgainIsNoChange) {
    auto p = StaticHost();
    Ipv6Result off = SameIpv6(p);
    off.enabled = false;
    p.TakeIpv6(off);
    EXPECT_TRUE(p.Ipv6Toggled());
    EXPECT_TRUE(p.HasChanges());
    p.TakeIpv6(SameIpv6(p));
    EXPECT_FALSE(p.Ipv6Toggled());
    EXPECT_FALSE(p.HasChanges());
}

TEST(PendingNetworkConfig, Ipv6ResultTakesFlagsGatewayAndOnlyTheStaticAddresses) {
    auto p = StaticHost();
    Ipv6Result r = SameIpv6(p);
    r.routerAdvertised = true;
    r.gateway = Ipv6Address("2001:db8::1");
    r.staticNetworks = {Ipv6Network("2001:db8::20/64"), Ipv6Network("2001:db8::21/64")};
    r.staticEdited = true;
    p.TakeIpv6(r);
    EXPECT_TRUE(p.changed);
    EXPECT_TRUE(p.ipv6GatewayChanged);
    EXPECT_TRUE(p.stored.GetUseIpv6RouterAdvertised());
    EXPECT_EQ(p.running.GetIpv6Gateway(), Ipv6Address("2001:db8::1"));
    EXPECT_EQ(p.StaticIpv6Networks(), r.staticNetworks);
    ASSERT_EQ(p.running.GetIpv6Network().size(), 3u) << "the autoconfigured address stays";
    EXPECT_EQ(p.running.GetIpv6Network()[0], Ipv6Network("fe80::1/64"));

    // Only a static row edit counts; the gateway is unchanged.
    p = StaticHost();
    r = SameIpv6(p);
    r.staticEdited = true;
    p.TakeIpv6(r);
    EXPECT_TRUE(p.changed);
    EXPECT_FALSE(p.ipv6GatewayChanged);
}

TEST(PendingNetworkConfig, AdaptersVlanDnsAndSuffixes) {
    auto p = StaticHost();
    p.TakeAdapters({{"nicx0", "nicx1"}, 2});
    p.TakeVlan(0);
    p.TakeSuffixes("example.test");
    p.TakeDns({false, Ipv4Address("192.0.2.53"), std::nullopt, "host01"});
    EXPECT_FALSE(p.changed) << "every result equal to the pending value";

    p.TakeAdapters({{"nicx1", "nicx0"}, 2});
    EXPECT_TRUE(p.changed) << "the order of uplinks matters";
    EXPECT_EQ(p.adapters, (std::vector<std::string>{"nicx1", "nicx0"}));

    p = StaticHost();
    p.TakeDns({true, Ipv4Address("192.0.2.99"), std::nullopt, "ignored"});
    EXPECT_TRUE(p.changed);
    EXPECT_TRUE(p.stored.GetDhcpDns());
    EXPECT_EQ(p.hostname, "host01") << "servers and name are kept for DNS from DHCP";

    p = StaticHost();
    p.TakeDns({false, Ipv4Address("192.0.2.53"), Ipv6Address("2001:db8::53"), "host01"});
    EXPECT_TRUE(p.changed);
    EXPECT_EQ(DnsServerText(p.alternateDns), "2001:db8::53");
}

TEST(PendingNetworkConfig, PrimaryAndAlternateNameServers) {
    const Ipv4Address a("192.0.2.53"), b("192.0.2.54");
    const Ipv6Address x("2001:db8::53"), y("2001:db8::54");
    struct Case {
        std::vector<Ipv4Address> v4;
        std::vector<Ipv6Address> v6;
        const char* primary;
        const char* alternate;
    } cases[] = {
        {{a, b}, {x, y}, "192.0.2.53", "2001:db8::53"},
        {{a, b}, {}, "192.0.2.53", "192.0.2.54"},
        {{}, {x, y}, "2001:db8::53", "2001:db8::54"},
        {{a}, {}, "192.0.2.53", ""},
        {{}, {}, "", ""},
    };
    for (const auto& c : cases) {
        DnsServer primary, alternate;
        ChooseDnsServers(c.v4, c.v6, primary, alternate);
        EXPECT_EQ(DnsServerText(primary), c.primary);
        EXPECT_EQ(DnsServerText(alternate), c.alternate);
    }
    EXPECT_TRUE(std::holds_alternative<Ipv6Address>(*DnsServerFromText("2001:db8::53")));
    EXPECT_TRUE(std::holds_alternative<Ipv4Address>(*DnsServerFromText("192.0.2.53")));
    EXPECT_FALSE(DnsServerFromText("192.0.2"));
}

TEST(PendingNetworkConfig, SuffixTextSplitsAtBlanksAndCommas) {
    EXPECT_EQ(SplitSuffixes("a.test,,b.test  c.test"),
              (std::vector<std::string>{"a.test", "b.test", "c.test"}));
    EXPECT_TRUE(SplitSuffixes(" , ").empty());
    EXPECT_EQ(JoinSuffixes({"a.test", "b.test"}), "a.test, b.test");
}
