// Service toggles, shell and console time-outs against the simulated host's real tools.
#include "SimHostFixture.h"

#include "core/EventLoop.h"
#include "core/Session.h"
#include "hostops/ServiceToggle.h"
#include "hostops/ShellTimeouts.h"
#include "hostops/TarnTimeout.h"

namespace {

using Strings = std::vector<std::string>;

class Troubleshooting : public SimHostFixture {
protected:
    void SetUp() override {
        SimHostFixture::SetUp();
        Tarn::SetLoggedInUser("root");
        // kelp-cmd acts as root, so each action is one call.
        Change([](Json& s) { s["simulation"]["kelpCmdUsers"] = {"root", "tarn"}; });
    }
    void TearDown() override {
        Tarn::SetLoggedInUser("");
        SimHostFixture::TearDown();
    }
    bool Running(const char* service) const { return State()["services"][service]["running"]; }
    bool Enabled(const char* service) const { return State()["services"][service]["enabled"]; }
    bool SshRuleset() const { return State()["firewall"]["rulesets"][0]["enabled"]; }
};

TEST_F(Troubleshooting, ShellToggledOnAndOffThroughKelpCmd) {
    EXPECT_FALSE(Tarn::ServiceEnabled(Tarn::Service::CorlaShell));
    Tarn::ToggleService(Tarn::Service::CorlaShell, true);
    EXPECT_TRUE(Running("CorlaShell"));
    EXPECT_TRUE(Enabled("CorlaShell"));
    EXPECT_TRUE(Tarn::ServiceEnabled(Tarn::Service::CorlaShell));
    Tarn::ToggleService(Tarn::Service::CorlaShell, false);
    EXPECT_FALSE(Running("CorlaShell"));
    EXPECT_FALSE(Enabled("CorlaShell"));
    EXPECT_EQ(Calls(), (Strings{"/etc/init.d/CorlaShell status", "kelp-cmd -U root hostsvc/start_corla_shell",
                                "kelp-cmd -U root hostsvc/enable_corla_shell",
                                "/etc/init.d/CorlaShell status", "kelp-cmd -U root hostsvc/stop_corla_shell",
                                "kelp-cmd -U root hostsvc/disable_corla_shell"}));
    EXPECT_TRUE(Logged("User root enabled Corla Shell"));
    EXPECT_TRUE(Logged("User root disabled Corla Shell"));
    EXPECT_FALSE(Logged("Unable to run kelp-cmd to start/stop Corla Shell"));
}

TEST_F(Troubleshooting, SshFallsBackToItsInitScriptAndKeepsTheFirewallInStep) {
    Change([](Json& s) {
        s["firewall"]["rulesets"][0]["enabled"] = false;
        s["simulation"]["failing"] = {"kelp-cmd hostsvc/start_ssh", "kelp-cmd hostsvc/enable_ssh"};
    });
    Tarn::ToggleService(Tarn::Service::SSH, true);
    EXPECT_EQ(Calls(), (Strings{"kelp-cmd -U root hostsvc/start_ssh", "/etc/init.d/SSH start",
                                "kelp-cmd -U root hostsvc/enable_ssh"}));
    EXPECT_TRUE(Running("SSH"));
    EXPECT_FALSE(Enabled("SSH")); // the enable step failed and has no fallback
    EXPECT_TRUE(SshRuleset());
    for (const char* line : {"Unable to run kelp-cmd to start/stop ssh",
                             "Unable to run kelp-cmd to enable/disable ssh", "User root enabled SSH"})
        EXPECT_TRUE(Logged(line)) << line;

    // Without the ruleset the toggle still goes on.
    Change([](Json& s) {
        s["firewall"]["rulesets"] = Json::array();
        s["simulation"]["failing"] = Json::array();
    });
    Tarn::ToggleService(Tarn::Service::SSH, false);
    EXPECT_FALSE(Running("SSH"));
    EXPECT_EQ(Calls(),
              (Strings{"kelp-cmd -U root hostsvc/stop_ssh", "kelp-cmd -U root hostsvc/disable_ssh"}));
    bool warned = false;
    for (const std::string& m : Messages())
        warned |= m.rfind("Failed to update firewall sshServer ruleset status: ", 0) == 0;
    EXPECT_TRUE(warned);
    EXPECT_TRUE(Logged("User root disabled SSH"));
}

TEST_F(Troubleshooting, ShellTimeoutsWrittenInSecondsThenRunningServicesRestarted) {
    Change([](Json& s) { s["services"]["SSH"]["running"] = true; });
    Tarn::ApplyShellTimeout(Tarn::kShellAvailabilityTimeout, 15);
    EXPECT_EQ(Calls(), (Strings{"corlacli system settings advanced set -o /UserVars/CorlaShellTimeOut -i 900",
                                "/etc/init.d/CorlaShell status", "/etc/init.d/SSH status",
                                "/etc/init.d/SSH restart"}));
    EXPECT_EQ(Tarn::ReadShellTimeoutMinutes(Tarn::kShellAvailabilityTimeout), 15);
    EXPECT_TRUE(Logged("Modified Shell timeout to 15 minutes"));

    // The idle time-out restarts nothing; a failing corlacli is replaced by nearcli.
    Change([](Json& s) { s["simulation"]["failing"] = {"corlacli system settings advanced set"}; });
    Calls();
    Tarn::ApplyShellTimeout(Tarn::kShellIdleTimeout, 0);
    EXPECT_EQ(
        Calls(),
        (Strings{"corlacli system settings advanced set -o /UserVars/CorlaShellInteractiveTimeOut -i 0",
                 "nearcli system settings advanced set -o /UserVars/CorlaShellInteractiveTimeOut -i 0"}));
    EXPECT_EQ(State()["advancedOptions"]["/UserVars/CorlaShellInteractiveTimeOut"]["value"], 0);
    EXPECT_TRUE(Logged("Disabled shell interactive timeout"));
}

TEST_F(Troubleshooting, ConsoleTimeoutStoredInSecondsAndUsedAtOnce) {
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::ApplyTarnTimeout(1);
    EXPECT_EQ(State()["advancedOptions"]["/UserVars/TarnTimeOut"]["value"], 60);
    EXPECT_EQ(Tarn::IdleTimeoutSeconds(), 60u);
    EXPECT_TRUE(Logged("Modified Tarn timeout to 1 minutes"));
    Tarn::ApplyTarnTimeout(0);
    EXPECT_EQ(Tarn::IdleTimeoutSeconds(), 0u);
    EXPECT_TRUE(Logged("Disabled Tarn timeout"));

    // A missing or mistyped option reads as ten minutes and is not created by a write.
    Change([](Json& s) { s["advancedOptions"].erase("/UserVars/TarnTimeOut"); });
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::SetTarnTimeout(120);
    EXPECT_FALSE(State()["advancedOptions"].contains("/UserVars/TarnTimeOut"));
    Change([](Json& s) {
        s["advancedOptions"]["/UserVars/TarnTimeOut"] = {{"type", "string"}, {"value", "5"}};
    });
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::LoadIdleTimeout();
}

} // namespace
