// Shutting down and restarting the host from the welcome screen (F12, login as root with the empty
// password): the calls the simulated host records and their order, the log line and event, the console's
// end, a power command that cannot start, and Esc.
#include "Flows.h"
#include "harness/Screenshot.h"

#include <algorithm>
#include <filesystem>

namespace e2e {
namespace {

constexpr const char* kCheckItem = "Forcefully terminate running VMs, if any ...";

void OpenShutdown(Console& c) {
    LogInAsRoot(c, "F12", kCheckItem);
}

// What stopping the virtual machines records: autostop as root, refused (255) by the default host and run
// again as the service account, then haltGuests; then the power command.
Calls StopCalls(bool terminate, const std::string& power) {
    Calls calls = {{"kelp-cmd", "-U", "root", "hostsvc/autostartmanager/autostop"},
                   {"kelp-cmd", "-U", "tarn", "hostsvc/autostartmanager/autostop"},
                   terminate ? Calls::value_type{"haltGuests", "--terminate"}
                             : Calls::value_type{"haltGuests"}};
    if (!power.empty())
        calls.push_back({power});
    return calls;
}

TEST(Power, EscRunsNothingThenShutDownForcingVmsOffStopsThemAndPowersOff) {
    Console c(Roomy("running-vms"));
    const TestHost& host = c.Host();
    OpenShutdown(c);
    EXPECT_TRUE(c->View().Contains("[ ] " + std::string(kCheckItem)));
    EXPECT_TRUE(c->View().Contains("Remote management software is recommended"));
    EXPECT_TRUE(c->View().Contains("<F2> Shut Down  <F11> Restart"));
    SaveScreenshot(c->View(), "shutdown-dialog");
    size_t before = host.ToolCalls().size();

    // Esc leaves the dialog without running anything, even with the check item set; no session was open.
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem))) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("To manage this host"));
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_TRUE(CallsSince(host, before).empty());
    EXPECT_TRUE(host.SyslogMatching("logged out").empty());

    OpenShutdown(c);
    before = host.ToolCalls().size();
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem))) << c->View().Text();
    c->Key("F2");
    auto status = c->WaitExit(10s);
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();

    EXPECT_EQ(CallsSince(host, before), StopCalls(true, "poweroff"));
    const auto state = host.State();
    EXPECT_EQ(state["power"]["state"], "off");
    for (const auto& vm : state["vms"])
        EXPECT_FALSE(vm["running"].get<bool>()) << vm.dump();
    EXPECT_EQ(host.SyslogMatching("Shutting down host").size(), 1u);
    EXPECT_EQ(Events(host).back(), "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host");
}

TEST(Power, PowerCommandThatCannotStartBringsTheDialogBackThenRestartReboots) {
    Console c;
    const TestHost& host = c.Host();
    OpenShutdown(c);
    std::filesystem::remove(host.Path("sbin/poweroff"));
    size_t before = host.ToolCalls().size();

    c->Key("F2");
    ASSERT_TRUE(c->WaitFor([&] { return host.ToolCalls().size() >= before + 3; })) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextGone("Shutdown in progress...")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled("Shut Down/Restart", 100ms));
    EXPECT_EQ(CallsSince(host, before), StopCalls(false, ""));
    EXPECT_EQ(host.State()["power"]["state"], "on");
    // Logged and reported before the command was tried.
    EXPECT_EQ(host.SyslogMatching("Shutting down host").size(), 1u);
    EXPECT_EQ(Events(host).back(), "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host");

    // The dialog still takes keys: without the check item, a restart halts the guests gently and reboots.
    before = host.ToolCalls().size();
    c->Key("F11");
    auto status = c->WaitExit(10s);
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    EXPECT_EQ(CallsSince(host, before), StopCalls(false, "reboot"));
    EXPECT_EQ(host.State()["power"]["state"], "rebooting");
    EXPECT_EQ(host.SyslogMatching("Rebooting host").size(), 1u);
    EXPECT_EQ(Events(host).back(), "@&!*@*@(obe.user.tarn.reboot.host)Rebooting host");
}

} // namespace
} // namespace e2e
