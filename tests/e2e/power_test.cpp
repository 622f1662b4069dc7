// Shutting down and restarting the host from the welcome screen (F12, login as root with the empty
// password): the calls the simulated host records and their order, the log line and event, the console's
// end, a power command that cannot start, and Esc.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace e2e {
namespace {

using Calls = std::vector<std::vector<std::string>>;

constexpr const char* kTitle = "Shut Down/Restart";
constexpr const char* kCheckItem = "Forcefully terminate running VMs, if any ...";

void OpenShutdown(Console& c) {
    ASSERT_TRUE(c->WaitForText("<F12>")) << c->View().Text();
    c->Key("F12");
    ASSERT_TRUE(c->WaitForText("Login Name:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter"); // login name "root" as preset
    c->Key("Enter"); // empty password
    ASSERT_TRUE(c->WaitForText(kCheckItem)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

// The calls made after the first `before` ones.
Calls CallsSince(Console& c, size_t before) {
    Calls all = c.Host().ToolCalls();
    return Calls(all.begin() + static_cast<long>(std::min(before, all.size())), all.end());
}

// What stopping the virtual machines records: autostop as root, refused (255) by the default host and run
// again as the service account, then haltGuests.
Calls StopCalls(bool terminate) {
    Calls calls = {{"kelp-cmd", "-U", "root", "hostsvc/autostartmanager/autostop"},
                   {"kelp-cmd", "-U", "tarn", "hostsvc/autostartmanager/autostop"}};
    calls.push_back(terminate ? std::vector<std::string>{"haltGuests", "--terminate"}
                              : std::vector<std::string>{"haltGuests"});
    return calls;
}

bool EventRecorded(Console& c, const std::string& event) {
    return c.Host().ReadFile("var/log/obed.log").find(event) != std::string::npos;
}

TEST(Power, ShutDownForcingVmsOffStopsThemThenPowersOffAndTheConsoleEnds) {
    Console c({.scenario = "running-vms", .rows = 30, .cols = 100});
    OpenShutdown(c);
    EXPECT_TRUE(c->View().Contains("[ ] " + std::string(kCheckItem)));
    EXPECT_TRUE(c->View().Contains("Remote management software is recommended"));
    EXPECT_TRUE(c->View().Contains("<F2> Shut Down  <F11> Restart"));
    SaveScreenshot(c->View(), "shutdown-dialog");
    const size_t before = c.Host().ToolCalls().size();

    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem))) << c->View().Text();
    c->Key("F2");
    auto status = c->WaitExit(10s);
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();

    Calls expected = StopCalls(true);
    expected.push_back({"poweroff"});
    EXPECT_EQ(CallsSince(c, before), expected);
    const auto host = c.Host().HostJson();
    EXPECT_EQ(host["power"]["state"], "off");
    EXPECT_EQ(c.Host().SyslogMatching("Shutting down host").size(), 1u);
    EXPECT_TRUE(EventRecorded(c, "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host"));
    for (const auto& vm : host["vms"])
        EXPECT_FALSE(vm["running"].get<bool>()) << vm.dump();
}

TEST(Power, RestartWithoutTheCheckItemHaltsGuestsGentlyThenReboots) {
    Console c;
    OpenShutdown(c);
    const size_t before = c.Host().ToolCalls().size();

    c->Key("F11");
    ASSERT_TRUE(c->WaitFor([&] { return c->View().Contains("Restart in progress...") || !c->Running(); }));
    auto status = c->WaitExit(10s);
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();

    Calls expected = StopCalls(false);
    expected.push_back({"reboot"});
    EXPECT_EQ(CallsSince(c, before), expected);
    EXPECT_EQ(c.Host().HostJson()["power"]["state"], "rebooting");
    EXPECT_EQ(c.Host().SyslogMatching("Rebooting host").size(), 1u);
    EXPECT_TRUE(EventRecorded(c, "@&!*@*@(obe.user.tarn.reboot.host)Rebooting host"));
}

TEST(Power, PowerCommandThatCannotStartBringsTheShutdownDialogBackAndEscRunsNothing) {
    Console c;
    OpenShutdown(c);
    std::filesystem::remove(c.Host().Path("sbin/poweroff"));
    const size_t before = c.Host().ToolCalls().size();

    c->Key("F2");
    ASSERT_TRUE(c->WaitFor([&] { return c.Host().ToolCalls().size() >= before + 3; })) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextGone("Shutdown in progress...")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
    EXPECT_TRUE(c->View().Contains(kTitle));
    EXPECT_EQ(CallsSince(c, before), StopCalls(false));
    EXPECT_EQ(c.Host().HostJson()["power"]["state"], "on");
    // Logged and reported before the command was tried.
    EXPECT_EQ(c.Host().SyslogMatching("Shutting down host").size(), 1u);
    EXPECT_TRUE(EventRecorded(c, "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host"));

    // The dialog still takes keys; Esc leaves it without running anything more.
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem))) << c->View().Text();
    c->Key("Esc");
    EXPECT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("<F12>"));
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_EQ(CallsSince(c, before).size(), 3u);
    EXPECT_TRUE(c->Running());
}

} // namespace
} // namespace e2e
