// The real host's snapshot against the namespace scene it was taken in (scenes.sh): each test runs only in
// its own scene, started by launch.sh, and skips elsewhere.
#include "platform/linux/LinuxNetwork.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace Platform::Linux;
using HostCtl::Network::Ipv6Network;

#define REQUIRE_SCENE(name)                                                                                  \
    if (const char* scene = std::getenv("TARN_NETNS_SCENE"); !scene || std::string(scene) != name)           \
    GTEST_SKIP() << "runs in the namespace scene \"" << name << "\" only (tests/netns/launch.sh)"

const char* Origin(int type) {
    return type == Ipv6Network::TYPE_STATIC ? "static" : type == Ipv6Network::TYPE_DHCP ? "dhcp" : "autoconf";
}

// The snapshot as text, one fact a line, in the model's order (IPv6 addresses sorted: the kernel lists
// them newest first).
std::string Describe(const MappedNetwork& m, const Platform::DnsRecord& dns) {
    std::string out;
    for (const auto& p : m.snapshot.pnics)
        out +=
            "nic " + p.name + " " + p.label + " " + p.mac.GetStringAddress() + (p.link ? " up\n" : " down\n");
    for (const auto& s : m.snapshot.standardSwitches) {
        out += "switch " + s.name + ":";
        for (const auto& u : s.uplinks)
            out += " " + u;
        out += "\n";
    }
    for (const auto& t : m.snapshot.tesnics) {
        const auto& ip = t.running;
        out += "tesnic " + t.name + " on " + t.connection.portGroup + ": ";
        if (t.stored.GetIpv4UseNone())
            out += "no ipv4";
        else
            out += ip.GetIpv4Address().GetStringAddress() + "/" + ip.GetIpv4Netmask().GetStringAddress() +
                   " gw " + ip.GetIpv4Gateway().GetStringAddress() +
                   (t.stored.GetUseDhcp() ? " dhcp from " + t.dhcpServer.GetStringAddress() : " static");
        out += "\n";
        std::vector<std::string> ipv6;
        for (const auto& n : ip.GetIpv6Network())
            ipv6.push_back("  " + n.GetStringAddress() + " " + Origin(n.GetIpv6AddressType()) + "\n");
        std::sort(ipv6.begin(), ipv6.end());
        for (const auto& line : ipv6)
            out += line;
        if (!ip.GetIpv6Gateway().IsUnspecified())
            out += "  gw " + ip.GetIpv6Gateway().GetScopedStringAddress() + "\n";
    }
    out += "management " + m.snapshot.management + "\n";
    out += "dns " + dns.hostname + (dns.dhcp ? " dhcp" : "") + ":";
    for (const auto& s : dns.servers)
        out += " " + s.GetStringAddress();
    out += " search";
    for (const auto& s : dns.search)
        out += " " + s;
    return out + "\n";
}

std::string Snapshot() {
    return Describe(ReadNetwork(), ReadDns());
}

TEST(Scene, BridgeWithTwoUplinksAndAStaticAddress) {
    REQUIRE_SCENE("bridge");
    EXPECT_EQ(Snapshot(), "nic nicx0 veth (u0) 02:00:00:00:00:01 up\n"
                          "nic nicx1 veth (u1) 02:00:00:00:00:02 up\n"
                          "switch br0: nicx0 nicx1\n"
                          "tesnic br0 on br0: 192.0.2.10/255.255.255.0 gw 192.0.2.1 static\n"
                          "management br0\n"
                          "dns host01: 192.0.2.53 search corp.test\n");
}

TEST(Scene, AddressFromADhcpLease) {
    REQUIRE_SCENE("dhcp");
    EXPECT_EQ(Snapshot(), "nic nicx0 veth (u0) 02:00:00:00:00:01 up\n"
                          "switch u0: nicx0\n"
                          "tesnic u0 on u0: 10.9.0.50/255.255.255.0 gw 10.9.0.1 dhcp from 10.9.0.1\n"
                          "management u0\n"
                          "dns host01 dhcp: 10.9.0.1 search corp.test\n");
}

TEST(Scene, StaticIpv6AndAnAddressFromARouterAdvertisement) {
    REQUIRE_SCENE("ipv6");
    MappedNetwork m = ReadNetwork();
    EXPECT_TRUE(m.snapshot.ipv6Enabled);
    EXPECT_EQ(Describe(m, ReadDns()), "nic nicx0 veth (u0) 02:00:00:00:00:01 up\n"
                                      "switch u0: nicx0\n"
                                      "tesnic u0 on u0: 198.51.100.5/255.255.255.0 gw 198.51.100.1 static\n"
                                      "  2001:db8:5::5/64 static\n"
                                      "  2001:db8:9::ff:fe00:1/64 autoconf\n"
                                      "  fe80::ff:fe00:1/64 autoconf\n"
                                      "  gw fe80::ff:fe00:f1%u0\n"
                                      "management u0\n"
                                      "dns host01: search\n");
    EXPECT_EQ(m.routes.ipv6Gateway.GetScopedStringAddress(), "fe80::ff:fe00:f1%u0");
}

TEST(Scene, LinkThatNetworkdConfiguredByDhcp) {
    REQUIRE_SCENE("networkd");
    EXPECT_EQ(Snapshot(), "nic nicx0 veth (u0) 02:00:00:00:00:01 up\n"
                          "switch u0: nicx0\n"
                          "tesnic u0 on u0: 10.7.0.5/255.255.255.0 gw 10.7.0.1 dhcp from 10.7.0.1\n"
                          "management u0\n"
                          "dns host01 dhcp: search\n");
}

TEST(Scene, NoNicAtAll) {
    REQUIRE_SCENE("none");
    MappedNetwork m = ReadNetwork();
    EXPECT_EQ(Describe(m, ReadDns()), "management \ndns host01: search\n");
    EXPECT_EQ(m.problems,
              std::vector<std::string>{"no management interface: no IPv4 default route and no NIC"});
}

TEST(Scene, BareNicOutsideAnyBridge) {
    REQUIRE_SCENE("bare");
    EXPECT_EQ(Snapshot(), "nic nicx0 veth (u0) 02:00:00:00:00:01 up\n"
                          "nic nicx1 veth (u1) 02:00:00:00:00:02 up\n"
                          "switch br0: nicx0\n"
                          "switch u1: nicx1\n"
                          "tesnic br0 on br0: no ipv4\n"
                          "tesnic u1 on u1: 203.0.113.9/255.255.255.0 gw 203.0.113.1 static\n"
                          "management u1\n"
                          "dns host01: search\n");
}

} // namespace
