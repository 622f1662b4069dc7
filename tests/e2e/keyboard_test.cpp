// The keyboard layout choice offered by the host (scenario keyboard-choice): the login dialog's keyboard
// item above the login field, the menu's "Configure Keyboard" entry and its dialog, where only Space changes
// the layout that Enter applies. A host that does not offer the choice shows neither.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace e2e {
namespace {

constexpr const char* kLoginTitle = "Authentication Required";
constexpr const char* kKeyboardItem = "Configured Keyboard (";
constexpr const char* kMenuEntry = "Configure Keyboard";
constexpr const char* kMenuPane = "To select the layout type for the keyboard";
constexpr const char* kDialogText = "If you are having difficulty using your keyboard";

ConsoleOptions Options(const std::string& scenario = "keyboard-choice") {
    return {.scenario = scenario, .rows = 30, .cols = 100};
}

std::string Configured(const SimHost& host) {
    return host.HostJson()["keyboard"]["current"].get<std::string>();
}

// The layout listed just above the configured one: one Up away in the dialog.
std::string LayoutAbove(const SimHost& host) {
    const nlohmann::json keyboard = host.HostJson()["keyboard"];
    const auto layouts = keyboard["layouts"].get<std::vector<std::string>>();
    auto at = std::find(layouts.begin(), layouts.end(), keyboard["current"].get<std::string>());
    if (at == layouts.begin() || at == layouts.end())
        return "";
    return *(at - 1);
}

void OpenLogin(Console& c) {
    ASSERT_TRUE(c->WaitForText("<F2>")) << c->View().Text();
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText(kLoginTitle)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
}

// From the login dialog with the focus on the login field: root with the empty password.
void LogInAsRoot(Console& c) {
    c->Key("Enter");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Configure Password")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(60ms));
}

void OpenKeyboardFromMenu(Console& c) {
    for (int i = 0; i < 12 && !c->View().Contains(kMenuPane); ++i) {
        c->Key("Down");
        c->WaitQuiet(60ms);
    }
    ASSERT_TRUE(c->View().Contains(kMenuPane)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kDialogText)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

void CloseDialogWith(Console& c, const std::string& key) {
    c->Key(key);
    ASSERT_TRUE(c->WaitForTextGone(kDialogText)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

TEST(KeyboardChoice, LoginOffersTheConfiguredLayoutFirstWithTheFocusOnTheLoginField) {
    Console c(Options());
    OpenLogin(c);
    const std::string layout = Configured(c.Host());
    auto item = c->Find(kKeyboardItem + layout + ")");
    auto login = c->Find("Login Name:");
    ASSERT_TRUE(item && login) << c->View().Text();
    EXPECT_LT(item->row, login->row);
    SaveScreenshot(c->View(), "login-keyboard-choice");

    // The focus is on the login field: typed text lands there (the keyboard item would ignore it).
    c->Type("expired");
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_NE(c->Row(login->row).find("expired"), std::string::npos) << c->View().Text();
    EXPECT_TRUE(c->Find(kKeyboardItem + layout + ")")) << c->View().Text();
}

TEST(KeyboardChoice, LoginKeyboardItemOpensTheDialogAndShowsTheNewLayout) {
    Console c(Options());
    OpenLogin(c);
    const std::string above = LayoutAbove(c.Host());
    ASSERT_FALSE(above.empty());
    c->Key("Up");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kDialogText)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
    c->Key("Up");
    c->Type(" ");
    CloseDialogWith(c, "Enter");
    EXPECT_TRUE(c->Find(kKeyboardItem + above + ")")) << c->View().Text();
    EXPECT_EQ(Configured(c.Host()), above);
    EXPECT_TRUE(c->Find(kLoginTitle)) << "back in the login dialog";
}

TEST(KeyboardChoice, MenuDialogAppliesOnlyTheLayoutMarkedWithSpace) {
    Console c(Options());
    OpenLogin(c);
    LogInAsRoot(c);
    EXPECT_TRUE(c->Find(kMenuEntry)) << c->View().Text();
    const std::string before = Configured(c.Host());
    const std::string above = LayoutAbove(c.Host());
    ASSERT_FALSE(above.empty());

    // The cursor moves but nothing is marked: Enter applies the configured layout again.
    OpenKeyboardFromMenu(c);
    EXPECT_TRUE(c->Find("(o) " + before)) << c->View().Text();
    c->Key("Up");
    CloseDialogWith(c, "Enter");
    EXPECT_EQ(Configured(c.Host()), before);
    EXPECT_EQ(c.Host().SyslogMatching("Keyboard Layout changed to " + before).size(), 1u);
    EXPECT_TRUE(c.Host().SyslogMatching("Keyboard Layout changed to " + above).empty());

    // Space marks the layout under the cursor; Enter stores it and the menu pane shows it.
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kDialogText)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
    c->Key("Up");
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("(o) " + above)) << c->View().Text();
    EXPECT_TRUE(c->Find("( ) " + before)) << c->View().Text();
    SaveScreenshot(c->View(), "keyboard-dialog");
    CloseDialogWith(c, "Enter");
    EXPECT_EQ(Configured(c.Host()), above);
    EXPECT_EQ(c.Host().SyslogMatching("Keyboard Layout changed to " + above).size(), 1u)
        << c.Host().ReadFile("var/log/syslog.log");
    EXPECT_TRUE(c->WaitForText(above)) << c->View().Text();
}

TEST(KeyboardChoice, EscLeavesTheLayoutAsItWas) {
    Console c(Options());
    OpenLogin(c);
    LogInAsRoot(c);
    const std::string before = Configured(c.Host());
    OpenKeyboardFromMenu(c);
    c->Key("Up");
    c->Type(" ");
    CloseDialogWith(c, "Esc");
    EXPECT_EQ(Configured(c.Host()), before);
    EXPECT_TRUE(c.Host().SyslogMatching("Keyboard Layout changed to").empty());
}

TEST(KeyboardChoice, HostThatDoesNotOfferItShowsNeitherItemNorEntry) {
    Console c(Options("default"));
    OpenLogin(c);
    EXPECT_FALSE(c->Find(kKeyboardItem)) << c->View().Text();
    LogInAsRoot(c);
    EXPECT_TRUE(c->Find("Troubleshooting Options")) << c->View().Text();
    EXPECT_FALSE(c->Find(kMenuEntry)) << c->View().Text();
}

} // namespace
} // namespace e2e
