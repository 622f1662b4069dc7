// The real host's file parsers, fed with text: resolver configuration, dhclient leases, ifupdown
// definitions, networkd's link description and tarn's own configuration file.
#include "platform/linux/DhcpLeases.h"
#include "platform/linux/LinuxHostConfig.h"
#include "platform/linux/NetworkdLink.h"
#include "platform/linux/ResolvConf.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

namespace {

using namespace Platform::Linux;

template <class T> std::string Join(const std::vector<T>& items) {
    std::string out;
    for (const auto& item : items) {
        if constexpr (std::is_same_v<T, std::string>)
            out += item + " ";
        else
            out += item.GetStringAddress() + " ";
    }
    return out;
}

TEST(LinuxParsers, ResolvConf) {
    struct Case {
        const char* text;
        const char* servers;
        const char* ipv6;
        const char* search;
        const char* domain;
    } cases[] = {
        {"nameserver 192.0.2.1\nnameserver 2001:db8::53\nsearch a.test b.test\n", "192.0.2.1 ",
         "2001:db8::53 ", "a.test b.test ", ""},
        // The later of search and domain wins; domain gives a one-name search list.
        {"search x.test\ndomain corp.test\n", "", "", "corp.test ", "corp.test"},
        {"domain corp.test\nsearch y.test z.test ; comment\n", "", "", "y.test z.test ", ""},
        // Comments, a bad address, a server without value, tabs, a last line without newline.
        {"# nameserver 192.0.2.9\n; x\nnameserver 192.0.2.300\nnameserver\nnameserver\t198.51.100.2",
         "198.51.100.2 ", "", "", ""},
        {"", "", "", "", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        ResolvConf conf = ParseResolvConf(c.text);
        EXPECT_EQ(Join(conf.servers), c.servers);
        EXPECT_EQ(Join(conf.ipv6Servers), c.ipv6);
        EXPECT_EQ(Join(conf.search), c.search);
        EXPECT_EQ(conf.domain, c.domain);
    }
    EXPECT_TRUE(OnlyLocalStub(ParseResolvConf("nameserver 127.0.0.53\n")));
    EXPECT_FALSE(OnlyLocalStub(ParseResolvConf("nameserver 127.0.0.53\nnameserver 192.0.2.1\n")));
    EXPECT_FALSE(OnlyLocalStub(ParseResolvConf("")));
}

TEST(LinuxParsers, DhclientLeases) {
    const char* file = R"(lease {
  interface "u0";
  fixed-address 10.9.0.50;
  option dhcp-server-identifier 10.9.0.1;
}
# a newer lease of the same interface, then one of another
lease {
  interface "u0";
  fixed-address 10.9.0.55;
  option subnet-mask 255.255.255.0;
  option routers 10.9.0.1, 10.9.0.2;
  option domain-name-servers 10.9.0.1;
  option dhcp-server-identifier 10.9.0.3;
  option domain-name "corp.test; odd";
  option vendor-encapsulated-options 1:2:3;
  renew 1 2026/11/23 06:59:20;
}
lease { interface "u1"; fixed-address 10.8.0.5; }
lease { interface "u2"; fixed-address 10.7.0.5;
)";
    auto leases = ParseDhclientLeases(file);
    ASSERT_EQ(leases.size(), 3u) << "the unterminated block is dropped";
    const DhcpLease& newest = leases[1];
    EXPECT_EQ(newest.netmask.GetStringAddress(), "255.255.255.0");
    EXPECT_EQ(Join(newest.routers), "10.9.0.1 10.9.0.2 ");
    EXPECT_EQ(Join(newest.nameServers), "10.9.0.1 ");
    EXPECT_EQ(newest.domain, "corp.test; odd");

    using HostCtl::Network::Ipv4Address;
    struct Case {
        const char* interface;
        const char* address;
        const char* server; // "" when no lease explains the address
    } cases[] = {{"u0", "10.9.0.55", "10.9.0.3"}, {"u0", "10.9.0.50", "10.9.0.1"}, {"u0", "10.8.0.5", ""},
                 {"u1", "10.8.0.5", "0.0.0.0"},   {"u2", "10.7.0.5", ""},          {"u0", "", ""}};
    // u1's lease names no server: found, with the server unset.
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.interface) + " " + c.address);
        const DhcpLease* lease = FindLease(leases, c.interface, Ipv4Address(c.address));
        EXPECT_EQ(lease ? lease->server.GetStringAddress() : "", c.server);
    }
}

TEST(LinuxParsers, IfupdownInterfaces) {
    auto methods = ParseIfupdownInterfaces("auto lo\niface lo inet loopback\n\nallow-hotplug ens3\n"
                                           "iface ens3 inet dhcp\niface ens3 inet6 auto\n"
                                           "  iface br0 inet static\n    address 192.0.2.5/24\n"
                                           "iface broken inet\nsource /etc/network/interfaces.d/*\n");
    EXPECT_EQ(methods.size(), 3u);
    EXPECT_EQ(methods["ens3"].inet, "dhcp");
    EXPECT_EQ(methods["ens3"].inet6, "auto");
    EXPECT_EQ(methods["br0"].inet, "static");
    EXPECT_EQ(methods["br0"].inet6, "");
}

TEST(LinuxParsers, NetworkdLinkDescription) {
    NetworkdLink link = ParseNetworkdLink(R"({"Index":2,"Name":"ens3","SetupState":"configured",
        "NetworkFile":"/etc/systemd/network/10-ens3.network",
        "Addresses":[
          {"Family":10,"Address":[254,128,0,0,0,0,0,0,0,0,0,255,254,0,0,1],"PrefixLength":64,
           "ConfigSource":"foreign"},
          {"Family":2,"Address":[10,0,0,5],"PrefixLength":24,"ConfigSource":"DHCPv4",
           "ConfigProvider":[10,0,0,1]},
          {"Family":2,"Address":[10,0,0,300],"PrefixLength":24,"ConfigSource":"static"},
          {"Family":10,"Address":[32,1,13,184,0,0,0,0,0,0,0,0,0,0,0,9],"PrefixLength":64,
           "ConfigSource":"NDisc","ConfigProvider":[254,128,0,0,0,0,0,0,0,0,0,0,0,0,0,1]},
          {"Family":7,"Address":[1,2,3,4]}, "odd"]})");
    EXPECT_TRUE(link.managed);
    EXPECT_EQ(link.networkFile, "/etc/systemd/network/10-ens3.network");
    ASSERT_EQ(link.addresses.size(), 3u)
        << "an out-of-range byte, an unknown family and a non-object are skipped";
    EXPECT_EQ(link.addresses[0].address, "fe80::ff:fe00:1");
    EXPECT_EQ(link.addresses[2].source, "NDisc");
    EXPECT_EQ(link.addresses[2].provider, "fe80::1");
    const NetworkdAddress* dhcp = Dhcp4Address(link);
    ASSERT_NE(dhcp, nullptr);
    EXPECT_EQ(dhcp->address, "10.0.0.5");
    EXPECT_EQ(dhcp->provider, "10.0.0.1");

    EXPECT_FALSE(ParseNetworkdLink(R"({"Name":"lo","SetupState":"unmanaged"})").managed);
    EXPECT_EQ(Dhcp4Address(ParseNetworkdLink(R"({"Name":"x"})")), nullptr);
    for (const char* bad : {"", "[]", "{\"Index\":1}", "{\"Name\":", "null"})
        EXPECT_THROW(ParseNetworkdLink(bad), std::runtime_error) << bad;

    // Members of the wrong type count as absent instead of escaping as the JSON library's type errors.
    NetworkdLink odd = ParseNetworkdLink(R"({"Name":"e0","SetupState":5,"NetworkFile":[],"Addresses":[
          {"Family":1e+28,"Address":[10,0,0,1]},
          {"Family":2,"Address":[10,0,0,4294967297],"PrefixLength":24},
          {"Family":2,"Address":[10,0,0,2],"PrefixLength":1e+28,"ConfigSource":7}]})");
    EXPECT_FALSE(odd.managed);
    EXPECT_EQ(odd.networkFile, "");
    ASSERT_EQ(odd.addresses.size(), 1u) << "a float family and a byte beyond 32 bits are refused";
    EXPECT_EQ(odd.addresses[0].address, "10.0.0.2");
    EXPECT_EQ(odd.addresses[0].prefixLength, 0);
    EXPECT_EQ(odd.addresses[0].source, "");
}

TEST(LinuxParsers, HostConfig) {
    LinuxHostConfig config = ParseLinuxHostConfig("# tarn\nmanagement = br0\nnic=u0\n  nic = u1 # second\n"
                                                  "nic = u0\nnic = a/b\nmangement = x\njunk\nnic =\n"
                                                  "management = sixteen-letters-x\n");
    EXPECT_EQ(config.management, "br0");
    EXPECT_EQ(config.nics, (std::vector<std::string>{"u0", "u1"}));
    EXPECT_EQ(config.problems, (std::vector<std::string>{"line 6: \"a/b\" is no link name",
                                                         "line 7: unknown key \"mangement\"",
                                                         "line 8: no '='", "line 9: \"\" is no link name",
                                                         "line 10: \"sixteen-letters-x\" is no link name"}));
}

} // namespace
