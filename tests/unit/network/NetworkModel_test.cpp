// The host-control network objects over the simulated host: DNS changes held until SaveConfig, running vs
// stored IP configuration with the stale flag, DHCP leases, routes, restore operations, switch listings and
// the hosts file. Missing host state is in NetworkAccess_test.
#include "NetworkHost.h"

#include "network/SwitchListing.h"
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostsFile.h"
#include "platform/NetworkInfo.h"
#include "platform/PnicImpl.h"
#include "platform/RoutingInfo.h"
#include "platform/TesNicImpl.h"
#include "platform/VirtualSwitchInfo.h"

using HostCtl::Lib::HostCtlException;
using namespace HostCtl::Network;
using namespace TesCtl::Network;

class NetworkModelTest : public NetworkHostTest {
protected:
    void SetUp() override { host_.WriteState(BaseHost()); }
};

TEST_F(NetworkModelTest, DnsChangesReachTheHostOnlyWithSaveConfig) {
    const Json before = host_.State()["dns"];
    DnsConfigImpl dns;
    EXPECT_TRUE(dns.IsStale());
    dns.Refresh();
    EXPECT_EQ(dns.GetHostname(), "host01");

    dns.SetFqdn("host02.corp.test", false, "");
    dns.RemoveNameServers();
    dns.AddNameServer(Ipv4Address("198.51.100.53"));
    dns.AddNameServer(Ipv6Address("2001:db8::53"));
    dns.SetSearchDomainsString(dns.GetDomain());
    for (const char* suffix : {"a.test", "b.test", "c.test"})
        dns.AddSearchDomain(suffix);
    // The object answers with its held changes, the host still has the old ones.
    EXPECT_EQ(dns.GetHostname(), "host02");
    EXPECT_EQ(dns.GetDomain(), "corp.test");
    EXPECT_EQ(host_.State()["dns"], before);
    EXPECT_EQ(DnsConfigImpl().GetHostname(), "host01");

    dns.SaveConfig();
    EXPECT_EQ(host_.State()["dns"], Json::parse(R"({"hostname": "host02", "domain": "corp.test",
        "servers": ["198.51.100.53"], "ipv6Servers": ["2001:db8::53"], "dhcp": false,
        "search": ["corp.test", "a.test", "b.test", "c.test"]})"));

    dns.SetSearchDomainsString("one.test,,two.test  three.test, one.test\t");
    EXPECT_EQ(dns.GetSearchDomains(), (std::vector<std::string>{"one.test", "two.test", "three.test"}));
    dns.SetHostname("plain", false);
    EXPECT_EQ(dns.GetDomain(), "corp.test");
}

TEST_F(NetworkModelTest, StaleFlagAndStoredVersusRunning) {
    TesNicImpl tesnic("tes0");
    EXPECT_FALSE(tesnic.IsStale());
    IpConfig config = tesnic.GetConfiguredIpConfig();
    config.SetUseDhcp(true);
    tesnic.SetIpConfig(config);
    EXPECT_TRUE(tesnic.IsStale());
    // DHCP: both keep the mode, the running one has the simulated server's lease.
    IpConfig running = tesnic.GetIpConfig();
    EXPECT_FALSE(tesnic.IsStale());
    EXPECT_TRUE(running.GetUseDhcp());
    EXPECT_EQ(running.GetIpv4Address().GetStringAddress(), "192.0.2.77");
    EXPECT_TRUE(tesnic.GetConfiguredIpConfig().GetUseDhcp());
    EXPECT_EQ(tesnic.GetConfiguredIpConfig().GetIpv4Address().GetStringAddress(), "192.0.2.10");
    EXPECT_EQ(tesnic.GetDhcpServer().GetStringAddress(), "192.0.2.2");
    EXPECT_TRUE(tesnic.GetDhcpBound());

    // The lease disappears: a restart (disable, enable) leaves the interface without an address.
    host_.ChangeState([](Json& s) { s["network"]["dhcp"]["available"] = false; });
    tesnic.Disable();
    tesnic.Enable();
    EXPECT_TRUE(tesnic.IsEnabled());
    EXPECT_EQ(tesnic.GetIpConfig().GetIpv4Address().GetStringAddress(), "0.0.0.0");
    EXPECT_EQ(tesnic.GetDhcpServer().GetBinaryAddress(), 0u);

    // Another process changing the host is seen after Refresh.
    host_.ChangeState([](Json& s) { s["tesnics"][0]["mac"] = "00:50:56:aa:00:09"; });
    EXPECT_EQ(tesnic.GetMacAddress().GetStringAddress(), "00:50:56:aa:00:00");
    tesnic.Refresh();
    EXPECT_EQ(tesnic.GetMacAddress().GetStringAddress(), "00:50:56:aa:00:09");
}

TEST_F(NetworkModelTest, StaticConfigurationMacAndConnectionPoint) {
    TesNicImpl tesnic("tes0");
    IpConfig config = tesnic.GetIpConfig();
    config.SetIpv4Address(Ipv4Address("192.0.2.20"));
    config.AddIpv6Network(Ipv6Network("2001:db8::20/64"));
    config.SetIpv6Gateway(Ipv6Address("fe80::1%tes0"));
    tesnic.SetIpConfig(config);
    EXPECT_EQ(tesnic.GetIpConfig(), config);
    EXPECT_EQ(tesnic.GetConfiguredIpConfig(), config);
    EXPECT_EQ(host_.State()["tesnics"][0]["running"]["ipv6Gateway"], "fe80::1%tes0");
    // No DHCP in use: nothing to renew.
    EXPECT_THROW(tesnic.RenewDhcpLease(), HostCtlException);
    EXPECT_THROW(tesnic.RenewDhcpv6Lease(), HostCtlException);
    EXPECT_THROW(TesNicImpl("tes7"), HostCtlException);

    PnicImpl pnic("nicx3");
    tesnic.SetMacAddressFromPnic(pnic);
    EXPECT_EQ(host_.State()["tesnics"][0]["mac"], "00:50:56:aa:00:03");
    tesnic.SetConnectionPoint(DVPort("kDS-1", "10"));
    EXPECT_EQ(tesnic.GetConnectionPoint()->GetType(), ConnectionPoint::TYPE_DV_PORT);
    EXPECT_THROW(tesnic.SetConnectionPoint(PortGroup("No Such Group")), HostCtlException);
    EXPECT_THROW(tesnic.SetConnectionPoint(ConnectionPoint(3)), HostCtlException);
}

TEST_F(NetworkModelTest, RoutesAndIpv6State) {
    RoutingInfoImpl routes;
    EXPECT_EQ(routes.GetTesselDefaultGateway().GetStringAddress(), "192.0.2.1");
    EXPECT_TRUE(routes.GetIpv6TesselDefaultGateway().IsUnspecified());
    routes.SetTesselDefaultGateway(Ipv4Address("192.0.2.254"), false);
    routes.SetIpv6TesselDefaultGateway(Ipv6Address("2001:db8::1"));
    EXPECT_EQ(host_.State()["routes"],
              Json({{"ipv4Gateway", "192.0.2.254"}, {"ipv6Gateway", "2001:db8::1"}}));

    NetworkInfoImpl info;
    EXPECT_TRUE(info.IsTesIpv6Enabled());
    info.SetTesIpv6Enabled(false);
    // Effective only after a restart: the running state stays.
    EXPECT_TRUE(info.IsTesIpv6Enabled());
    EXPECT_EQ(host_.State()["ipv6"]["pendingEnabled"], false);
}

// The restore on a host with NICs is RestoreActions_test's; here the host without any.
TEST_F(NetworkModelTest, FactoryRestoreWithoutPhysicalNicsStillHasAManagementInterface) {
    host_.ChangeState([](Json& s) { s["pnics"] = Json::array(); });
    NetworkInfoImpl info;
    info.DisableNetDumper();
    info.ClearNetworkConfig();
    EXPECT_EQ(NetworkInfoImpl().GetManagementInterface(), nullptr);
    EXPECT_TRUE(host_.State()["distributedSwitches"].empty());
    info.AutoConfigNetwork();
    EXPECT_EQ(host_.State()["netDumper"]["enabled"], false);
    EXPECT_EQ(host_.State()["standardSwitches"][0]["uplinks"], Json::array());
    EXPECT_NE(NetworkInfoImpl().GetManagementInterface(), nullptr);
}

TEST_F(NetworkModelTest, SwitchCreationNamesAndListings) {
    VirtualSwitchInfoImpl switches;
    switches.AddVirtualSwitch("kSwitch1", Portset::DEF_NUM_PORTS);
    EXPECT_THROW(switches.AddVirtualSwitch("kSwitch1", 64), HostCtlException);
    for (const char* name : {"kSwitch1", "kDS-1"})
        EXPECT_TRUE(PortsetImpl().IsValidVirtualSwitch(name)) << name;
    EXPECT_FALSE(PortsetImpl().IsValidVirtualSwitch("kSwitch2"));
    auto all = switches.GetVirtualSwitches();
    ASSERT_EQ(all.size(), 2u);
    all[1]->AddPortGroup("Management Network1");
    EXPECT_THROW(all[1]->AddPortGroup("Management Network"), HostCtlException);
    EXPECT_TRUE(PortGroupImpl().IsValidPortGroup("Management Network1"));
    EXPECT_FALSE(PortGroupImpl().IsValidPortGroup("Management Network2"));

    std::vector<Tarn::SwitchSummary> standard;
    ASSERT_TRUE(Tarn::ScanVirtualSwitches(standard));
    ASSERT_EQ(standard.size(), 2u);
    // kSwitch0: one uplink and tes0 on its port group.
    EXPECT_EQ(Tarn::FormatSwitchSummary(standard[0]),
              "Number of ports: 128\nConfigured ports: 128\nUsed ports: 2\n"
              "Port groups: Management Network\nUplinks: nicx0");
    EXPECT_EQ(Tarn::FormatSwitchSummary(standard[1]),
              "Number of ports: 128\nConfigured ports: 128\nUsed ports: 0\n"
              "Port groups: Management Network1\nUplinks: None");
    std::vector<Tarn::SwitchSummary> distributed;
    ASSERT_TRUE(Tarn::ScanDkSwitches(distributed));
    ASSERT_EQ(distributed.size(), 1u);
    EXPECT_EQ(distributed[0].uplinks, std::vector<std::string>{"nicx2"});
    for (const auto& [nic, user] : {std::pair{"nicx2", "kDS-1"}, {"nicx0", "kSwitch0"}, {"nicx3", ""}})
        EXPECT_EQ(Tarn::FindUplinkUser(nic), user) << nic;
    EXPECT_EQ(Tarn::GatherStandardSwitchUplinks(),
              (std::map<std::string, std::string>{{"nicx0", "kSwitch0"}}));
    std::vector<std::string> used;
    EXPECT_FALSE(Tarn::GetDvsUsedUplinks("kDS-9", used));
    EXPECT_TRUE(host_.Logged("DVS: getting used uplinks failed: No distributed switch named kDS-9"));
}

TEST_F(NetworkModelTest, DistributedUplinkInfo) {
    std::vector<Tarn::DvsUplink> uplinks;
    ASSERT_TRUE(Tarn::GetDvsUplinkInfo("kDS-1", uplinks));
    ASSERT_EQ(uplinks.size(), 1u);
    EXPECT_EQ(uplinks[0].pnic, "nicx2");
    EXPECT_EQ(uplinks[0].macAddress, "00:50:56:aa:00:02");
    EXPECT_TRUE(uplinks[0].connected);

    // An uplink the host does not know as a physical NIC spoils the whole lookup.
    host_.ChangeState([](Json& s) { s["distributedSwitches"][0]["uplinks"].push_back("nicx9"); });
    EXPECT_FALSE(Tarn::GetDvsUplinkInfo("kDS-1", uplinks));
    EXPECT_EQ(uplinks.size(), 1u);
    EXPECT_TRUE(host_.Logged("Getting uplink ports or info failed: physical NIC nicx9 not found"));
}

TEST_F(NetworkModelTest, HostsFileRemovesOnlyTheName) {
    host_.Write("/etc/hosts", "# hosts\n127.0.0.1 localhost\n192.0.2.10 host01.example.test HOST01\n"
                              "192.0.2.11 other host01 # kept\n");
    HostsFile hosts;
    EXPECT_EQ(hosts.GetPath(), host_.Path("/etc/hosts"));
    EXPECT_TRUE(hosts.RemoveEntryByHostName("host01"));
    EXPECT_EQ(host_.Read("/etc/hosts"),
              "# hosts\n127.0.0.1 localhost\n192.0.2.10 host01.example.test\n192.0.2.11 other # kept\n");
    EXPECT_FALSE(hosts.RemoveEntryByHostName("absent"));
    EXPECT_THROW(HostsFile(host_.Path("/no/hosts")).RemoveEntryByHostName("x"), HostCtlException);
}
