// Service toggles, shell and console time-outs against the simulated host's real tools.
#include "support/ActiveTestHost.h"

#include <gtest/gtest.h>

#include "core/EventLoop.h"
#include "core/Session.h"
#include "hostops/ServiceToggle.h"
#include "hostops/ShellTimeouts.h"
#include "hostops/TarnTimeout.h"

namespace {

using Strings = std::vector<std::string>;

class Troubleshooting : public ::testing::Test {
protected:
    using Json = TestHost::Json;
    ActiveTestHost host_;

    void SetUp() override {
        Tarn::SetLoggedInUser("root");
        // kelp-cmd acts as root, so each action is one call.
        host_.ChangeState([](Json& s) { s["simulation"]["kelpCmdUsers"] = {"root", "tarn"}; });
    }
    void TearDown() override { Tarn::SetLoggedInUser(""); }
    bool Running(const char* service) const { return host_.State()["services"][service]["running"]; }
    bool Enabled(const char* service) const { return host_.State()["services"][service]["enabled"]; }
    bool SshRuleset() const { return host_.State()["firewall"]["rulesets"][0]["enabled"]; }
};

TEST_F(Troubleshooting, SshFallsBackToItsInitScriptAndKeepsTheFirewallInStep) {
    host_.ChangeState([](Json& s) {
        s["firewall"]["rulesets"][0]["enabled"] = false;
        s["simulation"]["failing"] = {"kelp-cmd hostsvc/start_ssh", "kelp-cmd hostsvc/enable_ssh"};
    });
    EXPECT_FALSE(Tarn::ServiceEnabled(Tarn::Service::SSH));
    host_.NewToolCalls();
    Tarn::ToggleService(Tarn::Service::SSH, true);
    EXPECT_EQ(host_.NewToolCalls(), (Strings{"kelp-cmd -U root hostsvc/start_ssh", "/etc/init.d/SSH start",
                                             "kelp-cmd -U root hostsvc/enable_ssh"}));
    EXPECT_TRUE(Running("SSH"));
    EXPECT_FALSE(Enabled("SSH")); // the enable step failed and has no fallback
    EXPECT_TRUE(Tarn::ServiceEnabled(Tarn::Service::SSH)) << "the state line reads the running service";
    EXPECT_TRUE(SshRuleset());
    for (const char* line : {"Unable to run kelp-cmd to start/stop ssh",
                             "Unable to run kelp-cmd to enable/disable ssh", "User root enabled SSH"})
        EXPECT_TRUE(host_.Logged(line)) << line;

    // Without the ruleset the toggle still goes on.
    host_.ChangeState([](Json& s) {
        s["firewall"]["rulesets"] = Json::array();
        s["simulation"]["failing"] = Json::array();
    });
    host_.NewToolCalls();
    Tarn::ToggleService(Tarn::Service::SSH, false);
    EXPECT_FALSE(Running("SSH"));
    EXPECT_EQ(host_.NewToolCalls(),
              (Strings{"kelp-cmd -U root hostsvc/stop_ssh", "kelp-cmd -U root hostsvc/disable_ssh"}));
    bool warned = false;
    for (const std::string& m : host_.LogMessages())
        warned |= m.rfind("Failed to update firewall sshServer ruleset status: ", 0) == 0;
    EXPECT_TRUE(warned);
    EXPECT_TRUE(host_.Logged("User root disabled SSH"));
}

TEST_F(Troubleshooting, ShellTimeoutsWrittenInSecondsThenRunningServicesRestarted) {
    host_.ChangeState([](Json& s) { s["services"]["SSH"]["running"] = true; });
    Tarn::ApplyShellTimeout(Tarn::kShellAvailabilityTimeout, 15);
    EXPECT_EQ(
        host_.NewToolCalls(),
        (Strings{"corlacli system settings advanced set -o /UserVars/CorlaShellTimeOut -i 900",
                 "/etc/init.d/CorlaShell status", "/etc/init.d/SSH status", "/etc/init.d/SSH restart"}));
    EXPECT_EQ(Tarn::ReadShellTimeoutMinutes(Tarn::kShellAvailabilityTimeout), 15);
    EXPECT_TRUE(host_.Logged("Modified Shell timeout to 15 minutes"));

    // The idle time-out restarts nothing; a failing corlacli is replaced by nearcli.
    host_.ChangeState(
        [](Json& s) { s["simulation"]["failing"] = {"corlacli system settings advanced set"}; });
    host_.NewToolCalls();
    Tarn::ApplyShellTimeout(Tarn::kShellIdleTimeout, 0);
    EXPECT_EQ(
        host_.NewToolCalls(),
        (Strings{"corlacli system settings advanced set -o /UserVars/CorlaShellInteractiveTimeOut -i 0",
                 "nearcli system settings advanced set -o /UserVars/CorlaShellInteractiveTimeOut -i 0"}));
    EXPECT_EQ(host_.State()["advancedOptions"]["/UserVars/CorlaShellInteractiveTimeOut"]["value"], 0);
    EXPECT_TRUE(host_.Logged("Disabled shell interactive timeout"));
}

TEST_F(Troubleshooting, ConsoleTimeoutStoredInSecondsAndUsedAtOnce) {
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::ApplyTarnTimeout(1);
    EXPECT_EQ(host_.State()["advancedOptions"]["/UserVars/TarnTimeOut"]["value"], 60);
    EXPECT_EQ(Tarn::IdleTimeoutSeconds(), 60u);
    EXPECT_TRUE(host_.Logged("Modified Tarn timeout to 1 minutes"));
    Tarn::ApplyTarnTimeout(0);
    EXPECT_EQ(Tarn::IdleTimeoutSeconds(), 0u);
    EXPECT_TRUE(host_.Logged("Disabled Tarn timeout"));

    // A missing or mistyped option reads as ten minutes and is not created by a write.
    host_.ChangeState([](Json& s) { s["advancedOptions"].erase("/UserVars/TarnTimeOut"); });
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::SetTarnTimeout(120);
    EXPECT_FALSE(host_.State()["advancedOptions"].contains("/UserVars/TarnTimeOut"));
    host_.ChangeState([](Json& s) {
        s["advancedOptions"]["/UserVars/TarnTimeOut"] = {{"type", "string"}, {"value", "5"}};
    });
    EXPECT_EQ(Tarn::GetTarnTimeout(), 600);
    Tarn::LoadIdleTimeout();
}

} // namespace
