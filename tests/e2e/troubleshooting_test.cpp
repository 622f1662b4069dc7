// Troubleshooting options from the System Customization menu: the shell and SSH toggles, the shell and
// console time-outs, the restart of the management agents; and the reset of the system configuration.
#include "Flows.h"
#include "harness/ProcStats.h"
#include "harness/Screenshot.h"

#include <algorithm>
#include <filesystem>
#include <thread>

namespace e2e {
namespace {

constexpr const char* kTroubleshootingPane = "To view various troubleshooting";
constexpr const char* kResetPane = "All system parameters will be reverted";

// The calls that change something: the status reads with which the window refreshes its lines left out.
Calls Actions(const Calls& calls) {
    Calls actions;
    for (const auto& call : calls)
        if (call.back() != "status")
            actions.push_back(call);
    return actions;
}

bool Called(const Calls& calls, const std::vector<std::string>& call) {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

// From the menu: the troubleshooting window open and settled on its first entry.
void EnterTroubleshooting(Console& c) {
    MoveTo(c, kTroubleshootingPane);
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Change current state of the", 100ms)) << c->View().Text();
}

void OpenTroubleshooting(Console& c) {
    LogInAsRoot(c);
    EnterTroubleshooting(c);
}

// Moves down the troubleshooting list to the entry whose pane shows `paneText`, settled for typing.
void Select(Console& c, const std::string& paneText) {
    MoveTo(c, paneText);
    ASSERT_TRUE(c->WaitQuiet(50ms));
}

nlohmann::json Option(const TestHost& host, const std::string& path) {
    return host.State()["advancedOptions"][path]["value"];
}

// 80x25 is a Linux console's size: there the menu names itself and every task name shows whole, in the menu
// and in the troubleshooting window.
TEST(Troubleshooting, WholeTitlesAtEightyByTwentyFiveAndBothServicesToggled) {
    Console c({.rows = 25, .cols = 80});
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    for (const char* label :
         {"System Customization", "Configure Management Network", "Restart Management Network",
          "Reset System Configuration", "Configure Lockdown Mode"})
        EXPECT_TRUE(c->View().Contains(label)) << label << "\n" << c->View().Text();
    EnterTroubleshooting(c);
    for (const char* text :
         {"Troubleshooting Mode Options", "Enable Corla Shell", "Enable SSH",
          "Modify Corla Shell and SSH timeouts", "Modify TARN idle timeout", "Restart Management Agents",
          "Corla Shell is Disabled", "<Up/Down> Select", "<Enter> Change"})
        EXPECT_TRUE(c->View().Contains(text)) << text << "\n" << c->View().Text();
    SaveScreenshot(c->View(), "troubleshooting");

    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Corla Shell is Enabled", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Disable Corla Shell"));
    // The kelp-cmd calls, with the fallback to the service account, are the unit tests' (KelpCmd,
    // Troubleshooting).
    EXPECT_EQ(host.State()["services"]["CorlaShell"], (nlohmann::json{{"running", true}, {"enabled", true}}));
    EXPECT_EQ(host.SyslogMatching("User root enabled Corla Shell").size(), 1u);

    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Corla Shell is Disabled", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Enable Corla Shell"));
    EXPECT_EQ(host.State()["services"]["CorlaShell"],
              (nlohmann::json{{"running", false}, {"enabled", false}}));
    EXPECT_EQ(host.SyslogMatching("User root disabled Corla Shell").size(), 1u);

    // SSH: its title and state line follow too (its fallbacks and firewall are the unit tests').
    Select(c, "Change current state of SSH");
    EXPECT_TRUE(c->View().Contains("SSH is Disabled"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("SSH is Enabled", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Disable SSH"));
    EXPECT_EQ(host.State()["services"]["SSH"], (nlohmann::json{{"running", true}, {"enabled", true}}));
}

// Which commands a time-out runs, and which services it restarts, are the unit tests'; here the dialog.
TEST(Troubleshooting, ShellTimeoutsRefuse1441AndShowWhatIsStoredThenTheConsoleTimeoutStoresSeconds) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    OpenTroubleshooting(c);
    Select(c, "Modify the number of minutes that can elapse");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Availability timeout", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("1440 minutes.")) << "the whole description";
    SaveScreenshot(c->View(), "shell-timeouts");

    // 1440 for the availability, 1441 for the idle time-out: the first is written, the second refused.
    c->Type("1440x");
    c->Key("Down");
    c->Type("1441");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Invalid timeout value", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Timeout value must be between 0 (disabled) and 1440 minutes"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Invalid timeout value")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled("Modify the number of minutes", 50ms)) << c->View().Text();
    EXPECT_FALSE(c->View().Contains("Availability timeout"));
    EXPECT_EQ(Option(host, "/UserVars/CorlaShellTimeOut"), 86400);
    EXPECT_EQ(Option(host, "/UserVars/CorlaShellInteractiveTimeOut"), 0);

    // Again: the stored value shows; the idle time-out typed over its shown 0.
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Availability timeout", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("1440"));
    c->Key("Down");
    c->Type("5");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Availability timeout")) << c->View().Text();
    ASSERT_TRUE(WaitForSyslog(c, "Modified shell interactive timeout to 5 minutes"));
    EXPECT_EQ(Option(host, "/UserVars/CorlaShellInteractiveTimeOut"), 300);

    // The console's own time-out (its refusal of 1441 is the shell's above and a unit table): typed over
    // the shown value; the input takes five characters, so the last "9" is dropped.
    Select(c, "Modify the number of idle minutes");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Set idle timeout for TARN access", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("1440 minutes.")) << "the whole description";
    c->Type("014409");
    c->Key("Enter");
    ASSERT_TRUE(WaitForSyslog(c, "Modified Tarn timeout to 1440 minutes"));
    EXPECT_EQ(Option(host, "/UserVars/TarnTimeOut"), 86400);
}

TEST(Troubleshooting, RestartAgentsEscRunsNothingF11WithTheLiveCore) {
    TestHost host("default");
    host.ChangeState([](nlohmann::json& s) { s["simulation"]["failing"] = {"svcctl.sh stop"}; });
    Console c(host, Roomy());
    OpenTroubleshooting(c);
    Select(c, "The management agents are the programs");
    EXPECT_TRUE(c->View().Contains("<Enter> Restart"));

    // Esc asks nothing of the host.
    size_t before = host.ToolCalls().size();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Restart management agents now?", 50ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("[ ] Collect extra troubleshooting information"));
    c->Key("Enter"); // not the confirming key
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Restart management agents now?")) << c->View().Text();
    EXPECT_TRUE(Actions(CallsSince(host, before)).empty());
    EXPECT_TRUE(Events(host).empty());

    // The calls, the event and the run without the live core are unit tests (AgentRestart): the progress
    // texts below are the restart's own, with the live core collected.
    ASSERT_TRUE(c->WaitForTextSettled("The management agents are the programs", 50ms));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Restart management agents now?", 50ms)) << c->View().Text();
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] Collect extra troubleshooting information")) << c->View().Text();
    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextSettled("Starting management agents. Done.", 50ms)) << c->View().Text();
    // The stop fails on this host, and still reads "Done.".
    EXPECT_TRUE(c->View().Contains("Stopping management agents. Done."));
    EXPECT_TRUE(c->View().Contains("Collecting host agent live core information. Done."));
    SaveScreenshot(c->View(), "restart-agents");
}

void OpenReset(Console& c) {
    MoveTo(c, kResetPane);
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Reset System Configuration now?", 50ms)) << c->View().Text();
}

TEST(ResetSystem, CancelledRunsNothingFailedReturnsToTheMenuWorkingRestartsAfterEnter) {
    TestHost host("default");
    host.ChangeState([](nlohmann::json& s) {
        s["simulation"]["failing"] = {"resetCfg.py"};
        s["services"]["SSH"]["running"] = true;
    });
    Console c(host, Roomy());
    LogInAsRoot(c);
    const std::vector<std::string> reset = {"/sbin/resetCfg.py", "--reset-only"};
    size_t before = host.ToolCalls().size();
    OpenReset(c);
    c->Key("Enter"); // not the confirming key
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Reset System Configuration now?")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled(kResetPane, 50ms)) << c->View().Text();
    EXPECT_FALSE(Called(CallsSince(host, before), reset));
    EXPECT_TRUE(Events(host).empty());

    // The reset fails: back in the menu, no restart.
    OpenReset(c);
    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextGone("Reset System Configuration now?")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled(kResetPane, 50ms)) << c->View().Text();
    EXPECT_TRUE(Called(CallsSince(host, before), reset));
    EXPECT_EQ(host.State()["power"]["state"], "on");
    EXPECT_EQ(host.State()["services"]["SSH"]["running"], true);
    EXPECT_EQ(Events(host),
              std::vector<std::string>{"@&!*@*@(obe.user.tarn.restore.factory.defaults)Restoring "
                                       "factory defaults"});

    // It works: text 181, and the host restarts only after Enter. Without the pid file the restart cannot
    // end the console, which shows that it then waits without spinning.
    host.ChangeState([](nlohmann::json& s) { s["simulation"]["failing"] = nlohmann::json::array(); });
    std::filesystem::remove(host.Path("var/run/tarn.pid"));
    OpenReset(c);
    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextSettled("Default settings are restored. Press <Enter> to", 50ms))
        << c->View().Text();
    EXPECT_TRUE(c->View().Contains("<Enter> Restart Host"));
    EXPECT_FALSE(c->View().Contains("Reset System Configuration now?"));
    EXPECT_EQ(host.State()["services"]["SSH"]["running"], false);
    EXPECT_EQ(host.State()["power"]["state"], "on");
    SaveScreenshot(c->View(), "reset-done");

    c->Key("Enter");
    ASSERT_TRUE(c->WaitFor([&] { return host.State()["power"]["state"] == "rebooting"; }))
        << c->View().Text();
    auto start = ReadProcStats(c->Pid());
    ASSERT_TRUE(start);
    c->WaitQuiet(1s, 2s);
    auto later = ReadProcStats(c->Pid());
    ASSERT_TRUE(later);
    EXPECT_LT(later->cpuSeconds - start->cpuSeconds, 0.1);
    EXPECT_TRUE(c->Running());
    c->Signal(SIGTERM);
    auto status = c->WaitExit(5s);
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
}

} // namespace
} // namespace e2e
