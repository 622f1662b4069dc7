// corlacli switch commands and the bryn-opsagent service operations (the migration tool's call is the
// restore actions' migration test).
#include "support/ActiveTestHost.h"

#include "hostops/BrynOpsAgent.h"
#include "hostops/CorlaCli.h"

#include <gtest/gtest.h>

namespace {

TEST(CorlaCli, SwitchCommandsBuildTheirArgumentsAndLogFailures) {
    ActiveTestHost host{TestHost::Layout::Folders};
    host.Script("/bin/corlacli", "echo \"$*\" >> " + host.Path("/calls"));
    // The switch and uplink commands are the restore actions' switch-creation test.
    EXPECT_TRUE(Tarn::AddStandardSwitch("kSwitch1"));
    EXPECT_TRUE(Tarn::AddPortGroup("Management Network", "kSwitch1"));
    EXPECT_EQ(host.Lines("/calls"),
              (std::vector<std::string>{
                  "network kswitch standard add -v kSwitch1",
                  "network kswitch standard portgroup add -p Management Network -v kSwitch1"}));
    EXPECT_TRUE(host.Logged("Command \"corlacli network kswitch standard add -v kSwitch1\" succeeded"));

    host.Script("/bin/corlacli", "echo 'Switch already exists'; echo hidden >&2; exit 1");
    EXPECT_FALSE(Tarn::AddStandardSwitch("kSwitch0"));
    EXPECT_TRUE(host.Logged("Command \"corlacli network kswitch standard add -v kSwitch0\" failed (rc=1): "
                            "Switch already exists"));
}

TEST(BrynOpsAgent, StopAndStartFollowTheStopResult) {
    struct Case {
        int stopRc;
        std::vector<std::string> messages;
        std::vector<std::string> calls;
    } cases[] = {
        {0,
         {"Stopping bryn-opsagent.", "bryn-opsagent has been successfully stopped.",
          "Starting bryn-opsagent.", "bryn-opsagent has been successfully started."},
         {"stop", "start"}},
        {1,
         {"Stopping bryn-opsagent.", "Failed to stop bryn-opsagent.", "Skipping bryn-opsagent start."},
         {"stop"}},
    };
    for (const Case& c : cases) {
        ActiveTestHost host{TestHost::Layout::Folders};
        host.Script("/etc/init.d/bryn-opsagent", "echo $1 >> " + host.Path("/calls") +
                                                     "\n[ $1 = stop ] && exit " + std::to_string(c.stopRc) +
                                                     "\nexit 0");
        bool wasStopped = c.stopRc != 0; // the opposite of what the stop must set
        Tarn::BrynOpsAgentStop(wasStopped);
        EXPECT_EQ(wasStopped, c.stopRc == 0);
        Tarn::BrynOpsAgentStart(wasStopped);
        EXPECT_EQ(host.LogMessages(), c.messages);
        EXPECT_EQ(host.Lines("/calls"), c.calls);
    }
}

TEST(BrynOpsAgent, ActiveNeedsPresenceAndVersionThree) {
    struct Case {
        bool installed;
        const char* version;
        bool active;
    } cases[] = {
        {true, "3.0.1", true}, {true, "12.4", true}, {true, "2.9.9", false}, {false, "3.0.1", false}};
    for (const Case& c : cases) {
        ActiveTestHost host{TestHost::Layout::Folders};
        if (c.installed)
            host.Script("/etc/init.d/bryn-opsagent", "[ $1 = status ]");
        host.Script("/bin/corlacli", std::string("echo \"$*\" > ") + host.Path("/calls") +
                                         "\necho 'Name=bryn-opsagent'\necho 'Version=" + c.version + "-1'");
        EXPECT_EQ(Tarn::BrynOpsAgentActive(), c.active)
            << c.version << testing::PrintToString(host.LogMessages());
        EXPECT_TRUE(host.Logged("Running: " + host.Path("/etc/init.d/bryn-opsagent") + " status"));
        EXPECT_EQ(host.Logged("bryn-opsagent is not present on the system."), !c.installed);
        EXPECT_EQ(host.Logged("bryn-opsagent version >= 3 detected"), c.active);
        EXPECT_EQ(host.Read("/calls"),
                  c.installed ? "--formatter=keyvalue software vib get -n bryn-opsagent\n" : "");
    }
}

} // namespace
