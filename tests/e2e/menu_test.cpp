// The System Customization menu as an operator meets it after logging in as root (empty password): entries
// that cannot be chosen, the password state, the log list and the pager, an entry's error message, paging,
// the bytes one cursor move costs, and Esc back to the welcome screen.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>

namespace e2e {
namespace {

constexpr const char* kMenuReady = "Configure Password";
constexpr const char* kLogPane = "Press the corresponding key to view a log.";

ConsoleOptions MenuOptions(const std::string& scenario = "default") {
    return {.scenario = scenario, .rows = 30, .cols = 100};
}

// From the welcome screen through the login dialog (root, empty password) into the menu.
void LogIn(Console& c) {
    ASSERT_TRUE(c->WaitForText("<F2>"));
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText("Login Name:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter"); // the preset name "root", on to the password
    c->Key("Enter"); // the empty password
    ASSERT_TRUE(c->WaitForText(kMenuReady)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

// Moves the cursor down until the pane shows `paneText`.
void MoveTo(Console& c, const std::string& paneText) {
    for (int i = 0; i < 20 && !c->View().Contains(paneText); ++i) {
        c->Key("Down");
        c->WaitQuiet(60ms);
    }
    ASSERT_TRUE(c->View().Contains(paneText)) << c->View().Text();
}

// A list entry drawn as one that cannot be chosen: dark grey on amber.
bool Greyed(Console& c, const std::string& label) {
    auto at = c->Find(label);
    if (!at)
        return false;
    Cell cell = c->CellAt(at->col, at->row);
    return cell.fg.Index() == 6 && cell.bg.Index() == 3;
}

TEST(Menu, FreshHostShowsPasswordNotSetAndEscReturnsToWelcome) {
    Console c(MenuOptions());
    LogIn(c);
    EXPECT_TRUE(c->View().Contains("Not set"));
    EXPECT_TRUE(c->View().Contains("Change default password to prevent unauthorized access"));
    EXPECT_TRUE(c->View().Contains("<Enter> Change"));
    for (const char* label : {"Configure Lockdown Mode", "Configure Management Network", "View System Logs",
                              "Reset System Configuration"})
        EXPECT_FALSE(Greyed(c, label)) << label;
    SaveScreenshot(c->View(), "menu");

    // The reminder stays whatever entry is selected.
    MoveTo(c, "When enabled, lockdown mode prevents users");
    EXPECT_TRUE(c->View().Contains("Disabled"));
    EXPECT_TRUE(c->View().Contains("Change default password to prevent unauthorized access"));
    MoveTo(c, "To view or modify");
    EXPECT_TRUE(c->View().Contains("host01")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("192.0.2.10"));

    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kMenuReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("<F2>"));
    EXPECT_TRUE(c->Running());
}

TEST(Menu, EntriesThatCannotBeChosenAreGreyedAndSkipped) {
    {
        SimHost host("default");
        nlohmann::json state = host.HostJson();
        state["management"] = ""; // a host whose tesnics carry no management traffic
        host.WriteFile("etc/simhost/host.json", state.dump(2));
        Console c(host, MenuOptions());
        LogIn(c);
        for (const char* label :
             {"Configure Management Network", "Restart Management Network", "Test Management Network"})
            EXPECT_TRUE(Greyed(c, label)) << label << "\n" << c->View().Text();
        EXPECT_FALSE(Greyed(c, "Network Restore Options"));
        c->Key("Down"); // lockdown
        c->Key("Down"); // past the three network entries
        EXPECT_TRUE(c->WaitForText("To view various network restore options")) << c->View().Text();
    }
    {
        Console c(MenuOptions("pxe-boot"));
        LogIn(c);
        EXPECT_TRUE(Greyed(c, "Reset System Configuration")) << c->View().Text();
        EXPECT_FALSE(Greyed(c, "Configure Management Network"));
    }
}

TEST(Menu, LogsAreNumberedByPresenceAndTheDigitOpensThatFileInThePager) {
    Console c(MenuOptions());
    LogIn(c);
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

    const std::string stewd = c.Host().ReadFile("var/log/stewd.log");
    const std::string firstLine = stewd.substr(0, stewd.find('\n'));
    ASSERT_FALSE(firstLine.empty());
    c->Type("2");
    ASSERT_TRUE(c->WaitForText("<Q> Quit </> RegExp Search <H> Help")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains(firstLine.substr(0, 60))) << c->View().Text();
    EXPECT_FALSE(c->View().Contains(kMenuReady));

    c->Type("q");
    ASSERT_TRUE(c->WaitForText(kLogPane)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText(kMenuReady));
    EXPECT_FALSE(c->View().Contains("RegExp Search"));
    // Keys work again after the terminal came back.
    c->Key("Down");
    EXPECT_TRUE(c->WaitForText("Orvane Support")) << c->View().Text();
}

TEST(Menu, SupportInformationPagesAndResetsWhenLeft) {
    Console c({.scenario = "default", .rows = 16, .cols = 100});
    std::string text = "# comment line\n";
    for (int i = 1; i <= 30; ++i)
        text += (i < 10 ? "support line 0" : "support line ") + std::to_string(i) + "\n";
    c.Host().WriteFile("etc/orvane/support", text);
    LogIn(c);
    MoveTo(c, "support line 01");
    EXPECT_TRUE(c->View().Contains("<Page Down>"));
    EXPECT_FALSE(c->View().Contains("<Page Up>"));
    EXPECT_FALSE(c->View().Contains("comment line"));
    c->Key("PageDown");
    ASSERT_TRUE(c->WaitForText("<Page Up>")) << c->View().Text();
    EXPECT_FALSE(c->View().Contains("support line 01"));
    c->Key("PageUp");
    ASSERT_TRUE(c->WaitForTextGone("<Page Up>"));
    c->Key("PageDown");
    ASSERT_TRUE(c->WaitForText("<Page Up>"));
    // Leaving the entry and coming back starts at the top again.
    c->Key("Down");
    ASSERT_TRUE(c->WaitForTextGone("<Page Up>"));
    c->Key("Up");
    ASSERT_TRUE(c->WaitForText("<Page Down>"));
    EXPECT_FALSE(c->View().Contains("<Page Up>"));
}

TEST(Menu, RestartReportsAManagementInterfaceThatIsGone) {
    Console c(MenuOptions());
    LogIn(c);
    MoveTo(c, "Restarting the management");
    nlohmann::json host = c.Host().HostJson();
    host["management"] = "";
    c.Host().WriteFile("etc/simhost/host.json", host.dump(2));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Management network interface cannot be found.")) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("Restart Management Network: Error"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Management network interface cannot be found."));
    // The menu asked the host again: the network entries can no longer be chosen.
    EXPECT_TRUE(c->WaitFor([&] { return Greyed(c, "Configure Management Network"); })) << c->View().Text();
}

TEST(Menu, OneCursorMoveWritesFewBytes) {
    Console c(MenuOptions());
    LogIn(c);
    // Up from the troubleshooting entry: the two list rows and the pane's changed text only.
    MoveTo(c, "To view various troubleshooting");
    ASSERT_TRUE(c->WaitQuiet(100ms));
    const size_t before = c->Output().size();
    c->Key("Up");
    ASSERT_TRUE(c->WaitForText("To view various network restore options"));
    ASSERT_TRUE(c->WaitQuiet(100ms));
    const size_t written = c->Output().size() - before;
    std::printf("bytes for one move: %zu\n", written);
    // Measured 469: about 45 bytes for each list row (the focus bar spans the row), the rest is the pane's
    // new text.
    EXPECT_LE(written, 550u);
}

} // namespace
} // namespace e2e
