// The apply sequence against a simulated host that records every host-control call: stage order and log
// lines, one failing stage at a time (its message, the later stages still running, nothing rolled back),
// a management interface on a distributed switch, and the refresh that ends every run.
#include "NetworkHost.h"

#include "network/ApplyChanges.h"
#include "network/OpenManagementNetwork.h"
#include "support/StateReadWatch.h"

#include <map>

using namespace HostCtl::Network;
using namespace Tarn;

namespace {

class RecordingFeedback : public ApplyFeedback {
public:
    std::vector<std::string> events;
    void ShowError(const std::string& message) override { events.push_back("error: " + message); }
    void Redraw() override { events.push_back("redraw"); }
    void RestartHost() override { events.push_back("restart host"); }
    void RefreshManagementService() override { events.push_back("refresh"); }
};

} // namespace

class ApplyChangesTest : public NetworkHostTest {
protected:
    void SetUp() override { host_.WriteState(BaseHost()); }

    // Opens the management network as the window does; the test then edits `pending_`.
    void Open() {
        ASSERT_EQ(OpenManagementNetwork(pending_, management_, dns_, routing_), OpenOutcome::Ready);
    }
    // A static address, new gateway, VLAN, uplinks, name, servers and suffixes.
    void EditEverything() {
        pending_.TakeAdapters({{"nicx1", "nicx0"}, 2});
        pending_.TakeVlan(5);
        IpConfig ipv4 = pending_.running;
        ipv4.SetIpv4Address(Ipv4Address("192.0.2.20"));
        ipv4.SetIpv4Gateway(Ipv4Address("192.0.2.254"));
        pending_.TakeIpv4(ipv4);
        pending_.TakeDns({false, Ipv4Address("192.0.2.60"), Ipv6Address("2001:db8::53"), "host02.corp.test"});
        pending_.TakeSuffixes("a.test,,b.test  c.test");
    }
    void Apply() {
        // A fresh resolver and route object, as the window holds them from its opening.
        ApplyChanges(pending_, *management_, dns_, routing_, feedback_);
    }
    // The host-control calls, each as its words after "hostctl" joined by blanks.
    std::vector<std::string> HostCalls() const {
        std::vector<std::string> calls;
        for (const auto& words : host_.ToolCalls()) {
            if (words[0] != "hostctl")
                continue;
            std::string text = words.at(1);
            for (size_t i = 2; i < words.size(); ++i)
                text += " " + words[i];
            calls.push_back(text);
        }
        return calls;
    }
    std::vector<std::string> InfoLines() const {
        std::vector<std::string> lines;
        for (const auto& m : host_.LogMessages())
            if (m.rfind("Setting", 0) == 0 || m.rfind("Changed", 0) == 0 || m.rfind("Switching", 0) == 0 ||
                m.rfind("Renew", 0) == 0)
                lines.push_back(m);
        return lines;
    }

    PendingNetworkConfig pending_;
    std::unique_ptr<TesNic> management_;
    TesCtl::Network::DnsConfigImpl dns_;
    TesCtl::Network::RoutingInfoImpl routing_;
    RecordingFeedback feedback_;
};

TEST_F(ApplyChangesTest, StagesRunInOrderWithTheirLogLines) {
    Open();
    EditEverything();
    Ipv6Result off{false, false, false, pending_.StaticIpv6Networks(), {}, false};
    pending_.TakeIpv6(off);
    Apply();

    EXPECT_EQ(HostCalls(), (std::vector<std::string>{
                               "AddUplink kSwitch0 nicx1",
                               "SetTeamingPolicy kSwitch0 Management Network nicx0,nicx1 2",
                               "SetTeamingPolicy kSwitch0 Management Network nicx1,nicx0 2",
                               "SetMacAddress tes0 00:50:56:aa:00:01",
                               "SetVlanId kSwitch0 Management Network 5",
                               "SetTesIpv6Enabled false",
                               "SetIpConfig tes0 192.0.2.20/255.255.255.0 ipv6-static dns-manual",
                               "SetTesselDefaultGateway 192.0.2.254",
                               "Disable tes0",
                               "Enable tes0",
                               "SetFqdn host02.corp.test ",
                               "RemoveNameServers",
                               "AddNameServer 192.0.2.60",
                               "AddNameServer 2001:db8::53",
                               "SetSearchDomainsString corp.test",
                               "AddSearchDomain a.test",
                               "AddSearchDomain b.test",
                               "AddSearchDomain c.test",
                               "SaveDnsConfig",
                           }));
    EXPECT_EQ(InfoLines(), (std::vector<std::string>{
                               "Setting adapters to nicx1 nicx0",
                               "Setting ipv4 configuration to 192.0.2.20 255.255.255.0 on tes0",
                               "Setting default gateway to 192.0.2.254",
                               "Changed vlan, restarting management interface",
                               "Setting hostname to host02.corp.test",
                               "Setting nameservers to 192.0.2.60 2001:db8::53",
                               "Setting suffixes to a.test,,b.test  c.test",
                           }));
    EXPECT_EQ(feedback_.events, (std::vector<std::string>{"redraw", "restart host", "refresh"}));

    const Json dns = host_.State()["dns"];
    EXPECT_EQ(dns["search"], Json::parse(R"(["corp.test", "a.test", "b.test", "c.test"])"));
    EXPECT_EQ(dns["hostname"], "host02");

    // A reopened window sees what was applied, the uplinks in the order chosen.
    Open();
    EXPECT_EQ(pending_.adapters, (std::vector<std::string>{"nicx1", "nicx0"}));
    EXPECT_EQ(pending_.vlanId, 5);
    EXPECT_EQ(pending_.running.GetIpv4Address(), Ipv4Address("192.0.2.20"));
    EXPECT_EQ(DnsServerText(pending_.alternateDns), "2001:db8::53");
    EXPECT_EQ(pending_.suffixes, "corp.test, a.test, b.test, c.test");
    EXPECT_TRUE(pending_.ipv6Enabled) << "the kernel keeps IPv6 until the host restarts";
}

// However many changes a stage makes, it reads host.json at most once: each read is counted for the stage of
// the host call before it (reads before the first call belong to the first stage).
TEST_F(ApplyChangesTest, EachStageReadsTheStateAtMostOnce) {
    Open();
    EditEverything();
    // An uplink removed, one taken over from the distributed switch, one added, a new teaming order.
    pending_.TakeAdapters({{"nicx1", "nicx2"}, 2});
    pending_.TakeIpv6({true, false, false, pending_.StaticIpv6Networks(), Ipv6Address("2001:db8::1"), false});
    StateReadWatch watch(host_);
    Apply();

    const std::map<std::string, std::string> stageOf = {
        {"RemoveUplink", "uplinks"},
        {"RemoveDkSwitchUplink", "uplinks"},
        {"AddUplink", "uplinks"},
        {"SetTeamingPolicy", "uplinks"},
        {"SetMacAddress", "uplinks"},
        {"SetVlanId", "vlan"},
        {"SetTesIpv6Enabled", "ipv6"},
        {"SetIpConfig", "configuration"},
        {"SetTesselDefaultGateway", "gateway"},
        {"SetIpv6TesselDefaultGateway", "ipv6 gateway"},
        {"Disable", "restart"},
        {"Enable", "restart"},
        {"SetFqdn", "dns"},
        {"RemoveNameServers", "dns"},
        {"AddNameServer", "dns"},
        {"SetSearchDomainsString", "suffixes"},
        {"AddSearchDomain", "suffixes"},
        {"SaveDnsConfig", "suffixes"},
    };
    const auto calls = host_.ToolCalls();
    std::map<std::string, int> reads;
    std::string stage = "uplinks";
    size_t call = 0;
    for (StateReadWatch::Event event : watch.Events()) {
        if (event == StateReadWatch::Event::Call)
            stage = stageOf.at(calls.at(call++).at(1));
        else
            ++reads[stage];
    }
    EXPECT_EQ(call, calls.size());
    for (const auto& [name, count] : reads)
        EXPECT_LE(count, 1) << name;
    // nicx2 was taken over from the distributed switch, nicx0 removed once.
    EXPECT_EQ(std::ranges::count(HostCalls(), std::string("RemoveUplink kSwitch0 nicx0")), 1);
    EXPECT_EQ(std::ranges::count(HostCalls(), std::string("RemoveDkSwitchUplink kDS-1 nicx2")), 1);
    const Json state = host_.State();
    EXPECT_EQ(state["distributedSwitches"][0]["uplinks"], Json::array());
    EXPECT_EQ(state["standardSwitches"][0]["uplinks"], Json::parse(R"(["nicx1", "nicx2"])"));
}

TEST_F(ApplyChangesTest, AFailingStageIsReportedAndTheRestStillApplies) {
    struct Case {
        const char* failing;
        const char* message; // shown and logged; "" for failures that are only logged
        const char* logged;
    } cases[] = {
        {"hostctl SetMacAddress", "Setting mac address of nicx failed: simulated failure", ""},
        {"hostctl SetTesIpv6Enabled", "Setting ipv6 configuration failed: simulated failure", ""},
        {"hostctl SetIpConfig", "Setting ip/ipv6 configuration failed: simulated failure", ""},
        {"hostctl SetTesselDefaultGateway", "Setting default gateway failed: simulated failure", ""},
        {"hostctl SetIpv6TesselDefaultGateway", "Setting default ipv6 gateway failed: simulated failure", ""},
        {"hostctl Disable", "Operation on the management network interface failed. simulated failure", ""},
        {"hostctl SetFqdn", "Setting DNS failed: simulated failure", ""},
        {"hostctl SaveDnsConfig", "Setting DNS failed: simulated failure", ""},
        {"hostctl AddUplink", "", "Adding uplink nicx1 failed: simulated failure"},
        {"hostctl SetVlanId", "", "Setting VlanID failed: simulated failure"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.failing);
        SetUp();
        host_.Write("/var/log/simhost-calls.log", "");
        host_.Write("/var/log/syslog.log", "");
        host_.ChangeState([&](Json& s) { s["simulation"]["failing"] = {c.failing}; });
        feedback_.events.clear();
        Open();
        EditEverything();
        Ipv6Result gateway{true, false, false, pending_.StaticIpv6Networks(), Ipv6Address("2001:db8::1"),
                           false};
        pending_.TakeIpv6(gateway);
        Apply();

        const std::string failing = c.failing;
        const auto errors = std::ranges::count_if(
            feedback_.events, [](const std::string& e) { return e.rfind("error: ", 0) == 0; });
        EXPECT_EQ(errors, *c.message ? 1 : 0);
        if (*c.message) {
            EXPECT_NE(std::ranges::find(feedback_.events, "error: " + std::string(c.message)),
                      feedback_.events.end());
            EXPECT_TRUE(host_.Logged(c.message));
        }
        if (*c.logged) {
            EXPECT_TRUE(host_.Logged(c.logged));
        }
        EXPECT_EQ(feedback_.events.back(), "refresh");
        // The configuration was redrawn only when it was written.
        EXPECT_EQ(std::ranges::count(feedback_.events, "redraw"), failing == "hostctl SetIpConfig" ? 0 : 1);

        const Json state = host_.State();
        // The last stage ran unless it was the failing one; earlier stages were not undone.
        EXPECT_EQ(HostCalls().back(), "SaveDnsConfig");
        EXPECT_EQ(state["dns"]["search"].size(), failing == "hostctl SaveDnsConfig" ? 1u : 4u);
        EXPECT_EQ(state["tesnics"][0]["stored"]["address"],
                  failing == "hostctl SetIpConfig" ? "192.0.2.10" : "192.0.2.20");
        EXPECT_EQ(state["routes"]["ipv6Gateway"],
                  failing == "hostctl SetIpv6TesselDefaultGateway" ? "" : "2001:db8::1");
        // A VLAN that was not set needs no restart; a failed take-down stops the restart.
        const bool restarted = failing != "hostctl SetVlanId" && failing != "hostctl Disable";
        EXPECT_EQ(std::ranges::count(HostCalls(), std::string("Enable tes0")), restarted ? 1 : 0);
    }
}

// The interface operations after the addresses: a lease renewal (DHCP kept while the uplinks change) and the
// restart after a VLAN change. A failure is shown with the interface prefix, what was done stays done, and
// the resolver stages still run.
TEST_F(ApplyChangesTest, AFailedRenewalOrInterfaceRestartIsShownAndTheResolverStillApplies) {
    const std::string message = "Operation on the management network interface failed. simulated failure";
    for (const char* failing : {"hostctl RenewDhcpLease", "hostctl Enable"}) {
        SCOPED_TRACE(failing);
        const bool renewal = failing == std::string("hostctl RenewDhcpLease");
        SetUp();
        host_.Write("/var/log/simhost-calls.log", "");
        host_.ChangeState([&](Json& s) {
            s["simulation"]["failing"] = {failing};
            for (const char* config : {"stored", "running"})
                s["tesnics"][0][config]["dhcp"] = renewal;
        });
        feedback_.events.clear();
        Open();
        if (renewal)
            pending_.TakeAdapters({{"nicx1", "nicx0"}, 2});
        else
            pending_.TakeVlan(5);
        pending_.TakeSuffixes("a.test");
        Apply();

        EXPECT_EQ(feedback_.events, (std::vector<std::string>{"error: " + message, "refresh"}));
        EXPECT_TRUE(host_.Logged(message));
        EXPECT_TRUE(host_.Logged(renewal ? "Renew DHCP lease on tes0"
                                         : "Changed vlan, restarting management interface"));
        EXPECT_EQ(HostCalls().back(), "SaveDnsConfig");
        const Json state = host_.State();
        EXPECT_EQ(state["dns"]["search"].back(), "a.test");
        if (renewal) {
            EXPECT_EQ(state["standardSwitches"][0]["uplinks"], Json::parse(R"(["nicx0", "nicx1"])"));
        } else {
            EXPECT_EQ(state["standardSwitches"][0]["portGroups"][0]["vlan"], 5);
            EXPECT_FALSE(state["tesnics"][0]["enabled"]) << "the taken-down interface is not brought back";
        }
    }
}

TEST_F(ApplyChangesTest, DistributedSwitchSkipsUplinksAndVlanAndDhcpTakesALease) {
    host_.ChangeState([](Json& s) {
        s["tesnics"][0]["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", "10"}};
    });
    Open();
    EXPECT_TRUE(pending_.onDistributedSwitch);
    IpConfig dhcp = pending_.running;
    dhcp.SetUseDhcp(true);
    pending_.TakeIpv4(dhcp);
    pending_.TakeDns({true, std::nullopt, std::nullopt, ""});
    Apply();

    EXPECT_EQ(HostCalls(), (std::vector<std::string>{
                               "SetTesIpv6Enabled true",
                               "SetIpConfig tes0 dhcp ipv6-static dns-dhcp",
                               "SetDhcpBound tes0 true",
                               "SetSearchDomainsString example.test",
                               "AddSearchDomain example.test",
                               "SaveDnsConfig",
                           }));
    EXPECT_EQ(InfoLines(),
              (std::vector<std::string>{"Switching to DHCP on tes0", "Setting ipv6 configuration",
                                        "Setting suffixes to example.test"}));
    EXPECT_EQ(feedback_.events, (std::vector<std::string>{"refresh"}));
    EXPECT_EQ(host_.State()["tesnics"][0]["running"]["address"], "192.0.2.77");
}
