// Configure Management Network through the terminal against the simulated host: a static IPv4 change
// applied with Y and shown on the welcome screen, Esc on the question keeping the changes, N dropping them,
// DHCP on a distributed switch, an IPv6 switch that restarts the host, and DNS, VLAN and adapters applied
// while one stage fails.
#include "Flows.h"
#include "harness/Screenshot.h"

#include <algorithm>

namespace e2e {
namespace {

constexpr const char* kWindowReady = "Custom DNS Suffixes";
constexpr const char* kApplyQuestion = "Apply changes and restart management network?";

void OpenNetworkWindow(Console& c) {
    MoveTo(c, "To view or modify");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kWindowReady, 100ms)) << c->View().Text();
}

// From the window's first entry: down `steps` entries, then Enter, waiting for `dialogText`.
void OpenEntry(Console& c, int steps, const std::string& summary, const std::string& dialogText) {
    for (int i = 0; i < steps; ++i)
        c->Key("Down");
    ASSERT_TRUE(c->WaitForTextSettled(summary, 60ms)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(dialogText, 60ms)) << c->View().Text();
}

void Keys(Console& c, const std::string& key, int times) {
    for (int i = 0; i < times; ++i)
        c->Key(key);
}

// Enter on a dialog, then waits for the window's summary to show `text`.
void Accept(Console& c, const std::string& text) {
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(text, 60ms)) << c->View().Text();
}

void LeaveAndAnswer(Console& c, const std::string& question, const std::string& answer) {
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextSettled(question, 60ms)) << c->View().Text();
    c->Type(answer);
}

TEST(Network, StaticIpv4AppliedWithYEscKeepsChangesNDropsThem) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    const auto lockdownQueries = [&] {
        return std::ranges::count_if(host.ToolCalls(), [](const std::vector<std::string>& call) {
            return call.back().rfind("kelpsvc/auth/lockdown_is_", 0) == 0;
        });
    };
    const auto queriesOfTheMenu = lockdownQueries();
    OpenNetworkWindow(c);
    EXPECT_TRUE(c->View().Contains("nicx0 (Intel Corporation 82599")) << c->View().Text();
    SaveScreenshot(c->View(), "network-window");

    OpenEntry(c, 2, "Subnet Mask: 255.255.255.0", "Set static IPv4 address");
    SaveScreenshot(c->View(), "ipv4-dialog");
    // The text cursor shows only while a field has the focus, not on the radio buttons above the fields.
    EXPECT_FALSE(c->View().CursorVisible());
    Keys(c, "Down", 3);
    c->WaitQuiet(100ms);
    EXPECT_TRUE(c->View().CursorVisible());
    EXPECT_EQ(c->View().Cursor().row, c->Find("[ 192.0.2.10").value_or(Pos{}).row);
    c->Type("192.0.2.20");
    Accept(c, "IPv4 Address: 192.0.2.20");

    // Esc on the question: back to the window, the change still pending.
    LeaveAndAnswer(c, kApplyQuestion, "");
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kApplyQuestion)) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled("IPv4 Address: 192.0.2.20", 60ms));
    LeaveAndAnswer(c, kApplyQuestion, "y");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();
    EXPECT_EQ(host.State()["tesnics"][0]["stored"]["address"], "192.0.2.20");
    EXPECT_EQ(host.SyslogMatching("Setting ipv4 configuration to 192.0.2.20 255.255.255.0 on tes0").size(),
              1u);
    EXPECT_EQ(host.SyslogMatching("Network settings changed.").size(), 1u);
    // The menu shows the new address; the lockdown state, which the window cannot change, is not asked again.
    EXPECT_TRUE(c->View().Contains("192.0.2.20")) << c->View().Text();
    EXPECT_EQ(lockdownQueries(), queriesOfTheMenu);

    // N drops a pending VLAN.
    OpenNetworkWindow(c);
    OpenEntry(c, 1, "A VLAN is a virtual network", "VLAN ID (1-4094");
    c->Type("7");
    Accept(c, "7");
    LeaveAndAnswer(c, kApplyQuestion, "n");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();
    EXPECT_EQ(host.State()["standardSwitches"][0]["portGroups"][0]["vlan"], 0);
    EXPECT_EQ(host.SyslogMatching("Network settings changed.").size(), 1u);

    // Opening and leaving without an edit asks nothing.
    OpenNetworkWindow(c);
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();

    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextSettled("https://192.0.2.20/", 100ms)) << c->View().Text();
}

TEST(Network, DhcpOnADistributedSwitchTakesALease) {
    Console c(Roomy("dvs"));
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    OpenNetworkWindow(c);
    // Adapters and VLAN cannot be chosen: the cursor starts on the IPv4 entry.
    EXPECT_TRUE(c->View().Contains("Subnet Mask:")) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Set static IPv4 address", 60ms)) << c->View().Text();
    c->Key("Down");
    c->Type(" ");
    Accept(c, "Automatic");
    LeaveAndAnswer(c, kApplyQuestion, "Y");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();
    const auto tes0 = host.State()["tesnics"][0];
    EXPECT_TRUE(tes0["stored"]["dhcp"].get<bool>());
    EXPECT_EQ(tes0["running"]["address"], "192.0.2.77");
    EXPECT_EQ(host.SyslogMatching("Switching to DHCP on tes0").size(), 1u);
    EXPECT_TRUE(host.SyslogMatching("Setting adapters to").empty());
}

TEST(Network, DnsVlanAndAdaptersApplyWhileTheGatewayStageFailsThenIpv6OffRestartsTheHost) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    host.ChangeState(
        [](nlohmann::json& s) { s["simulation"]["failing"] = {"hostctl SetTesselDefaultGateway"}; });
    LogInAsRoot(c);
    OpenNetworkWindow(c);

    // Adapters: nicx0 and nicx1 dropped, then nicx1 and nicx0 chosen in that order.
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Hardware Label (MAC Address)", 60ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("load-balancing.")) << "the whole description";
    c->Type(" ");
    c->Key("Down");
    c->Type(" ");
    c->Type(" ");
    c->Key("Up");
    c->Type(" ");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Hardware Label (MAC Address)")) << c->View().Text();

    OpenEntry(c, 1, "A VLAN is a virtual network", "VLAN ID (1-4094");
    c->Type("5");
    Accept(c, "5");
    c->Key("Up");
    OpenEntry(c, 2, "Default Gateway: 192.0.2.1", "Set static IPv4 address");
    Keys(c, "Down", 5);
    c->Type("192.0.2.254");
    Accept(c, "Default Gateway: 192.0.2.254");
    OpenEntry(c, 2, "Primary DNS Server:", "Use the following DNS server addresses");
    c->Key("Down");
    c->Type("192.0.2.60");
    Keys(c, "Down", 2);
    c->Type("host02");
    Accept(c, "host02");

    LeaveAndAnswer(c, kApplyQuestion, "y");
    ASSERT_TRUE(c->WaitForTextSettled("Setting default gateway failed: simulated failure", 100ms))
        << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Enable Management Network: Error"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();

    const auto state = host.State();
    EXPECT_EQ(state["standardSwitches"][0]["portGroups"][0]["vlan"], 5);
    EXPECT_EQ(state["standardSwitches"][0]["portGroups"][0]["teaming"]["uplinkOrder"],
              nlohmann::json::parse(R"(["nicx1", "nicx0"])"));
    EXPECT_EQ(state["tesnics"][0]["mac"], "00:50:56:aa:00:01");
    EXPECT_EQ(state["routes"]["ipv4Gateway"], "192.0.2.1");
    EXPECT_EQ(state["dns"]["hostname"], "host02");
    EXPECT_EQ(state["dns"]["servers"][0], "192.0.2.60");
    EXPECT_EQ(host.SyslogMatching("Changed vlan, restarting management interface").size(), 1u);
    EXPECT_TRUE(c->WaitForText("host02")) << c->View().Text();

    // IPv6 switched off asks to reboot, and the host comes back without it.
    OpenNetworkWindow(c);
    OpenEntry(c, 3, "IPv6 Addresses", "Use DHCPv6");
    EXPECT_TRUE(c->View().Contains("specified:")) << "the whole description";
    c->Type(" "); // the cursor starts on "Disable IPv6"
    Accept(c, "This host can be configured to support IPv6.");
    LeaveAndAnswer(c, "Apply changes and reboot host?", "y");
    auto status = c->WaitExit(10s);
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_EQ(host.State()["power"]["state"], "rebooting");
    EXPECT_FALSE(host.State()["ipv6"]["enabled"].get<bool>());
}

} // namespace
} // namespace e2e
