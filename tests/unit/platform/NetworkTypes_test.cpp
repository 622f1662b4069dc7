// Address value types against hostile inputs: what inet_pton refuses must be refused, masks must be
// contiguous, prefixes 0-128 in plain decimal, zones well-formed, and link-local told apart.
#include "platform/HostCtlException.h"
#include "platform/IpConfig.h"
#include "platform/NetworkTypes.h"

#include <gtest/gtest.h>

#include <string>

using namespace HostCtl::Network;
using HostCtl::Lib::HostCtlException;

namespace {

// Every text in `good` is valid and every one in `bad` is refused, by the check and by the constructor.
template <class T>
void CheckParsing(bool (*isValid)(std::string_view), std::initializer_list<std::string> good,
                  std::initializer_list<std::string> bad) {
    for (const std::string& text : good)
        EXPECT_TRUE(isValid(text)) << "'" << text << "'";
    for (const std::string& text : bad) {
        EXPECT_FALSE(isValid(text)) << "'" << text << "'";
        if (!text.empty()) { // the empty text is the unset value for addresses
            EXPECT_THROW(T{text}, HostCtlException) << "'" << text << "'";
        }
    }
}

TEST(NetworkTypes, Ipv4Validation) {
    CheckParsing<Ipv4Address>(Ipv4Address::IsValidAddress, {"192.0.2.7", "0.0.0.0", "255.255.255.255"},
                              {"1.2.3", "1.2.3.256", "1.2.3.05", "01.2.3.4", "192.0.2.7 ", " 192.0.2.7",
                               "192.0.2.7.", ".192.0.2.7", "1.2.3.4.5", "", "1..2.3", "0x1.2.3.4", "+1.2.3.4",
                               "1.2.3.-4", "1.2.3.4/24", "1.2.3.4\n", "::ffff:1.2.3.4", "1.2.3.4a",
                               std::string("1.2.3.4\0", 8)});
    Ipv4Address a("192.0.2.1");
    EXPECT_EQ(a.GetBinaryAddress(), 0xC0000201u);
    EXPECT_EQ(a.GetStringAddress(), "192.0.2.1");
    EXPECT_EQ(Ipv4Address::FromBinary(0x0A000001).GetStringAddress(), "10.0.0.1");
    EXPECT_EQ(Ipv4Address("").GetStringAddress(), "0.0.0.0"); // the empty text is unset
}

TEST(NetworkTypes, NetmaskMustBeContiguous) {
    for (const char* good : {"255.255.255.0", "255.255.255.255", "128.0.0.0", "255.255.252.0"})
        EXPECT_TRUE(Ipv4Address(good).IsValidNetmask()) << good;
    for (const char* bad : {"255.0.255.0", "0.0.0.0", "0.255.255.255", "255.255.255.1", "127.0.0.0"})
        EXPECT_FALSE(Ipv4Address(bad).IsValidNetmask()) << bad;
}

TEST(NetworkTypes, Ipv6Validation) {
    CheckParsing<Ipv6Address>(Ipv6Address::IsValidAddress,
                              {"::", "::1", "2001:db8::1", "fe80::1%tes0", "::ffff:192.0.2.1",
                               "2001:0db8:0000:0000:0000:0000:0000:0001"},
                              {"", "2001:db8::1 ", " 2001:db8::1", "2001:db8:::1", "2001:db8::1::2",
                               "2001:db8::g", "12345::1", "1:2:3:4:5:6:7:8:9", "fe80::1%", "fe80::1%tes 0",
                               "fe80::1%tes0%x", "2001:db8::1/64", "192.0.2.1", "[2001:db8::1]",
                               std::string("::1\0", 4)});
    EXPECT_EQ(Ipv6Address("2001:db8::1"), Ipv6Address("2001:0db8:0:0::1"));
    EXPECT_FALSE(Ipv6Address("fe80::1%tes0") == Ipv6Address("fe80::1%tes1"));
    EXPECT_TRUE(Ipv6Address("").IsUnspecified());
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

TEST(NetworkTypes, Ipv6NetworkPrefixes) {
    CheckParsing<Ipv6Network>(Ipv6Network::IsValidAddressAndNetmask,
                              {"2001:db8::1/64", "2001:db8::1/0", "2001:db8::1/128", "::/0"},
                              {"2001:db8::1/129", "2001:db8::1/", "2001:db8::1", "/64", "2001:db8::1/064",
                               "2001:db8::1/-1", "2001:db8::1/+64", "2001:db8::1/64 ", "2001:db8::1 /64",
                               "2001:db8::1/6 4", "2001:db8::1/64/64", "192.0.2.1/24", "2001:db8::1/0x40"});
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

TEST(NetworkTypes, MacAddress) {
    CheckParsing<MacAddress>(MacAddress::IsValidAddress, {"00:50:56:aa:00:00", "00:50:56:AA:0f:F0"},
                             {"00:50:56:aa:00", "00:50:56:aa:00:00:11", "00-50-56-aa-00-00",
                              "0:50:56:aa:00:000", "00:50:56:aa:00:0g", " 00:50:56:aa:00:00", ""});
    EXPECT_EQ(MacAddress("00:50:56:AA:0F:F0").GetStringAddress(), "00:50:56:aa:0f:f0");
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
