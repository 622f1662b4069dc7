// The System Customization menu as an operator meets it after logging in as root (empty password): the
// password state, entries that cannot be chosen, the log list and the pager, an entry's error message,
// paging, the bytes one cursor move costs, and leaving it.
#include "Flows.h"
#include "harness/Screenshot.h"

#include <csignal>

namespace e2e {
namespace {

constexpr const char* kLogPane = "Press the corresponding key to view a log.";
constexpr const char* kReminder = "Change default password to prevent unauthorized access";

// A list entry drawn as one that cannot be chosen: dark grey on amber.
bool Greyed(Console& c, const std::string& label) {
    auto at = c->Find(label);
    if (!at)
        return false;
    Cell cell = c->CellAt(at->col, at->row);
    return cell.fg.Index() == 6 && cell.bg.Index() == 3;
}

TEST(Menu, FreshHostSessionsChangeTheEmptyPasswordAndLogOut) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    EXPECT_TRUE(c->View().Contains("Not set"));
    EXPECT_TRUE(c->View().Contains(kReminder));
    EXPECT_TRUE(c->View().Contains("<Enter> Change"));
    for (const char* label : {"Configure Lockdown Mode", "Configure Management Network", "View System Logs",
                              "Reset System Configuration"})
        EXPECT_FALSE(Greyed(c, label)) << label;
    EXPECT_TRUE(c->Find("Troubleshooting Options"));
    EXPECT_FALSE(c->Find("Configure Keyboard")) << "the default host offers no keyboard choice";
    SaveScreenshot(c->View(), "menu");

    // The reminder stays whatever entry is selected.
    MoveTo(c, "When enabled, lockdown mode prevents users");
    EXPECT_TRUE(c->View().Contains("Disabled"));
    EXPECT_TRUE(c->View().Contains(kReminder));
    MoveTo(c, "To view or modify");
    EXPECT_TRUE(c->View().Contains("host01")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("192.0.2.10"));

    // Back to the first entry: setting a password clears the empty-password state.
    c->Key("Up");
    c->Key("Up");
    ASSERT_TRUE(c->WaitQuiet(60ms));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Old Password:", 50ms)) << c->View().Text();
    c->Key("Enter"); // the empty old password is right
    for (int i = 0; i < 2; ++i) {
        c->Type("Root#Pass1");
        c->Key("Enter");
    }
    ASSERT_TRUE(c->WaitForTextGone("Old Password:")) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("Not set")) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone(kReminder)) << c->View().Text();
    EXPECT_TRUE(WaitForSyslog(c, "Login password for user root has changed"));

    // Esc logs out back to the welcome screen.
    ASSERT_TRUE(c->WaitQuiet(100ms));
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kMenuReady)) << c->View().Text();
    ASSERT_TRUE(WaitForSyslog(c, "User root logged out"));

    // A second session; a restart asked during it only waits for the session's end.
    OpenLogin(c);
    c->Key("Enter");
    c->Type("Root#Pass1");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();
    c->Signal(SIGUSR2);
    EXPECT_FALSE(c->WaitExit(150ms));
    c->Key("Esc");
    auto status = c->WaitExit();
    ASSERT_TRUE(status) << c->View().Text();
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    EXPECT_EQ(host.SyslogMatching("User root logged out").size(), 2u);
    const auto audit = AuditRecords(host);
    ASSERT_FALSE(audit.empty());
    EXPECT_EQ(audit.back()["event"], "login.disconnect");
    EXPECT_EQ(audit.back()["user"], "root");
    EXPECT_EQ(audit.back()["pairs"], (nlohmann::json{{"reason", "Session closed"}}));
}

TEST(Menu, EntriesThatCannotBeChosenAreGreyedAndSkipped) {
    // The management interface goes away while the menu shows: restarting it reports that, and the menu,
    // asking the host again, greys the network entries and skips them. (The other enabling rules are the
    // menu table's unit tests.)
    Console c(Roomy());
    LogInAsRoot(c);
    MoveTo(c, "Restarting the management");
    c.Host().ChangeState([](nlohmann::json& s) { s["management"] = ""; });
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Management network interface cannot be found.")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Restart Management Network: Error"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Management network interface cannot be found."));
    ASSERT_TRUE(c->WaitFor([&] {
        return Greyed(c, "Configure Management Network") && Greyed(c, "Test Management Network");
    })) << c->View().Text();
    EXPECT_FALSE(Greyed(c, "Network Restore Options"));
    c->Key("Up"); // from the restart entry past the greyed one above it
    EXPECT_TRUE(c->WaitForText("When enabled, lockdown mode prevents users")) << c->View().Text();
    c->Key("Down"); // past the three network entries
    EXPECT_TRUE(c->WaitForText("To view various network restore options")) << c->View().Text();
}

TEST(Menu, CursorMoveLogListPagerAndSupportPaging) {
    Console c({.rows = 16, .cols = 100});
    std::string support = "# comment line\n";
    for (int i = 1; i <= 30; ++i)
        support += (i < 10 ? "support line 0" : "support line ") + std::to_string(i) + "\n";
    c.Host().Write("etc/orvane/support", support);
    LogInAsRoot(c);
    // One cursor move writes the two list rows and the pane's changed text only.
    MoveTo(c, "To view various troubleshooting");
    ASSERT_TRUE(c->WaitQuiet(100ms));
    const size_t before = c->Output().size();
    c->Key("Up");
    ASSERT_TRUE(c->WaitForText("To view various network restore options"));
    ASSERT_TRUE(c->WaitQuiet(100ms));
    // Measured 469: about 45 bytes for each list row (the focus bar spans the row), the rest is the pane.
    EXPECT_LE(c->Output().size() - before, 550u);

    // Only the console's syslog and the management agent's log remain; the list is checked on each drawing.
    for (const char* log : {"tessel", "sysboot", "plexa", "haagd", "obed"})
        std::remove(c.Host().Path(std::string("var/log/") + log + ".log").c_str());
    MoveTo(c, kLogPane);
    EXPECT_TRUE(c->View().Contains("<1> Syslog")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("<2> Management Agent (stewd)"));
    EXPECT_FALSE(c->View().Contains("<3>"));
    EXPECT_FALSE(c->View().Contains("Tessel"));
    c->Type("3"); // no third file: nothing happens
    c->WaitQuiet(100ms);
    ASSERT_TRUE(c->View().Contains(kLogPane));
    const std::string stewd = c.Host().Read("var/log/stewd.log");
    ASSERT_NE(stewd.find('\n'), 0u);
    c->Type("2");
    ASSERT_TRUE(c->WaitForText("<Q> Quit </> RegExp Search <H> Help")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains(stewd.substr(0, std::min<size_t>(60, stewd.find('\n')))))
        << c->View().Text();
    EXPECT_FALSE(c->View().Contains(kMenuReady));
    c->Type("q");
    ASSERT_TRUE(c->WaitForText(kLogPane)) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextSettled(kMenuReady));
    EXPECT_FALSE(c->View().Contains("RegExp Search"));

    // Keys work again after the terminal came back: the support text pages, from the top on each visit.
    c->Key("Down");
    ASSERT_TRUE(c->WaitForText("support line 01")) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("<Page Down>"));
    EXPECT_FALSE(c->View().Contains("<Page Up>"));
    EXPECT_FALSE(c->View().Contains("comment line"));
    c->Key("PageDown");
    ASSERT_TRUE(c->WaitForText("<Page Up>")) << c->View().Text();
    EXPECT_FALSE(c->View().Contains("support line 01"));
    c->Key("PageUp");
    ASSERT_TRUE(c->WaitForTextGone("<Page Up>"));
    c->Key("PageDown");
    ASSERT_TRUE(c->WaitForText("<Page Up>"));
    c->Key("Down");
    ASSERT_TRUE(c->WaitForTextGone("<Page Up>"));
    c->Key("Up");
    ASSERT_TRUE(c->WaitForText("<Page Down>"));
    EXPECT_FALSE(c->View().Contains("<Page Up>"));
}

} // namespace
} // namespace e2e
