// Address value types: unset values, zones, scopes and link-local told apart, network type and prefix, and
// the IP configuration's flags.
#include "platform/HostCtlException.h"
#include "platform/IpConfig.h"
#include "platform/NetworkTypes.h"

#include <gtest/gtest.h>

#include <string>

using namespace HostCtl::Network;
using HostCtl::Lib::HostCtlException;

namespace {

// Which texts are valid addresses, masks, prefixes and MACs, and their round trips, are the fuzz target
// fuzz_address's (checked against inet_pton, with the hostile cases in its corpus); here what it cannot know.
TEST(NetworkTypes, UnsetValuesBinaryFormAndZones) {
    EXPECT_EQ(Ipv4Address::FromBinary(0x0A000001).GetStringAddress(), "10.0.0.1");
    EXPECT_EQ(Ipv4Address("").GetStringAddress(), "0.0.0.0"); // the empty text is unset
    EXPECT_TRUE(Ipv6Address("").IsUnspecified());
    EXPECT_EQ(Ipv6Address("2001:db8::1"), Ipv6Address("2001:0db8:0:0::1"));
    EXPECT_FALSE(Ipv6Address("fe80::1%tes0") == Ipv6Address("fe80::1%tes1"));
}

TEST(NetworkTypes, Ipv6ScopeTextAndLinkLocal) {
    // text, scoped text (the plain text ends before '%'), link-local, scope
    const std::tuple<const char*, std::string, bool, int> cases[] = {
        {"fe80::1%tes0", "fe80::1%tes0", true, Ipv6Network::SCOPE_LINK},
        {"FE80:0::1", "fe80::1", true, Ipv6Network::SCOPE_LINK},
        {"febf:ffff::1", "febf:ffff::1", true, Ipv6Network::SCOPE_LINK},
        {"fec0::1", "fec0::1", false, Ipv6Network::SCOPE_SITE},
        {"fe7f::1", "fe7f::1", false, Ipv6Network::SCOPE_GLOBAL},
        {"2001:db8::1", "2001:db8::1", false, Ipv6Network::SCOPE_GLOBAL},
        {"::1", "::1", false, Ipv6Network::SCOPE_HOST}};
    for (const auto& [text, scoped, linkLocal, scope] : cases) {
        Ipv6Address a(text);
        EXPECT_EQ(a.GetScopedStringAddress(), scoped) << text;
        EXPECT_EQ(a.GetStringAddress(), scoped.substr(0, scoped.find('%'))) << text;
        EXPECT_EQ(a.IsLinkLocal(), linkLocal) << text;
        EXPECT_EQ(Ipv6Network::ScopeOf(a), scope) << text;
    }
}

TEST(NetworkTypes, Ipv6NetworkTypeAndScope) {
    Ipv6Network n("2001:DB8::10/64");
    EXPECT_EQ(n.GetStringAddress(), "2001:db8::10/64");
    EXPECT_EQ(n.GetPrefixLength(), 64);
    EXPECT_EQ(n.GetIpv6AddressType(), Ipv6Network::TYPE_STATIC);
    EXPECT_EQ(Ipv6Network("fe80::5/64").GetIpv6Scope(), Ipv6Network::SCOPE_LINK);
    // Type and scope describe the address; they do not make it a different network.
    n.SetIpv6AddressType(Ipv6Network::TYPE_DHCP);
    EXPECT_EQ(n, Ipv6Network("2001:db8::10/64"));
    EXPECT_FALSE(n == Ipv6Network("2001:db8::10/48"));
    EXPECT_THROW(Ipv6Network(Ipv6Address("::1"), 129), HostCtlException);
}

TEST(NetworkTypes, IpConfigDhcpFlagsAndNetworks) {
    IpConfig c;
    c.SetIpv4UseNone();
    c.SetUseDhcp(true); // DHCP means IPv4 is on again
    EXPECT_FALSE(c.GetIpv4UseNone());
    c.SetUseDhcp(false, true);
    EXPECT_TRUE(c.GetIpv4UseNone());
    EXPECT_FALSE(c.IsUsingDhcp());
    c.SetUseIpv6Dhcp(true);
    EXPECT_TRUE(c.IsUsingDhcp());

    for (const char* n : {"2001:db8::1/64", "2001:db8::1/64", "2001:db8::2/64"})
        c.AddIpv6Network(Ipv6Network(n));
    EXPECT_TRUE(c.RemoveIpv6Network(Ipv6Network("2001:db8::1/64")));
    EXPECT_FALSE(c.RemoveIpv6Network(Ipv6Network("2001:db8::1/64"))) << "added twice, kept once";
    ASSERT_EQ(c.GetIpv6Network().size(), 1u);
    EXPECT_EQ(c.GetIpv6Network()[0].GetStringAddress(), "2001:db8::2/64");
}

} // namespace
