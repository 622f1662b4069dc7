// Network Restore Options end to end: factory restore declined, failing and succeeding; the move off a
// distributed switch; switch and port group creation refusals; the kDS host local port and the tesnic
// migration; the screen at 80 columns.
#include "Flows.h"

namespace e2e {
namespace {

constexpr const char* kRestorePane = "To view various network restore options";

void OpenRestoreOptions(Console& c) {
    LogInAsRoot(c);
    MoveTo(c, kRestorePane);
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Create a new standard virtual")) << c->View().Text();
}

// Moves up in the restore screen until the pane shows `text` (MoveTo moves down).
void SelectAbove(Console& c, const std::string& text) {
    for (int i = 0; i < 6 && !c->View().Contains(text); ++i) {
        c->Key("Up");
        c->WaitQuiet(60ms);
    }
    ASSERT_TRUE(c->View().Contains(text)) << c->View().Text();
}

void StartFactoryRestore(Console& c) {
    OpenRestoreOptions(c);
    MoveTo(c, "Restoring the network settings will revert");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Are you sure you want to reset")) << c->View().Text();
    c->Key("F11");
}

TEST(Restore, FactoryRestoreDeclinedAtTheVmWarningThenAFailingPowerOffKeepsTheNetwork) {
    Console c(Roomy("running-vms"));
    const TestHost& host = c.Host();
    const auto before = host.State();
    const size_t events = Events(host).size();
    StartFactoryRestore(c);
    ASSERT_TRUE(c->WaitForTextSettled("Host has VMs running.")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextSettled("Restoring the network settings will revert")) << c->View().Text();
    auto after = host.State();
    for (const char* key : {"standardSwitches", "tesnics", "vms"})
        EXPECT_EQ(after[key], before[key]) << key;
    EXPECT_FALSE(after.contains("netDumper"));
    EXPECT_EQ(after["services"]["stewd"]["refreshes"], 0);
    EXPECT_EQ(Events(host).size(), events);

    host.ChangeState([](nlohmann::json& s) { s["simulation"]["failing"] = {"haltGuests"}; });
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Are you sure you want to reset")) << c->View().Text();
    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextSettled("Host has VMs running.")) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Powering Off VMs. Failed.")) << c->View().Text();
    EXPECT_FALSE(c->View().Contains("Auto-configuring network."));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Restoring the network settings will revert")) << c->View().Text();
    after = host.State();
    EXPECT_EQ(after["tesnics"], before["tesnics"]);
    EXPECT_EQ(after["standardSwitches"], before["standardSwitches"]);
    EXPECT_EQ(after["netDumper"]["enabled"], false) << "switched off before the power-off was judged";
    EXPECT_EQ(host.SyslogMatching("Error powering off VMs").size(), 1u);
    EXPECT_EQ(Events(host).back(),
              "@&!*@*@(obe.user.tarn.factory.network.restored)Restoring factory network settings");
}

TEST(Restore, SuccessfulRestoreShowsTheDhcpAddressOnTheWelcomeScreen) {
    Console c(Roomy());
    StartFactoryRestore(c);
    ASSERT_TRUE(c->WaitForTextSettled("Auto-configuring network. Done.")) << c->View().Text();
    c->Key("Enter");
    // The pane's text shows beside the progress dialog: wait for the dialog to go, or the Esc below can
    // arrive while the window redraws and be discarded.
    ASSERT_TRUE(c->WaitForTextGone("Auto-configuring network.")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled("Restoring the network settings will revert")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextSettled(kRestorePane)) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForText("192.0.2.77")) << c->View().Text();
    EXPECT_EQ(c.Host().State()["tesnics"][0]["running"]["dhcp"], true);
}

TEST(Restore, RestoreStandardSwitchOnDvsCreatesTheNextFreeSwitchAndGreysItself) {
    Console c(Roomy("dvs"));
    const TestHost& host = c.Host();
    host.ChangeState([](nlohmann::json& s) {
        s["standardSwitches"].push_back({{"name", "kSwitch1"},
                                         {"ports", 128},
                                         {"uplinks", nlohmann::json::array()},
                                         {"portGroups", nlohmann::json::array()}});
    });
    OpenRestoreOptions(c);
    MoveTo(c, "Try Restore kDS option");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Move the management network onto a standard switch?"))
        << c->View().Text();
    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextSettled("Reconfigure properties of misconfigured kDS")) << c->View().Text();
    // Which switch it creates and what moves is the restore actions' unit test.
    EXPECT_EQ(host.State()["standardSwitches"].size(), 3u);
    c->Key("Up"); // the restore entry is greyed now and skipped
    EXPECT_TRUE(c->WaitForText("Restoring the network settings will revert")) << c->View().Text();
}

TEST(Restore, AtEightyColumnsASwitchOnAnUplinkInUseAnsweredNoAndAnExistingPortGroupCreateNothing) {
    Console c({.scenario = "default", .rows = 25, .cols = 80});
    const TestHost& host = c.Host();
    const auto before = host.State()["standardSwitches"];
    OpenRestoreOptions(c);
    // At 80 columns: the heading, the entry names and the footer whole. The management network is on a
    // standard switch, so the cursor cannot reach the two entries below the factory restore.
    EXPECT_EQ(c->View().Find("Network Restore Options")->row, 0) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("<Esc> Exit")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Migrate Tessel NIC to Standard Switch")) << "the list shows whole names";
    MoveTo(c, "Migrate a tesnic");
    // Its title is longer than the summary's width: the end wraps onto the row below, the text follows.
    EXPECT_NE(c->View().Row(2).find("Switch"), std::string::npos) << c->View().Text();
    MoveTo(c, "Restoring the network settings");
    c->Key("Down");
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_TRUE(c->View().Contains("Restoring the network settings")) << c->View().Text();
    SelectAbove(c, "Create a new port group");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Portgroup Name:")) << c->View().Text();
    c->Type("Management Network");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Operation Failed")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Please check the syslog for more information."));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Portgroup Name:")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Portgroup Name:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(60ms));

    // The first entry: a new switch on the first NIC, which kSwitch0 uses.
    SelectAbove(c, "Create a new standard virtual");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("kSwitch Name:")) << c->View().Text();
    c->Type("kSwitch7");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("\"kSwitch0\".")) << c->View().Text();
    c->Type("N");
    ASSERT_TRUE(c->WaitForTextSettled("Operation Cancelled")) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("kSwitch Name:")) << c->View().Text();
    EXPECT_EQ(host.State()["standardSwitches"], before);
}

TEST(Restore, RestoreKdsThenMigrateTheManagementTesnicOnDvs) {
    Console c(Roomy("dvs"));
    const TestHost& host = c.Host();
    OpenRestoreOptions(c);
    MoveTo(c, "Reconfigure properties of misconfigured kDS");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("VLAN ID:")) << c->View().Text();
    c->Type("20");
    c->Key("Down");
    c->Key("Down");
    c->Type(" "); // nicx3
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Operation Succeeded")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("hlp-1")) << c->View().Text();
    auto state = host.State();
    EXPECT_EQ(state["tesnics"][0]["connection"]["port"], "hlp-1");
    const auto& port = state["distributedSwitches"][0]["ports"].back();
    EXPECT_EQ(port["vlan"], 20);
    EXPECT_EQ(port["uplinks"], nlohmann::json::array({"nicx3"}));
    EXPECT_EQ(state["services"]["stewd"]["refreshes"], 1);
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Operation Succeeded")) << c->View().Text();

    SelectAbove(c, "Migrate a tesnic to the standard virtual switch");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Tessel NIC:")) << c->View().Text();
    c->Key("Enter"); // tes0 and the only port group, VM Network, are chosen
    ASSERT_TRUE(c->WaitForTextSettled("Migrated tes0 to port group VM Network.")) << c->View().Text();
    state = host.State();
    EXPECT_EQ(state["tesnics"][0]["connection"]["portGroup"], "VM Network");
    EXPECT_TRUE(state["services"]["bryn-opsagent"]["running"].get<bool>());
    EXPECT_EQ(state["services"]["stewd"]["refreshes"], 2);
}

} // namespace
} // namespace e2e
