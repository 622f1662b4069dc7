// The welcome screen against simulated hosts: what the two halves show and in which colours, the management
// addresses and warnings per host state, the no-adapter alert, a custom message, and the idle time-out of a
// session started from it.
#include "Flows.h"
#include "harness/Screenshot.h"

namespace e2e {
namespace {

constexpr const char* kReady = "<F12>";
constexpr int kRows = 30, kCols = 100;
// Bottom half starts at row 15 of 30; the management box at its row 1, column 8.
constexpr int kBottom = 15;
constexpr int kManagementRow = kBottom + 1;

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

TEST(Welcome, DefaultHostShowsIdentityAndAddressesInDarkGreyOverAmber) {
    Console c(Roomy());
    ASSERT_TRUE(c->WaitForTextSettled(kReady, 50ms)) << c->View().Text();
    EXPECT_EQ(TextAt(c, 5), "Orvane Hypervisor 8.0.2 (Tessel 8.0.2 Build 22380479)");
    EXPECT_EQ(TextAt(c, 7), "Acme Computer Corp. Acme Server 9");
    EXPECT_EQ(TextAt(c, 9), "2 x Intel(R) Xeon(R) Gold 6230 CPU @ 2.10GHz");
    EXPECT_EQ(TextAt(c, 10), "32 GiB Memory");
    EXPECT_EQ(ManagementLines(c),
              (std::vector<std::string>{"To manage this host, go to:", "https://host01/",
                                        "https://192.0.2.10/ (STATIC)",
                                        "https://[fe80::250:56ff:feaa:0]/ (AUTOCONF)", "", "", ""}));
    // Footer: two rows above the bottom edge, F2 at the left, F12 ending at the right margin.
    EXPECT_EQ(c->Find("<F2> Customize System/View Logs"), (Pos{2, kRows - 2}));
    EXPECT_EQ(c->Find("<F12> Shut Down/Restart"), (Pos{kCols - 25, kRows - 2}));
    EXPECT_TRUE(TextAt(c, kBottom + 9, 16).empty()) << "no warning on a static host";
    SaveScreenshot(c->View(), "welcome");

    // Dark grey (6) over amber (3): the header white, the heading black, key names black, hints grey; the
    // border drawn with line characters in the halves' colours.
    const auto colours = [&](const std::string& text) {
        const Pos at = c->Find(text).value_or(Pos{-1, -1});
        const Cell cell = c->CellAt(at.col, at.row);
        return std::pair{cell.fg.Index(), cell.bg.Index()};
    };
    EXPECT_EQ(colours("Orvane Hypervisor"), std::pair(7, 6));
    EXPECT_EQ(colours("To manage this host"), std::pair(0, 3));
    EXPECT_EQ(colours("Customize System").first, 6);
    EXPECT_EQ(colours("<F2>").first, 0);
    for (int row : {0, kBottom - 1, kBottom, kRows - 1})
        EXPECT_EQ(c->CellAt(50, row).bg.Index(), row < kBottom ? 6 : 3) << row;
    EXPECT_EQ(c->CellAt(0, 0).text, "\u250c");
    EXPECT_EQ(c->CellAt(kCols - 1, kRows - 1).text, "\u2518");

    // F4 flips to the alternate palette and back.
    c->Key("F4");
    EXPECT_TRUE(c->WaitFor([&] { return c->CellAt(50, kBottom).bg.Index() == 2; })) << "alternate bottom";
    EXPECT_EQ(c->CellAt(50, 0).bg.Index(), 0);
    c->Key("F4");
    EXPECT_TRUE(c->WaitFor([&] { return c->CellAt(50, kBottom).bg.Index() == 3; }));
}

// The labels per address source and which warning wins are unit tables (WelcomeText); here the warning box.
TEST(Welcome, WaitingForDhcpShowsTheWarningUnderTheAddresses) {
    Console c(Roomy("dhcp-no-lease"));
    ASSERT_TRUE(c->WaitForTextSettled(kReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("https://0.0.0.0/ (Waiting for DHCP...)")) << c->View().Text();
    // Bottom half, column 16, row 9, dark grey.
    EXPECT_EQ(c->Find("Warning: DHCP lookup failed."), (Pos{16, kBottom + 9})) << c->View().Text();
    EXPECT_EQ(c->CellAt(16, kBottom + 9).fg.Index(), 6);
}

TEST(Welcome, CustomMessageReplacesTheScreenUntilClearedThenTheNoAdapterAlertIsRaisedOnce) {
    TestHost host("no-nics");
    host.ChangeState(
        [](nlohmann::json& s) { s["system"]["welcomeMessage"] = "Authorized use only.\nLab host."; });
    Console c(host, Roomy());
    ASSERT_TRUE(c->WaitForTextSettled("Lab host.")) << c->View().Text();
    EXPECT_EQ(*c->Find("Authorized use only."), (Pos{2, 2}));
    for (const char* gone : {"<F2>", "<F12>", "No compatible network adapter", "Orvane Hypervisor"})
        EXPECT_FALSE(c->View().Contains(gone)) << gone;
    EXPECT_EQ(c->CellAt(0, 0).text, "\u250c");

    // Data is read on every redraw: the message cleared, any key brings the two halves back.
    host.ChangeState([](nlohmann::json& s) { s["system"]["welcomeMessage"] = ""; });
    c->Type("x");
    ASSERT_TRUE(c->WaitForText("No compatible network adapter found. Please consult")) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("Authorized use only."));
    EXPECT_TRUE(c->WaitForText(kReady)) << "the footer may come in a later write";
    EXPECT_FALSE(c->View().Contains("To manage this host"));
    // Every other key redraws with fresh data; the alert stays single.
    for (int i = 0; i < 3; ++i) {
        c->Type("x");
        c->WaitQuiet(80ms);
    }
    EXPECT_TRUE(c->View().Contains("No compatible network adapter found."));
    EXPECT_EQ(host.State()["system"]["alerts"],
              nlohmann::json::array({"No compatible network adapter found."}));
}

// Slow: the shortest idle time-out is one minute.
TEST(WelcomeSession, IdleTimeOutInTheMenuLogsTheUserOut) {
    TestHost host("default");
    host.ChangeState([](nlohmann::json& s) { s["advancedOptions"]["/UserVars/TarnTimeOut"]["value"] = 1; });
    Console c(host, Roomy());
    LogInAsRoot(c);
    ASSERT_TRUE(c->WaitForTextGone(kMenuReady, 75s)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("To manage this host"));
    EXPECT_EQ(host.SyslogMatching("User root logged out due to time out").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_FALSE(audit.empty());
    EXPECT_EQ(audit.back()["event"], "login.disconnect");
    EXPECT_EQ(audit.back()["pairs"], (nlohmann::json{{"reason", "Time out"}}));
    EXPECT_TRUE(c->Running());
}

} // namespace
} // namespace e2e
