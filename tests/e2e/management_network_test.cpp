// Restart and test of the management network from the menu: F11 as the only way on, the fresh DHCP lease,
// OK/Failed per target, and Esc ending a slow test at once.
#include "Flows.h"

#include <chrono>

namespace e2e {
namespace {

constexpr const char* kRestartPane = "Restarting the management";
constexpr const char* kTestPane = "To perform a brief network test";

TEST(ManagementNetwork, RestartIgnoresEnterAndRestartsOnF11WithTheNewLease) {
    Console c(Roomy("dhcp"));
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    MoveTo(c, kRestartPane);
    // The DHCP server hands out another address from now on: the restart must show the new one.
    host.ChangeState([](nlohmann::json& s) { s["network"]["dhcp"]["lease"]["address"] = "192.0.2.88"; });
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Restart management network now?")) << c->View().Text();
    c->Key("Enter");
    EXPECT_TRUE(c->WaitQuiet(200ms));
    EXPECT_TRUE(c->View().Contains("Restart management network now?")) << "Enter must not restart";
    EXPECT_TRUE(host.SyslogMatching("Restarting tes0").empty());

    c->Key("F11");
    ASSERT_TRUE(c->WaitForTextSettled("IP address is 192.0.2.88")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Stopping management network. Done."));
    EXPECT_TRUE(c->View().Contains("Starting management network. Done."));
    EXPECT_EQ(host.SyslogMatching("Restarting tes0").size(), 1u);
    EXPECT_EQ(Events(host).back(), "@&!*@*@(obe.user.tarn.network.restart)Restarting tes0");
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextSettled(kRestartPane)) << c->View().Text();
}

// The ping command line and the hosts file set aside and restored are unit tests (ManagementTest_test); here
// the result per target, then Esc ending a slow run at once.
TEST(ManagementNetwork, TestShowsOkAndFailedPerTargetAndEscEndsASlowPingAtOnce) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    host.ChangeState([](nlohmann::json& s) { s["network"]["answering"] = {"192.0.2.1", "192.0.2.53"}; });
    const std::string hosts = host.Read("etc/hosts");
    LogInAsRoot(c);
    MoveTo(c, kTestPane);
    const auto startTest = [&] {
        c->Key("Enter");
        ASSERT_TRUE(c->WaitForTextSettled("host01.example.test")) << c->View().Text();
        EXPECT_TRUE(c->View().Contains("192.0.2.54"));
        c->Key("Enter");
    };
    startTest();
    ASSERT_TRUE(c->WaitForText("Resolving hostname (host01.example.test). OK.")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Pinging address #1 (192.0.2.1). OK."));
    EXPECT_TRUE(c->View().Contains("Pinging address #2 (192.0.2.53). OK."));
    EXPECT_TRUE(c->View().Contains("Pinging address #3 (192.0.2.54). Failed.")) << c->View().Text();
    c->Key("Enter");
    // The pane shows beside the results: wait for them to go before the next Enter.
    ASSERT_TRUE(c->WaitForTextGone("Resolving hostname")) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled(kTestPane)) << c->View().Text();

    host.ChangeState([](nlohmann::json& s) { s["simulation"]["pingDelayMs"] = 2000; });
    startTest();
    ASSERT_TRUE(c->WaitForTextSettled("Pinging address #1 (192.0.2.1).")) << c->View().Text();
    const auto start = std::chrono::steady_clock::now();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Pinging address #1", 1s)) << c->View().Text();
    EXPECT_LT(std::chrono::steady_clock::now() - start, Scaled(1s));
    EXPECT_TRUE(c->WaitForText(kTestPane));
    EXPECT_EQ(host.Read("etc/hosts"), hosts);
}

} // namespace
} // namespace e2e
