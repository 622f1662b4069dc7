// The real host's kernel facts mapped onto the console's model, the origin of addresses, and the test
// guard's decision: all pure, fed with made-up facts.
#include "platform/linux/NetworkModel.h"
#include "platform/linux/Sandbox.h"

#include <gtest/gtest.h>

namespace {

using namespace Platform::Linux;
using namespace HostCtl::Network;

LinkFact Nic(int index, const char* name, const char* bus, int master = 0) {
    LinkFact link;
    link.index = index;
    link.name = name;
    link.busAddress = bus;
    link.driver = *bus ? "e1000" : "veth";
    link.kind = *bus ? "" : "veth";
    link.master = master;
    link.ethernet = link.up = link.carrier = true;
    link.mac = MacAddress(MacAddress::Bytes{2, 0, 0, 0, 0, static_cast<uint8_t>(index)});
    return link;
}

AddressFact Addr(int link, const char* address, int prefix, bool permanent = true, bool linkScope = false) {
    return {link, std::string(address).find(':') != std::string::npos, address, prefix, permanent, linkScope};
}

// br0 bridges ens4 and ens3; ens5 is bare; u0 is a veth the configuration adds; eth9 has no bus device,
// wg0 is no Ethernet link.
HostFacts Host() {
    HostFacts facts;
    LinkFact lo;
    lo.index = 1, lo.name = "lo", lo.loopback = true;
    LinkFact br0 = Nic(10, "br0", "");
    br0.kind = "bridge";
    br0.acceptRa = 1;
    LinkFact wg0;
    wg0.index = 6, wg0.name = "wg0", wg0.kind = "wireguard";
    LinkFact ens5 = Nic(4, "ens5", "0000:00:05.0");
    ens5.carrier = false;
    facts.links = {lo,
                   Nic(2, "ens4", "0000:00:04.0", 10),
                   Nic(3, "ens3", "0000:00:03.0", 10),
                   ens5,
                   Nic(5, "u0", ""),
                   wg0,
                   Nic(7, "eth9", "", 0),
                   br0};
    facts.links[6].kind = ""; // eth9: hardware without a bus device
    facts.addresses = {Addr(1, "127.0.0.1", 8),
                       Addr(10, "192.0.2.10", 24),
                       Addr(10, "192.0.2.11", 24),
                       Addr(10, "2001:db8::10", 64),
                       Addr(10, "2001:db8::abcd", 64, false),
                       Addr(10, "2001:db8::99", 128, false),
                       Addr(10, "fe80::1", 64, true, true),
                       Addr(4, "198.51.100.7", 24),
                       Addr(6, "10.66.0.1", 24)};
    facts.defaultRoutes = {{false, 4, "198.51.100.1", "", 200},
                           {false, 10, "192.0.2.1", "", 100},
                           {true, 10, "fe80::fe", "", 1024}};
    facts.ipv6Enabled = true;
    return facts;
}

const Platform::TesNicRecord* TesNic(const MappedNetwork& m, const std::string& name) {
    for (const auto& t : m.snapshot.tesnics)
        if (t.name == name)
            return &t;
    return nullptr;
}

TEST(LinuxNetworkModel, NicsSwitchesAndTesNics) {
    LinuxHostConfig config;
    config.nics = {"u0", "missing0", "ens3"};
    MappedNetwork m = MapNetwork(Host(), config, {});

    std::vector<std::string> nics;
    for (const auto& p : m.snapshot.pnics)
        nics.push_back(p.name + "=" + p.label + "@" + p.pci + (p.link ? "" : " down"));
    EXPECT_EQ(nics,
              (std::vector<std::string>{"nicx0=e1000 (ens3)@0000:00:03.0", "nicx1=e1000 (ens4)@0000:00:04.0",
                                        "nicx2=e1000 (ens5)@0000:00:05.0 down", "nicx3=veth (u0)@"}));
    std::vector<std::string> switches;
    for (const auto& s : m.snapshot.standardSwitches) {
        std::string text = s.name + ":";
        for (const auto& u : s.uplinks)
            text += " " + u;
        ASSERT_EQ(s.portGroups.size(), 1u);
        EXPECT_EQ(s.portGroups[0].name, s.name);
        EXPECT_EQ(s.portGroups[0].teaming.GetUplinkOrder(), s.uplinks);
        switches.push_back(text);
    }
    EXPECT_EQ(switches, (std::vector<std::string>{"br0: nicx0 nicx1", "ens5: nicx2", "u0: nicx3"}));
    EXPECT_TRUE(m.snapshot.distributedSwitches.empty());
    std::vector<std::string> tesnics;
    for (const auto& t : m.snapshot.tesnics)
        tesnics.push_back(t.name + "/" + t.connection.portGroup);
    EXPECT_EQ(tesnics, (std::vector<std::string>{"br0/br0", "ens5/ens5", "u0/u0"}));
    EXPECT_EQ(m.problems, (std::vector<std::string>{"configured NIC missing0 does not exist"}));
}

TEST(LinuxNetworkModel, ManagementAddressesAndGateways) {
    MappedNetwork m = MapNetwork(Host(), {}, {});
    ASSERT_EQ(m.snapshot.management, "br0") << "the link of the lowest-metric IPv4 default route";
    const auto* br0 = TesNic(m, "br0");
    ASSERT_NE(br0, nullptr);
    EXPECT_EQ(br0->running.GetIpv4Address().GetStringAddress(), "192.0.2.10") << "the first address";
    EXPECT_EQ(br0->running.GetIpv4Netmask().GetStringAddress(), "255.255.255.0");
    EXPECT_EQ(br0->running.GetIpv4Gateway().GetStringAddress(), "192.0.2.1");
    EXPECT_FALSE(br0->stored.GetUseDhcp());
    EXPECT_FALSE(br0->stored.GetIpv4UseNone());
    EXPECT_TRUE(br0->running.GetUseIpv6RouterAdvertised());
    EXPECT_TRUE(br0->running.GetUseIpv6Dhcp());
    std::vector<std::string> ipv6;
    for (const auto& n : br0->running.GetIpv6Network())
        ipv6.push_back(n.GetAddress().GetScopedStringAddress() + "/" + std::to_string(n.GetPrefixLength()) +
                       " " + std::to_string(n.GetIpv6AddressType()));
    EXPECT_EQ(ipv6, (std::vector<std::string>{"2001:db8::10/64 0", "2001:db8::abcd/64 7",
                                              "2001:db8::99/128 9", "fe80::1%br0/64 7"}));
    EXPECT_EQ(br0->stored.GetIpv6Network().size(), 1u) << "only the static address is configuration";
    EXPECT_EQ(m.routes.ipv4Gateway.GetStringAddress(), "192.0.2.1");
    EXPECT_EQ(m.routes.ipv6Gateway.GetScopedStringAddress(), "fe80::fe%br0");

    // A NIC without any IPv4 address and no DHCP is set up for no IPv4 at all, not for 0.0.0.0.
    const MappedNetwork unmanaged =
        MapNetwork(Host(), {.management = "", .nics = {"u0"}, .problems = {}}, {});
    const auto* u0 = TesNic(unmanaged, "u0");
    ASSERT_NE(u0, nullptr);
    EXPECT_TRUE(u0->stored.GetIpv4UseNone());

    struct Case {
        const char* configured;
        const char* preferredSource; // of the IPv4 default route
        bool routes;
        const char* management;
        const char* problem;
    } cases[] = {
        {"ens5", "", true, "ens5", ""},
        {"wg0", "", true, "wg0", ""}, // no switch for it, but it is what the administrator named
        {"nope0", "", true, "br0", "configured management link nope0 does not exist"},
        {"", "198.51.100.7", true, "ens5", ""}, // the source address's link, not the route's
        // No default route: the first switch link with uplinks and an address (br0, not ens5's switch).
        {"", "", false, "br0", "no IPv4 default route: management is on br0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.configured) + " " + c.preferredSource);
        HostFacts facts = Host();
        if (!c.routes)
            facts.defaultRoutes.clear();
        facts.defaultRoutes[1].preferredSource = c.preferredSource;
        LinuxHostConfig config;
        config.management = c.configured;
        MappedNetwork mapped = MapNetwork(facts, config, {});
        EXPECT_EQ(mapped.snapshot.management, c.management);
        EXPECT_EQ(mapped.problems,
                  *c.problem ? std::vector<std::string>{c.problem} : std::vector<std::string>{});
        if (*c.management) {
            EXPECT_NE(TesNic(mapped, c.management), nullptr);
        }
    }
    // Without routes and addresses, the first link with uplinks; without NICs, none.
    HostFacts bare = Host();
    bare.defaultRoutes.clear();
    bare.addresses.clear();
    EXPECT_EQ(MapNetwork(bare, {}, {}).snapshot.management, "br0");
    bare.links.resize(1); // the loopback only
    MappedNetwork none = MapNetwork(bare, {}, {});
    EXPECT_EQ(none.snapshot.management, "");
    EXPECT_EQ(none.problems,
              std::vector<std::string>{"no management interface: no IPv4 default route and no NIC"});
}

TEST(LinuxNetworkModel, AddressOrigins) {
    OriginSources sources;
    sources.leases = ParseDhclientLeases("lease { interface \"u0\"; fixed-address 10.9.0.55;\n"
                                         "option dhcp-server-identifier 10.9.0.1; }\n");
    sources.ifupdown = ParseIfupdownInterfaces("iface u1 inet dhcp\niface u2 inet static\n");
    sources.networkd["n0"] = ParseNetworkdLink(R"({"Name":"n0","SetupState":"configured","Addresses":[
        {"Family":2,"Address":[10,1,0,5],"PrefixLength":24,"ConfigSource":"DHCPv4","ConfigProvider":[10,1,0,1]},
        {"Family":10,"Address":[32,1,13,184,0,0,0,0,0,0,0,0,0,0,0,5],"PrefixLength":64,"ConfigSource":"DHCPv6"}]})");
    sources.networkd["n1"] = ParseNetworkdLink(R"({"Name":"n1","SetupState":"unmanaged"})");
    sources.ifupdown["n1"].inet = "dhcp";

    struct Case {
        const char* link;
        const char* address;
        bool dhcp;
        const char* server;
    } cases[] = {
        {"u0", "10.9.0.55", true, "10.9.0.1"},
        {"u0", "10.9.0.56", false, "0.0.0.0"}, // the lease is for another address
        {"u1", "", true, "0.0.0.0"},           // configured for DHCP, no lease yet
        {"u2", "192.0.2.5", false, "0.0.0.0"},
        {"n0", "10.1.0.5", true, "10.1.0.1"},
        {"n1", "", true, "0.0.0.0"}, // networkd leaves it alone: ifupdown's word counts
    };
    for (const Case& c : cases) {
        Ipv4Origin origin = DecideIpv4Origin(sources, c.link, Ipv4Address(c.address));
        EXPECT_EQ(origin.dhcp, c.dhcp) << c.link;
        EXPECT_EQ(origin.server.GetStringAddress(), c.server) << c.link;
    }
    // networkd's word beats the kernel's lifetime: a permanent address it got from DHCPv6.
    EXPECT_EQ(DecideIpv6Type(sources, "n0", Addr(1, "2001:db8::5", 64)), Ipv6Network::TYPE_DHCP);
    EXPECT_EQ(DecideIpv6Type(sources, "u0", Addr(1, "2001:db8::5", 64)), Ipv6Network::TYPE_STATIC);
}

TEST(LinuxNetworkModel, TestGuard) {
    const std::string own = "net:[4026532300]", init = "net:[4026531840]";
    struct Case {
        const char* guard;
        const char* sandbox;
        std::string ownNetns, initNetns;
        bool allowed;
    } cases[] = {
        {nullptr, nullptr, own, init, true}, // no guard: a real host, run by a person
        {"", nullptr, own, init, true},
        {"1", nullptr, own, init, false},
        {"1", "", own, init, false},
        {"1", "net:[4026532300]", own, init, true},
        {"1", "net:[4026532301]", own, init, false},  // a sandbox, but another one
        {"1", "net:[4026531840]", init, init, false}, // the machine's own namespace named as sandbox
        {"1", "net:[4026532300]", own, "", true},     // process 1 hidden: the launcher's word must do
        {"1", "", "", init, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SandboxRefusal(c.guard, c.sandbox, c.ownNetns, c.initNetns).empty(), c.allowed)
            << (c.guard ? c.guard : "null") << " " << (c.sandbox ? c.sandbox : "null") << " " << c.ownNetns;
}

} // namespace
