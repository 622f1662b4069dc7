// Address value types against hostile inputs: what inet_pton refuses must be refused, masks must be
// contiguous, prefixes 0-128 in plain decimal, zones well-formed, and link-local told apart.
#include "platform/HostCtlException.h"
#include "platform/IpConfig.h"
#include "platform/NetworkTypes.h"

#include <gtest/gtest.h>

#include <string>

using namespace HostCtl::Network;
using HostCtl::Lib::HostCtlException;

TEST(Ipv4AddressTest, Validation) {
    struct Case {
        std::string text;
        bool valid;
    };
    const Case cases[] = {
        {"192.0.2.7", true},
        {"0.0.0.0", true},
        {"255.255.255.255", true},
        {"1.2.3.0", true},
        {"1.2.3", false},
        {"1.2.3.256", false},
        {"1.2.3.05", false},
        {"192.0.2.7 ", false},
        {" 192.0.2.7", false},
        {"192.0.2.7.", false},
        {".192.0.2.7", false},
        {"1.2.3.4.5", false},
        {"", false},
        {"1..2.3", false},
        {"0x1.2.3.4", false},
        {"1.2.3.-4", false},
        {"+1.2.3.4", false},
        {"1.2.3.4/24", false},
        {"a.b.c.d", false},
        {"1.2.3.4\n", false},
        {"::ffff:1.2.3.4", false},
        {"01.2.3.4", false},
        {"1.2.3.4a", false},
        {"1,2,3,4", false},
        {std::string("1.2.3.4\0", 8), false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ipv4Address::IsValidAddress(c.text), c.valid) << "'" << c.text << "'";
        if (!c.valid && !c.text.empty()) {
            EXPECT_THROW(Ipv4Address{c.text}, HostCtlException) << c.text;
        }
    }
}

TEST(Ipv4AddressTest, BinaryAndTextRoundTrip) {
    Ipv4Address a("192.0.2.1");
    EXPECT_EQ(a.GetBinaryAddress(), 0xC0000201u);
    EXPECT_EQ(a.GetStringAddress(), "192.0.2.1");
    EXPECT_EQ(Ipv4Address::FromBinary(0x0A000001).GetStringAddress(), "10.0.0.1");
    // Unset is 0 and prints as the all-zero address; the empty text is unset too.
    EXPECT_EQ(Ipv4Address().GetBinaryAddress(), 0u);
    EXPECT_EQ(Ipv4Address("").GetStringAddress(), "0.0.0.0");
}

TEST(Ipv4AddressTest, NetmaskMustBeContiguous) {
    struct Case {
        const char* text;
        bool valid;
    };
    const Case cases[] = {
        {"255.255.255.0", true},   {"255.255.255.255", true}, {"128.0.0.0", true},  {"255.255.252.0", true},
        {"255.255.255.254", true}, {"255.0.255.0", false},    {"0.0.0.0", false},   {"0.255.255.255", false},
        {"255.255.255.1", false},  {"255.254.255.0", false},  {"127.0.0.0", false}, {"255.255.0.128", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Ipv4Address(c.text).IsValidNetmask(), c.valid) << c.text;
}

TEST(Ipv6AddressTest, Validation) {
    struct Case {
        std::string text;
        bool valid;
    };
    const Case cases[] = {
        {"::", true},
        {"::1", true},
        {"2001:db8::1", true},
        {"fe80::1%tes0", true},
        {"fe80::250:56ff:feaa:0", true},
        {"::ffff:192.0.2.1", true},
        {"2001:0db8:0000:0000:0000:0000:0000:0001", true},
        {"", false},
        {"2001:db8::1 ", false},
        {" 2001:db8::1", false},
        {"2001:db8:::1", false},
        {"2001:db8::1::2", false},
        {"2001:db8::g", false},
        {"12345::1", false},
        {"1:2:3:4:5:6:7:8:9", false},
        {"fe80::1%", false},
        {"fe80::1%tes 0", false},
        {"fe80::1%tes0%x", false},
        {"2001:db8::1/64", false},
        {"192.0.2.1", false},
        {"[2001:db8::1]", false},
        {std::string("::1\0", 4), false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ipv6Address::IsValidAddress(c.text), c.valid) << "'" << c.text << "'";
        if (!c.valid && !c.text.empty()) {
            EXPECT_THROW(Ipv6Address{c.text}, HostCtlException) << c.text;
        }
    }
}

TEST(Ipv6AddressTest, ScopeTextLinkLocalAndEquality) {
    struct Case {
        const char* text;
        const char* plain;
        const char* scoped;
        bool linkLocal;
        int scope;
    };
    const Case cases[] = {
        {"fe80::1%tes0", "fe80::1", "fe80::1%tes0", true, Ipv6Network::SCOPE_LINK},
        {"FE80:0::1", "fe80::1", "fe80::1", true, Ipv6Network::SCOPE_LINK},
        {"febf:ffff::1", "febf:ffff::1", "febf:ffff::1", true, Ipv6Network::SCOPE_LINK},
        {"fec0::1", "fec0::1", "fec0::1", false, Ipv6Network::SCOPE_SITE},
        {"fe7f::1", "fe7f::1", "fe7f::1", false, Ipv6Network::SCOPE_GLOBAL},
        {"2001:db8::1", "2001:db8::1", "2001:db8::1", false, Ipv6Network::SCOPE_GLOBAL},
        {"::1", "::1", "::1", false, Ipv6Network::SCOPE_HOST},
    };
    for (const auto& c : cases) {
        Ipv6Address a(c.text);
        EXPECT_EQ(a.GetStringAddress(), c.plain) << c.text;
        EXPECT_EQ(a.GetScopedStringAddress(), c.scoped) << c.text;
        EXPECT_EQ(a.IsLinkLocal(), c.linkLocal) << c.text;
        EXPECT_EQ(Ipv6Network::ScopeOf(a), c.scope) << c.text;
    }
    EXPECT_EQ(Ipv6Address("2001:db8::1"), Ipv6Address("2001:0db8:0:0::1"));
    EXPECT_FALSE(Ipv6Address("fe80::1%tes0") == Ipv6Address("fe80::1%tes1"));
    EXPECT_FALSE(Ipv6Address("2001:db8::1") == Ipv6Address("2001:db8::2"));
    EXPECT_TRUE(Ipv6Address().IsUnspecified());
    EXPECT_TRUE(Ipv6Address("").IsUnspecified());
}

TEST(Ipv6NetworkTest, AddressAndPrefixValidation) {
    struct Case {
        std::string text;
        bool valid;
    };
    const Case cases[] = {
        {"2001:db8::1/64", true},
        {"2001:db8::1/0", true},
        {"2001:db8::1/128", true},
        {"fe80::1/64", true},
        {"::/0", true},
        {"2001:db8::1/129", false},
        {"2001:db8::1/", false},
        {"2001:db8::1", false},
        {"/64", false},
        {"2001:db8::1/064", false},
        {"2001:db8::1/-1", false},
        {"2001:db8::1/+64", false},
        {"2001:db8::1/64 ", false},
        {"2001:db8::1 /64", false},
        {"2001:db8::1/6 4", false},
        {"2001:db8::1/64/64", false},
        {"192.0.2.1/24", false},
        {"2001:db8::1/1000", false},
        {"2001:db8::1/0x40", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ipv6Network::IsValidAddressAndNetmask(c.text), c.valid) << "'" << c.text << "'";
        if (!c.valid) {
            EXPECT_THROW(Ipv6Network{c.text}, HostCtlException) << c.text;
        }
    }
}

TEST(Ipv6NetworkTest, ParsedNetworkCarriesPrefixTypeAndScope) {
    Ipv6Network n("2001:DB8::10/64");
    EXPECT_EQ(n.GetStringAddress(), "2001:db8::10/64");
    EXPECT_EQ(n.GetPrefixLength(), 64);
    EXPECT_EQ(n.GetIpv6AddressType(), Ipv6Network::TYPE_STATIC);
    EXPECT_EQ(n.GetIpv6Scope(), Ipv6Network::SCOPE_GLOBAL);
    EXPECT_EQ(Ipv6Network("fe80::5/64").GetIpv6Scope(), Ipv6Network::SCOPE_LINK);
    EXPECT_TRUE(Ipv6Network("fe80::5/64").GetAddress().IsLinkLocal());
    n.SetIpv6AddressType(Ipv6Network::TYPE_DHCP);
    // Type and scope describe the address; they do not make it a different network.
    EXPECT_EQ(n, Ipv6Network("2001:db8::10/64"));
    EXPECT_FALSE(n == Ipv6Network("2001:db8::10/48"));
    EXPECT_THROW(Ipv6Network(Ipv6Address("::1"), 129), HostCtlException);
}

TEST(MacAddressTest, Validation) {
    struct Case {
        const char* text;
        bool valid;
    };
    const Case cases[] = {
        {"00:50:56:aa:00:00", true},     {"00:50:56:AA:0f:F0", true},   {"00:50:56:aa:00", false},
        {"00:50:56:aa:00:00:11", false}, {"00-50-56-aa-00-00", false},  {"0:50:56:aa:00:000", false},
        {"00:50:56:aa:00:0g", false},    {" 00:50:56:aa:00:00", false}, {"", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MacAddress::IsValidAddress(c.text), c.valid) << c.text;
    EXPECT_EQ(MacAddress("00:50:56:AA:0F:F0").GetStringAddress(), "00:50:56:aa:0f:f0");
    EXPECT_THROW(MacAddress("00-50-56-aa-00-00"), HostCtlException);
}

TEST(IpConfigTest, DhcpFlagsAndNetworks) {
    IpConfig c;
    c.SetIpv4UseNone();
    EXPECT_TRUE(c.GetIpv4UseNone());
    // DHCP means IPv4 is on again.
    c.SetUseDhcp(true);
    EXPECT_FALSE(c.GetIpv4UseNone());
    EXPECT_TRUE(c.IsUsingDhcp());
    c.SetUseDhcp(false, true);
    EXPECT_FALSE(c.GetUseDhcp());
    EXPECT_TRUE(c.GetIpv4UseNone());
    EXPECT_FALSE(c.IsUsingDhcp());
    c.SetUseIpv6Dhcp(true);
    EXPECT_TRUE(c.IsUsingDhcp());

    c.AddIpv6Network(Ipv6Network("2001:db8::1/64"));
    c.AddIpv6Network(Ipv6Network("2001:db8::1/64"));
    c.AddIpv6Network(Ipv6Network("2001:db8::2/64"));
    ASSERT_EQ(c.GetIpv6Network().size(), 2u);
    EXPECT_TRUE(c.RemoveIpv6Network(Ipv6Network("2001:db8::1/64")));
    EXPECT_FALSE(c.RemoveIpv6Network(Ipv6Network("2001:db8::1/64")));
    ASSERT_EQ(c.GetIpv6Network().size(), 1u);
    EXPECT_EQ(c.GetIpv6Network()[0].GetStringAddress(), "2001:db8::2/64");
}
