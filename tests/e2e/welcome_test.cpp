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
    const Pos f2 = *c->Find("<F2> Customize System/View Logs");
    EXPECT_EQ(f2, (Pos{2, kRows - 2}));
    const std::string f12 = "<F12> Shut Down/Restart";
    const Pos right = *c->Find(f12);
    EXPECT_EQ(right, (Pos{kCols - 2 - int(f12.size()), kRows - 2}));
    EXPECT_TRUE(TextAt(c, kBottom + 9, 16).empty()) << "no warning on a static host";
    SaveScreenshot(c->View(), "welcome");

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

TEST(Welcome, DhcpLabelsAndWarningPrecedence) {
    struct Case {
        const char* scenario;
        bool auditMode;
        std::vector<std::string> shown;
        const char* absent;
    };
    for (const Case& k : std::vector<Case>{
             {"dhcp", false, {"https://192.0.2.77/ (DHCP)"}, "Warning:"},
             {"dhcp-no-lease", false, {"https://0.0.0.0/ (Waiting for DHCP...)", "Warning: DHCP lookup failed."},
              "audit mode"},
             {"dhcp-no-lease", true, {"Warning: Host is running in audit mode."}, "DHCP lookup failed"}}) {
        SCOPED_TRACE(std::string(k.scenario) + (k.auditMode ? " in audit mode" : ""));
        SimHost host(k.scenario);
        if (k.auditMode)
            EditHost(host, [](nlohmann::json& s) { s["system"]["bootOptions"]["auditMode"] = true; });
        Console c(host, Roomy());
        ASSERT_TRUE(c->WaitForTextSettled(kReady)) << c->View().Text();
        for (const auto& text : k.shown)
            EXPECT_TRUE(c->WaitForText(text)) << text << "\n" << c->View().Text();
        EXPECT_FALSE(c->View().Contains(k.absent));
        // The warning box: bottom half, column 16, row 9, dark grey.
        if (auto warning = c->Find("Warning:")) {
            EXPECT_EQ(*warning, (Pos{16, kBottom + 9}));
            EXPECT_EQ(c->CellAt(warning->col, warning->row).fg.Index(), 6);
        }
    }
}

TEST(Welcome, Ipv6AddressesSortedFourThenEllipsisOrExactlyFive) {
    // Without a host-name line the seven-row box has room for the "..." line.
    SimHost host("ipv6");
    EditHost(host, [](nlohmann::json& s) { s["dns"]["hostname"] = "localhost"; });
    {
        Console c(host, Roomy());
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
        Console c(host, Roomy());
        ASSERT_TRUE(c->WaitForTextSettled(kReady));
        EXPECT_EQ(ManagementLines(c),
                  (std::vector<std::string>{
                      "To manage this host, go to:", "https://192.0.2.10/ (STATIC)",
                      "https://[2001:db8:1::12]/ (STATIC)", "https://[2001:db8::10]/ (STATIC)",
                      "https://[2001:db8::11]/ (STATIC)", "https://[2001:db8::250:56ff:feaa:0]/ (AUTOCONF)",
                      "https://[fe80::250:56ff:feaa:0]/ (AUTOCONF)"}));
    }
}

TEST(Welcome, CustomMessageReplacesTheScreenUntilClearedThenTheNoAdapterAlertIsRaisedOnce) {
    SimHost host("no-nics");
    EditHost(host, [](nlohmann::json& s) { s["system"]["welcomeMessage"] = "Authorized use only.\nLab host."; });
    Console c(host, Roomy());
    ASSERT_TRUE(c->WaitForTextSettled("Lab host.")) << c->View().Text();
    EXPECT_EQ(*c->Find("Authorized use only."), (Pos{2, 2}));
    for (const char* gone : {"<F2>", "<F12>", "No compatible network adapter", "Orvane Hypervisor"})
        EXPECT_FALSE(c->View().Contains(gone)) << gone;
    EXPECT_EQ(c->CellAt(0, 0).text, "\u250c");

    // Data is read on every redraw: the message cleared, any key brings the two halves back.
    EditHost(host, [](nlohmann::json& s) { s["system"]["welcomeMessage"] = ""; });
    c->Type("x");
    ASSERT_TRUE(c->WaitForText("No compatible network adapter found. Please consult")) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("Authorized use only."));
    EXPECT_TRUE(c->View().Contains(kReady));
    EXPECT_FALSE(c->View().Contains("To manage this host"));
    // Every other key redraws with fresh data; the alert stays single.
    for (int i = 0; i < 3; ++i) {
        c->Type("x");
        c->WaitQuiet(80ms);
    }
    EXPECT_TRUE(c->View().Contains("No compatible network adapter found."));
    EXPECT_EQ(host.HostJson()["system"]["alerts"], nlohmann::json::array({"No compatible network adapter found."}));
}

// Slow: the shortest idle time-out is one minute.
TEST(WelcomeSession, IdleTimeOutInTheMenuLogsTheUserOut) {
    SimHost host("default");
    EditHost(host, [](nlohmann::json& s) { s["advancedOptions"]["/UserVars/TarnTimeOut"]["value"] = 1; });
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
