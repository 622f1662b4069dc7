// The simulated host records every host-control change in its call log, in order, and fails the ones that
// "simulation.failing" names without changing anything.
#include "NetworkHost.h"

#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkInfo.h"
#include "platform/RoutingInfo.h"
#include "platform/TesNicImpl.h"

using HostCtl::Lib::HostCtlException;
using namespace HostCtl::Network;
using namespace TesCtl::Network;

class SimOperationsTest : public NetworkHostTest {
protected:
    void SetUp() override { host_.WriteState(BaseHost()); }
};

TEST_F(SimOperationsTest, ChangesAreRecordedInOrder) {
    TesNicImpl tes0("tes0");
    IpConfig config = tes0.GetConfiguredIpConfig();
    config.SetUseDhcp(true);
    tes0.SetIpConfig(config);
    tes0.Disable();
    tes0.Enable();
    RoutingInfoImpl().SetTesselDefaultGateway(Ipv4Address("192.0.2.254"), false);
    NetworkInfoImpl().SetTesIpv6Enabled(false);
    DnsConfigImpl dns;
    dns.SetHostname("host02", false);
    dns.RemoveNameServers();
    dns.AddNameServer(Ipv6Address("2001:db8::53"));
    dns.SetSearchDomainsString("a.test, b.test");
    dns.SaveConfig();

    EXPECT_EQ(Json(host_.ToolCalls()), Json::parse(R"([
        ["hostctl", "SetIpConfig", "tes0", "dhcp", "ipv6-static", "dns-manual"],
        ["hostctl", "Disable", "tes0"], ["hostctl", "Enable", "tes0"],
        ["hostctl", "SetTesselDefaultGateway", "192.0.2.254"],
        ["hostctl", "SetTesIpv6Enabled", "false"],
        ["hostctl", "SetHostname", "host02"], ["hostctl", "RemoveNameServers"],
        ["hostctl", "AddNameServer", "2001:db8::53"], ["hostctl", "SetSearchDomainsString", "a.test, b.test"],
        ["hostctl", "SaveDnsConfig"]])"));
    const Json state = host_.State();
    EXPECT_EQ(state["tesnics"][0]["running"]["address"], "192.0.2.77") << "leased again when enabled";
    EXPECT_EQ(state["ipv6"], Json::parse(R"({"enabled": true, "pendingEnabled": false})"));
    EXPECT_EQ(state["dns"]["ipv6Servers"], Json::parse(R"(["2001:db8::53"])"));
}

TEST_F(SimOperationsTest, ListedOperationsFailWithoutChangingTheHost) {
    host_.ChangeState([](Json& s) {
        s["simulation"]["failing"] = {"hostctl SetTesselDefaultGateway", "hostctl AddNameServer 192.0.2.99",
                                      "hostctl Enable"};
    });
    auto fails = [](const std::function<void()>& call) {
        try {
            call();
        } catch (const HostCtlException& e) {
            return std::string(e.what()) == "simulated failure";
        }
        return false;
    };
    TesNicImpl tes0("tes0");
    DnsConfigImpl dns;
    EXPECT_TRUE(fails([] { RoutingInfoImpl().SetTesselDefaultGateway(Ipv4Address("192.0.2.254"), false); }));
    EXPECT_TRUE(fails([&] { dns.AddNameServer(Ipv4Address("192.0.2.99")); }));
    EXPECT_FALSE(fails([&] { dns.AddNameServer(Ipv4Address("192.0.2.98")); })) << "only the listed argument";
    EXPECT_FALSE(fails([&] { tes0.Disable(); }));
    EXPECT_TRUE(fails([&] { tes0.Enable(); }));
    dns.SaveConfig();

    const Json state = host_.State();
    EXPECT_EQ(state["routes"]["ipv4Gateway"], "192.0.2.1");
    EXPECT_EQ(state["dns"]["servers"], Json::parse(R"(["192.0.2.53", "192.0.2.54", "192.0.2.98"])"));
    EXPECT_FALSE(state["tesnics"][0]["enabled"].get<bool>());
    EXPECT_EQ(host_.ToolCalls().size(), 6u) << "failed calls are recorded too";
}
