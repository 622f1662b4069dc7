// The keyboard layout choice offered by the host (scenario keyboard-choice): the login dialog's keyboard
// item above the login field, the menu's "Configure Keyboard" entry and its dialog, where only Space changes
// the layout that Enter applies. The default host offers neither (menu_test.cpp, login_test.cpp).
#include "Flows.h"
#include "harness/Screenshot.h"

#include <algorithm>

namespace e2e {
namespace {

constexpr const char* kKeyboardItem = "Configured Keyboard (";
constexpr const char* kDialogText = "If you are having difficulty using your keyboard";

std::string Configured(const TestHost& host) {
    return host.State()["keyboard"]["current"].get<std::string>();
}

// The layout listed just above the configured one: one Up away in the dialog.
std::string LayoutAbove(const TestHost& host) {
    const nlohmann::json keyboard = host.State()["keyboard"];
    const auto layouts = keyboard["layouts"].get<std::vector<std::string>>();
    auto at = std::find(layouts.begin(), layouts.end(), keyboard["current"].get<std::string>());
    return at == layouts.begin() || at == layouts.end() ? "" : *(at - 1);
}

void OpenDialogWithEnter(Console& c) {
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kDialogText, 100ms)) << c->View().Text();
}

void CloseDialogWith(Console& c, const std::string& key) {
    c->Key(key);
    ASSERT_TRUE(c->WaitForTextGone(kDialogText)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

// Esc, and Enter without a mark, are the keyboard dialog's unit tests; Tab from the password to the item too.
TEST(KeyboardChoice, LoginItemAboveTheFocusedLoginFieldThenTheMenuDialogAppliesTheMarkedLayout) {
    Console c(Roomy("keyboard-choice"));
    const TestHost& host = c.Host();
    OpenLogin(c);
    std::string before = Configured(host), above = LayoutAbove(host);
    ASSERT_FALSE(above.empty());
    auto item = c->Find(kKeyboardItem + before + ")");
    auto login = c->Find("Login Name:");
    ASSERT_TRUE(item && login) << c->View().Text();
    EXPECT_LT(item->row, login->row);
    SaveScreenshot(c->View(), "login-keyboard-choice");

    // The focus is on the login field: typed text lands there (the keyboard item would ignore it).
    c->Type("expired");
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_NE(c->Row(login->row).find("expired"), std::string::npos) << c->View().Text();
    c->Key("Up");
    OpenDialogWithEnter(c);
    c->Key("Up");
    c->Type(" ");
    CloseDialogWith(c, "Enter");
    EXPECT_TRUE(c->WaitForText(kKeyboardItem + above + ")")) << c->View().Text();
    EXPECT_EQ(Configured(host), above);
    ASSERT_TRUE(c->Find(kLoginTitle)) << "back in the login dialog";

    // Back on the login field, whose value is fresh again: typing replaces it.
    c->Key("Down");
    c->Type("root");
    c->Key("Enter");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kMenuReady, 100ms)) << c->View().Text();
    before = above;
    above = LayoutAbove(host);
    ASSERT_FALSE(above.empty());
    MoveTo(c, "To select the layout type for the keyboard");
    EXPECT_TRUE(c->Find("Configure Keyboard")) << c->View().Text();
    // Space marks the layout under the cursor; Enter stores it and the menu pane shows it.
    OpenDialogWithEnter(c);
    c->Key("Up");
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("(o) " + above)) << c->View().Text();
    // The two rows may arrive in separate writes.
    EXPECT_TRUE(c->WaitForText("( ) " + before)) << c->View().Text();
    SaveScreenshot(c->View(), "keyboard-dialog");
    CloseDialogWith(c, "Enter");
    EXPECT_TRUE(
        c->WaitFor([&] { return !host.SyslogMatching("Keyboard Layout changed to " + above).empty(); }));
    EXPECT_EQ(Configured(host), above);
    EXPECT_EQ(host.SyslogMatching("Keyboard Layout changed to " + above).size(), 1u)
        << host.Read("var/log/syslog.log");
    EXPECT_TRUE(c->WaitForText(above)) << c->View().Text();
}

} // namespace
} // namespace e2e
