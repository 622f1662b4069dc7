// The restore sequences against a small simulated host: factory restore (its refusals are tried end to
// end), the move of management off a distributed switch, the kDS host local port, the tesnic
// migration, switch creation commands, and the management network restart. The host's kelp-cmd and
// agent tools are scripts that note their calls in /calls.
#include "../network/NetworkHost.h"
#include "RecordingProgress.h"

#include "network/NetworkAccess.h"
#include "network/RestartManagementNetwork.h"
#include "restore/FactoryRestore.h"
#include "restore/KdsRestore.h"
#include "restore/MigrateTesnic.h"
#include "restore/StandardSwitchRestore.h"
#include "restore/SwitchCreation.h"
#include "ui/en_US_Factory.h"

using namespace Tarn;

class RestoreActionsTest : public NetworkHostTest {
protected:
    void WriteHost(const std::function<void(Json&)>& change = {}) {
        Json host = BaseHost();
        host["vms"] = Json::array({{{"name", "vm01"}, {"running", true}}});
        if (change)
            change(host);
        host_.WriteState(host);
    }
    std::string Events() { return host_.Read("/var/log/obed.log"); }
    // The management service refresh, as the host's kelp-cmd sees it.
    void ScriptKelpCmd() { host_.Script("/bin/kelp-cmd", "echo \"kelp $3\" >> " + host_.Path("/calls")); }
    std::vector<std::string> Calls() { return host_.Lines("/calls"); }
    // A second tesnic like the management one, on a port of kDS-1.
    static Json TesnicOnKds(const Json& host, const std::string& name, const std::string& port) {
        Json nic = host["tesnics"][0];
        nic["name"] = name;
        nic["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", port}};
        return nic;
    }

    en_US_Factory texts_{[] { return Platform::SystemVersion{}; }};
    RecordingProgress progress_;
};

TEST_F(RestoreActionsTest, FactoryRestoreBuildsDefaultNetworkOnDhcp) {
    WriteHost();
    ScriptKelpCmd();
    host_.Script("/sbin/haltGuests", "[ $# -eq 0 ] || exit 2");
    EXPECT_TRUE(RunFactoryRestore(texts_, progress_, [] { return true; }));
    EXPECT_EQ(Calls(), (std::vector<std::string>{"kelp internalsvc/refresh"}));
    EXPECT_EQ(progress_.lines,
              (std::vector<std::string>{"Powering Off VMs. Done.", "Auto-configuring network. Done."}));
    Json s = host_.State();
    ASSERT_EQ(s["standardSwitches"].size(), 1u);
    EXPECT_EQ(s["standardSwitches"][0]["uplinks"], Json::array({"nicx0"}));
    EXPECT_TRUE(s["distributedSwitches"].empty());
    EXPECT_EQ(s["tesnics"][0]["running"]["address"], "192.0.2.77");
    EXPECT_TRUE(host_.Logged("Clearing Network Config"));
    EXPECT_TRUE(host_.Logged("Auto-Configuring Network"));
}

TEST_F(RestoreActionsTest, StandardSwitchRestoreTakesFreeNamesAndMovesUplinks) {
    WriteHost([](Json& host) {
        host["tesnics"][0]["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", "10"}};
        host["distributedSwitches"][0]["uplinks"] = {"nicx2", "nicx3"};
        host["standardSwitches"].push_back(
            {{"name", "kSwitch1"},
             {"ports", 128},
             {"uplinks", Json::array()},
             {"portGroups", {{{"name", "Management Network1"}, {"vlan", 0}}}}});
        host["tesnics"].push_back(TesnicOnKds(host, "tes1", "11"));
    });
    ScriptKelpCmd();
    MoveManagementToStandardSwitch();
    Json s = host_.State();
    ASSERT_EQ(s["standardSwitches"].size(), 3u);
    const Json& created = s["standardSwitches"][2];
    EXPECT_EQ(created["name"], "kSwitch2");
    EXPECT_EQ(created["uplinks"], Json::array({"nicx2", "nicx3"}));
    EXPECT_EQ(created["portGroups"][0]["name"], "Management Network2");
    EXPECT_EQ(created["portGroups"][0]["teaming"]["uplinkOrder"], Json::array({"nicx2", "nicx3"}));
    EXPECT_EQ(created["portGroups"][0]["teaming"]["maxActive"], 2);
    EXPECT_TRUE(s["distributedSwitches"][0]["uplinks"].empty());
    EXPECT_EQ(s["tesnics"][0]["connection"]["portGroup"], "Management Network2");
    EXPECT_TRUE(s["tesnics"][0]["enabled"].get<bool>());
    EXPECT_FALSE(s["tesnics"][1]["enabled"].get<bool>()) << "only the management interface stays up";
    EXPECT_EQ(Calls(), (std::vector<std::string>{"kelp internalsvc/refresh"}));
    EXPECT_EQ(host_.LogMessages().back(),
              "Enabling safe mode networking by moving all uplinks to a new management kSwitch");
}

TEST_F(RestoreActionsTest, SwitchCreationRunsEveryCommand) {
    host_.Script("/bin/corlacli",
                 "echo \"$*\" >> " + host_.Path("/calls") + "\n[ $5 = remove ] && exit 1\nexit 0");
    EXPECT_FALSE(CreateStandardSwitchWithUplink("kSwitch5", "nicx1", "kSwitch0"));
    EXPECT_EQ(host_.Lines("/calls"), (std::vector<std::string>{
                                         "network kswitch standard uplink remove -u nicx1 -v kSwitch0",
                                         "network kswitch standard add -v kSwitch5",
                                         "network kswitch standard uplink add -u nicx1 -v kSwitch5",
                                     }));
    EXPECT_TRUE(CreateStandardSwitchWithUplink("kSwitch6", "nicx2", ""));
}

TEST_F(RestoreActionsTest, RestartRenewsLeaseAndReports) {
    struct Case {
        bool dhcp;
        bool leaseAvailable;
        std::string address;
    } cases[] = {{false, true, "192.0.2.10"}, {true, true, "192.0.2.77"}, {true, false, "0.0.0.0"}};
    for (const Case& c : cases) {
        WriteHost([&](Json& host) {
            host["tesnics"][0]["stored"]["dhcp"] = host["tesnics"][0]["running"]["dhcp"] = c.dhcp;
            host["tesnics"][0]["running"]["address"] = "192.0.2.10";
            host["network"]["dhcp"]["available"] = c.leaseAvailable;
            host["tesnics"][0]["stored"]["ipv6"].push_back(
                {{"address", "2001:db8::10"}, {"prefix", 64}, {"type", 0}, {"scope", "global"}});
        });
        RecordingProgress progress;
        auto management = FindManagementInterface();
        ASSERT_NE(management, nullptr);
        EXPECT_TRUE(RestartManagementNetwork(*management, texts_, progress));
        ASSERT_EQ(progress.lines.size(), 3u);
        EXPECT_EQ(progress.lines[0], "Stopping management network. Done.");
        EXPECT_EQ(progress.lines[1], "Starting management network. Done.");
        EXPECT_EQ(progress.lines[2],
                  "\n   IP address is 2001:db8::10/64\nIP address is " + c.address + "\n\nDone.");
        EXPECT_TRUE(host_.State()["tesnics"][0]["enabled"].get<bool>());
    }
    EXPECT_TRUE(host_.Logged("Restarting tes0"));
    EXPECT_NE(Events().find("(obe.user.tarn.network.restart)Restarting tes0"), std::string::npos);
}

TEST_F(RestoreActionsTest, KdsRestoreAddsHostLocalPortAndMovesManagement) {
    WriteHost([](Json& host) {
        host["tesnics"][0]["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", "10"}};
        host["distributedSwitches"][0]["uplinks"] = {"nicx2", "nicx3"};
        host["distributedSwitches"][0]["ports"] = {{{"key", "10"}, {"portGroup", "dvpg-mgmt"}, {"vlan", 5}},
                                                   {{"key", "hlp-1"}, {"portGroup", "dvpg-mgmt"}}};
    });
    ScriptKelpCmd();
    auto context = ReadKdsPortContext();
    ASSERT_TRUE(context);
    EXPECT_EQ(context->vlan, 5);
    EXPECT_FALSE(context->thirdParty);
    ASSERT_EQ(RestoreKdsPort(*context, 20, {"nicx3"}), "hlp-2");
    Json s = host_.State();
    const Json& port = s["distributedSwitches"][0]["ports"][2];
    EXPECT_EQ(port["key"], "hlp-2");
    EXPECT_EQ(port["portGroup"], "dvpg-mgmt") << "cloned from the current port";
    EXPECT_EQ(port["vlan"], 20);
    EXPECT_EQ(port["uplinks"], Json::array({"nicx3"}));
    EXPECT_EQ(s["tesnics"][0]["connection"]["port"], "hlp-2");
    EXPECT_EQ(Calls(), (std::vector<std::string>{"kelp internalsvc/refresh"}));

    // An uplink the switch does not have is refused by the host, and nothing moves.
    context = ReadKdsPortContext();
    ASSERT_TRUE(context);
    EXPECT_EQ(RestoreKdsPort(*context, 0, {"nicx0"}), "");
    EXPECT_EQ(Calls().size(), 1u) << "no refresh after a failure";
    EXPECT_EQ(host_.State()["tesnics"][0]["connection"]["port"], "hlp-2");
    EXPECT_TRUE(host_.LoggedPrefix("Restoring kDS failed: "));

    host_.ChangeState([](Json& s) { s["distributedSwitches"][0]["vendor"] = "Acme"; });
    context = ReadKdsPortContext();
    ASSERT_TRUE(context);
    EXPECT_TRUE(context->thirdParty);
    host_.ChangeState([](Json& s) {
        s["tesnics"][0]["connection"] = {{"type", 1}, {"portGroup", "Management Network"}};
    });
    EXPECT_FALSE(ReadKdsPortContext()) << "management on a standard switch";
}

TEST_F(RestoreActionsTest, MigrationConfiguresTheStoppedAgentAndAlwaysRestartsIt) {
    WriteHost([](Json& host) {
        host["standardSwitches"][0]["portGroups"].push_back({{"name", "VM Network"}, {"vlan", 0}});
        host["tesnics"].push_back(TesnicOnKds(host, "tes1", "11"));
    });
    ScriptKelpCmd();
    // The agent's configuration tool refuses to run under the agent, as the host's does.
    const std::string calls = " >> " + host_.Path("/calls") + "\n", running = host_.Path("/agent-running");
    host_.Write("/agent-running", "");
    host_.Script("/etc/init.d/bryn-opsagent", "echo \"agent $1\"" + calls + "case $1 in stop) rm -f " +
                                                  running + ";; start) touch " + running + ";; esac");
    host_.Script("/usr/lib64/orvane/bryn-opsagent/bin/bryncfg-kswitch",
                 "echo \"bryncfg $*\"" + calls + "[ ! -e " + running + " ]");

    const MigrationChoices choices = ReadMigrationChoices();
    EXPECT_EQ(choices.tesnics, (std::vector<std::string>{"tes0", "tes1"}));
    EXPECT_EQ(choices.portGroups, (std::vector<std::string>{"Management Network", "VM Network"}));

    EXPECT_EQ(MigrateTesnic("tes1", "VM Network"), "");
    EXPECT_EQ(host_.State()["tesnics"][1]["connection"], Json({{"type", 1}, {"portGroup", "VM Network"}}));
    EXPECT_EQ(Calls(), (std::vector<std::string>{"agent stop", "bryncfg -m -p VM Network -I tes1",
                                                 "agent start", "kelp internalsvc/refresh"}));
    EXPECT_TRUE(host_.Logged("Migrated tes1 to port group VM Network"));

    std::filesystem::remove(host_.Path("/calls"));
    EXPECT_NE(MigrateTesnic("tes9", "VM Network"), "") << "no such tesnic";
    EXPECT_EQ(Calls(), (std::vector<std::string>{"agent stop", "agent start"}))
        << "no refresh after a failure";
    EXPECT_TRUE(host_.LoggedPrefix("Migrating tes9 failed: "));
}
