// The welcome screen against simulated hosts: what the two halves show and in which colours, the management
// addresses and warnings per host state, the no-adapter alert, a custom message, and the ways into a session
// and out of it.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace e2e {
namespace {

constexpr const char* kReady = "<F12>";
// The System Customization menu's key hint.
constexpr const char* kMenu = "<Esc> Log Out";
constexpr int kRows = 30, kCols = 100;
// Bottom half starts at row 15 of 30; the management box at its row 1, column 8.
constexpr int kBottom = 15;
constexpr int kManagementRow = kBottom + 1;

ConsoleOptions Options(const std::string& scenario) {
    return {.scenario = scenario, .rows = kRows, .cols = kCols};
}

// The row's text from column `col` up to the right border, trailing blanks removed (cells, not bytes: the
// border characters take several bytes each).
std::string TextAt(Console& c, int row, int col = 8) {
    std::string text;
    for (int x = col; x < kCols - 1; ++x)
        text += c->CellAt(x, row).text;
    return text.erase(text.find_last_not_of(' ') + 1);
}

std::vector<std::string> ManagementLines(Console& c) {
    std::vector<std::string> lines;
    for (int row = kManagementRow; row < kManagementRow + 7; ++row)
        lines.push_back(TextAt(c, row));
    return lines;
}

std::vector<nlohmann::json> AuditRecords(const SimHost& host) {
    std::vector<nlohmann::json> records;
    std::istringstream in(host.ReadFile("var/log/audit.log"));
    for (std::string line; std::getline(in, line);)
        records.push_back(nlohmann::json::parse(line));
    return records;
}

void EditHost(SimHost& host, const std::function<void(nlohmann::json&)>& edit) {
    nlohmann::json state = host.HostJson();
    edit(state);
    host.WriteFile("etc/simhost/host.json", state.dump(2));
}

TEST(Welcome, DefaultHostShowsIdentityAndManagementAddresses) {
    Console c(Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    c->WaitQuiet(50ms);
    EXPECT_EQ(TextAt(c, 5), "Orvane Hypervisor 8.0.2 (Tessel 8.0.2 Build 22380479)");
    EXPECT_EQ(TextAt(c, 7), "Acme Computer Corp. Acme Server 9");
    EXPECT_EQ(TextAt(c, 9), "2 x Intel(R) Xeon(R) Gold 6230 CPU @ 2.10GHz");
    EXPECT_EQ(TextAt(c, 10), "32 GiB Memory");
    EXPECT_EQ(ManagementLines(c),
              (std::vector<std::string>{"To manage this host, go to:", "https://host01/",
                                        "https://192.0.2.10/ (STATIC)",
                                        "https://[fe80::250:56ff:feaa:0]/ (AUTOCONF)", "", "", ""}));
    // Footer: two rows above the bottom edge, F2 at the left, F12 ending at the right margin.
    const Pos f2 = *c->Find("<F2> Customize System/View Logs");
    EXPECT_EQ(f2, (Pos{2, kRows - 2}));
    const std::string f12 = "<F12> Shut Down/Restart";
    const Pos right = *c->Find(f12);
    EXPECT_EQ(right, (Pos{kCols - 2 - int(f12.size()), kRows - 2}));
    EXPECT_TRUE(TextAt(c, kBottom + 9, 16).empty()) << "no warning on a static host";
    SaveScreenshot(c->View(), "welcome");
}

TEST(Welcome, HalvesAreDarkGreyOverAmber) {
    Console c(Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady));
    c->WaitQuiet(50ms);
    const Pos header = *c->Find("Orvane Hypervisor");
    EXPECT_EQ(c->CellAt(header.col, header.row).bg.Index(), 6);
    EXPECT_EQ(c->CellAt(header.col, header.row).fg.Index(), 7);
    EXPECT_EQ(c->CellAt(50, 0).bg.Index(), 6) << "top edge";
    EXPECT_EQ(c->CellAt(50, kBottom - 1).bg.Index(), 6) << "last row of the top half";
    EXPECT_EQ(c->CellAt(50, kBottom).bg.Index(), 3) << "first row of the bottom half";
    const Pos heading = *c->Find("To manage this host");
    EXPECT_EQ(c->CellAt(heading.col, heading.row).fg.Index(), 0);
    EXPECT_EQ(c->CellAt(heading.col, heading.row).bg.Index(), 3);
    const Pos hint = *c->Find("Customize System");
    EXPECT_EQ(c->CellAt(hint.col, hint.row).fg.Index(), 6);
    const Pos key = *c->Find("<F2>");
    EXPECT_EQ(c->CellAt(key.col, key.row).fg.Index(), 0);
    // The screen's border is drawn with line characters in the halves' colours.
    EXPECT_EQ(c->CellAt(0, 0).text, "\u250c");
    EXPECT_EQ(c->CellAt(kCols - 1, kRows - 1).text, "\u2518");
    EXPECT_EQ(c->CellAt(0, kRows - 1).bg.Index(), 3);

    // F4 flips to the alternate palette and back.
    c->Key("F4");
    EXPECT_TRUE(c->WaitFor([&] { return c->CellAt(50, kBottom).bg.Index() == 2; })) << "alternate bottom";
    EXPECT_EQ(c->CellAt(50, 0).bg.Index(), 0);
    c->Key("F4");
    EXPECT_TRUE(c->WaitFor([&] { return c->CellAt(50, kBottom).bg.Index() == 3; }));
}

TEST(Welcome, DhcpLabelsAndWarnings) {
    {
        Console c(Options("dhcp"));
        ASSERT_TRUE(c->WaitForText("https://192.0.2.77/ (DHCP)")) << c->View().Text();
        EXPECT_FALSE(c->View().Contains("Warning:"));
    }
    {
        Console c(Options("dhcp-no-lease"));
        ASSERT_TRUE(c->WaitForText("https://0.0.0.0/ (Waiting for DHCP...)")) << c->View().Text();
        EXPECT_TRUE(c->WaitForText("Warning: DHCP lookup failed."));
        // The warning box: bottom half, column 16, row 9.
        const Pos warning = *c->Find("Warning: DHCP lookup failed.");
        EXPECT_EQ(warning, (Pos{16, kBottom + 9}));
        EXPECT_EQ(c->CellAt(warning.col, warning.row).fg.Index(), 6);
    }
    {
        Console c(Options("audit-mode"));
        ASSERT_TRUE(c->WaitForText("Warning: Host is running in audit mode.")) << c->View().Text();
    }
    {
        // Both at once: audit mode wins.
        SimHost host("dhcp-no-lease");
        EditHost(host, [](nlohmann::json& s) { s["system"]["bootOptions"]["auditMode"] = true; });
        Console c(host, Options("dhcp-no-lease"));
        ASSERT_TRUE(c->WaitForText("Warning: Host is running in audit mode.")) << c->View().Text();
        EXPECT_FALSE(c->View().Contains("DHCP lookup failed"));
    }
}

TEST(Welcome, Ipv6AddressesSortedFourThenEllipsisOrExactlyFive) {
    // Without a host-name line the seven-row box has room for the "..." line.
    SimHost host("ipv6");
    EditHost(host, [](nlohmann::json& s) { s["dns"]["hostname"] = "localhost"; });
    {
        Console c(host, Options("ipv6"));
        ASSERT_TRUE(c->WaitForText("...")) << c->View().Text();
        EXPECT_EQ(
            ManagementLines(c),
            (std::vector<std::string>{"To manage this host, go to:", "https://192.0.2.10/ (STATIC)",
                                      "https://[2001:db8:1::12]/ (STATIC)",
                                      "https://[2001:db8::10]/ (STATIC)", "https://[2001:db8::11]/ (STATIC)",
                                      "https://[fe80::250:56ff:feaa:0]/ (AUTOCONF)", "..."}));
    }
    EditHost(host, [](nlohmann::json& s) {
        auto& list = s["tesnics"][0]["running"]["ipv6"];
        list.erase(list.size() - 1);
        list.erase(list.size() - 1);
        ASSERT_EQ(list.size(), 5u);
    });
    {
        Console c(host, Options("ipv6"));
        ASSERT_TRUE(c->WaitForText(kReady));
        c->WaitQuiet(50ms);
        EXPECT_EQ(ManagementLines(c),
                  (std::vector<std::string>{
                      "To manage this host, go to:", "https://192.0.2.10/ (STATIC)",
                      "https://[2001:db8:1::12]/ (STATIC)", "https://[2001:db8::10]/ (STATIC)",
                      "https://[2001:db8::11]/ (STATIC)", "https://[2001:db8::250:56ff:feaa:0]/ (AUTOCONF)",
                      "https://[fe80::250:56ff:feaa:0]/ (AUTOCONF)"}));
    }
}

TEST(Welcome, NoAdapterMessageAndAlertRaisedOnce) {
    Console c(Options("no-nics"));
    ASSERT_TRUE(c->WaitForText("No compatible network adapter found. Please consult")) << c->View().Text();
    EXPECT_FALSE(c->View().Contains("To manage this host"));
    // Every other key redraws with fresh data; the alert stays single.
    for (int i = 0; i < 3; ++i) {
        c->Type("x");
        c->WaitQuiet(80ms);
    }
    EXPECT_TRUE(c->View().Contains("No compatible network adapter found."));
    EXPECT_EQ(c.Host().HostJson()["system"]["alerts"],
              nlohmann::json::array({"No compatible network adapter found."}));
}

TEST(Welcome, CustomMessageReplacesTheScreenUntilCleared) {
    Console c(Options("welcome-message"));
    ASSERT_TRUE(c->WaitForText("Authorized use only.")) << c->View().Text();
    c->WaitQuiet(50ms);
    EXPECT_EQ(*c->Find("Authorized use only."), (Pos{2, 2}));
    EXPECT_TRUE(c->View().Contains("This host belongs to the lab team"));
    for (const char* gone : {"<F2>", "<F12>", "To manage this host", "Orvane Hypervisor"})
        EXPECT_FALSE(c->View().Contains(gone)) << gone;
    EXPECT_EQ(c->CellAt(0, 0).text, "\u250c");

    // Data is read on every redraw: the message cleared, any key brings the two halves back.
    EditHost(c.Host(), [](nlohmann::json& s) { s["system"]["welcomeMessage"] = ""; });
    c->Type("x");
    ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("Authorized use only."));
    EXPECT_TRUE(c->View().Contains("https://192.0.2.10/ (STATIC)"));
}

TEST(Welcome, KeysRedrawWithFreshDataAndRestartRequestEndsTheProgram) {
    Console c(Options("default"));
    ASSERT_TRUE(c->WaitForText("https://host01/")) << c->View().Text();
    EditHost(c.Host(), [](nlohmann::json& s) { s["dns"]["hostname"] = "renamed"; });
    c->Key("Down");
    EXPECT_TRUE(c->WaitForText("https://renamed/")) << c->View().Text();
    c->Signal(SIGUSR2);
    auto status = c->WaitExit();
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
}

// Logs in as root (empty password) from the welcome screen with `key`.
void LogIn(Console& c, const char* key) {
    c->WaitQuiet(50ms);
    c->Key(key);
    ASSERT_TRUE(c->WaitForText("Authentication Required")) << c->View().Text();
    c->WaitQuiet(50ms);
    // Each key after the screen settles: a frame drawn anew drops keys typed ahead of it.
    c->Key("Enter"); // login name "root" is preset
    c->WaitQuiet(50ms);
    c->Key("Enter"); // empty password
    ASSERT_TRUE(c->WaitForTextGone("Authentication Required")) << c->View().Text();
}

nlohmann::json LastAudit(const SimHost& host) {
    auto records = AuditRecords(host);
    return records.empty() ? nlohmann::json() : records.back();
}

TEST(WelcomeSession, LoginSwitchedOffShowsOnlyTheDeniedDialog) {
    SimHost host("default");
    std::remove(host.Path("var/run/orvane/show-tarn-login").c_str());
    Console c(host, Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady));
    for (const char* key : {"F2", "F12"}) {
        c->Key(key);
        ASSERT_TRUE(c->WaitForText("Authentication Denied")) << key << "\n" << c->View().Text();
        c->Key("Enter");
        ASSERT_TRUE(c->WaitForTextGone("Authentication Denied"));
    }
    EXPECT_TRUE(AuditRecords(host).empty()) << "no login was attempted";
}

TEST(WelcomeSession, LeavingTheMenuLogsOutAndARestartAskedMeanwhileEndsTheProgram) {
    Console c(Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady));
    LogIn(c, "F2");
    ASSERT_TRUE(c->WaitForText(kMenu)) << c->View().Text();
    // During a session a restart request only waits for the session's end.
    c->Signal(SIGUSR2);
    c->WaitQuiet(100ms);
    ASSERT_TRUE(c->Running());
    c->Key("Esc");
    auto status = c->WaitExit();
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    EXPECT_EQ(c.Host().SyslogMatching("User root logged out").size(), 1u);
    const auto audit = LastAudit(c.Host());
    EXPECT_EQ(audit["event"], "login.disconnect");
    EXPECT_EQ(audit["user"], "root");
    EXPECT_EQ(audit["pairs"], (nlohmann::json{{"reason", "Session closed"}}));
}

TEST(WelcomeSession, SessionsRepeatAndTheShutDownDialogReturnsToTheWelcomeScreen) {
    Console c(Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady));
    for (int i = 0; i < 2; ++i) {
        LogIn(c, "F2");
        ASSERT_TRUE(c->WaitForText(kMenu));
        c->Key("Esc");
        ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    }
    EXPECT_EQ(c.Host().SyslogMatching("User root logged out").size(), 2u);

    LogIn(c, "F12");
    ASSERT_TRUE(c->WaitForText("<F11>")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForText("To manage this host")) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("<F11>"));
    EXPECT_EQ(c.Host().SyslogMatching("logged out").size(), 2u) << "no session behind F12";
}

// Slow: the shortest idle time-out is one minute.
TEST(WelcomeSession, IdleTimeOutInTheMenuLogsTheUserOut) {
    SimHost host("default");
    EditHost(host, [](nlohmann::json& s) { s["advancedOptions"]["/UserVars/TarnTimeOut"]["value"] = 1; });
    Console c(host, Options("default"));
    ASSERT_TRUE(c->WaitForText(kReady));
    LogIn(c, "F2");
    ASSERT_TRUE(c->WaitForText(kMenu));
    ASSERT_TRUE(c->WaitForTextGone(kMenu, 75s)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("To manage this host"));
    EXPECT_EQ(host.SyslogMatching("User root logged out due to time out").size(), 1u);
    const auto audit = LastAudit(host);
    EXPECT_EQ(audit["event"], "login.disconnect");
    EXPECT_EQ(audit["pairs"], (nlohmann::json{{"reason", "Time out"}}));
    EXPECT_TRUE(c->Running());
}

} // namespace
} // namespace e2e
