// Lockdown mode from the System Customization menu (login as root with the empty password): Enter without
// a change and Esc run no lockdown command, a refusal is logged with the tool's text, Space and Enter enter
// lockdown mode and the menu shows it. The keyboard dialog is in keyboard_test.cpp.
#include "Flows.h"

#include <algorithm>

namespace e2e {
namespace {

constexpr const char* kCheckItem = "Enable lockdown mode";
const std::string kChecked = "[X] " + std::string(kCheckItem);

// With the menu's cursor on the lockdown entry: opens the dialog and closes it with `keys`.
void RunDialog(Console& c, std::initializer_list<const char*> keys) {
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kCheckItem, 100ms)) << c->View().Text();
    EXPECT_TRUE(c->View().Contains("[ ] " + std::string(kCheckItem)));
    for (const char* key : keys) {
        if (std::string(key) == " ") {
            c->Type(" ");
            ASSERT_TRUE(c->WaitForText(kChecked)) << c->View().Text();
        } else {
            c->Key(key);
        }
    }
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

bool Enabled(const TestHost& host) {
    return host.State()["lockdown"]["enabled"].get<bool>();
}

TEST(Lockdown, NoChangeAndEscRunNothingARefusalIsLoggedThenSpaceAndEnterEnable) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    LogInAsRoot(c);
    MoveTo(c, "When enabled, lockdown mode prevents users");
    RunDialog(c, {"Enter"});
    RunDialog(c, {" ", "Esc"});
    // Only the menu's queries of the state reached the host.
    for (const auto& call : host.ToolCalls())
        EXPECT_EQ(call.back().rfind("kelpsvc/auth/lockdown_is_", 0), 0u) << call.back();
    EXPECT_FALSE(Enabled(host));

    host.ChangeState([](nlohmann::json& s) {
        s["simulation"]["failing"] = {"kelp-cmd kelpsvc/auth/lockdown_mode_enter"};
    });
    RunDialog(c, {" ", "Enter"});
    // The menu runs the command once the dialog has closed.
    const std::string refusal = "Enabling lockdown mode failed with error: kelp-cmd: simulated failure";
    EXPECT_TRUE(c->WaitFor([&] { return !host.SyslogMatching(refusal).empty(); }));
    EXPECT_EQ(host.SyslogMatching(refusal).size(), 1u) << host.Read("var/log/syslog.log");
    EXPECT_FALSE(Enabled(host));

    host.ChangeState([](nlohmann::json& s) { s["simulation"].erase("failing"); });
    const std::vector<std::string> enter = {"kelp-cmd", "-U", "tarn", "kelpsvc/auth/lockdown_mode_enter"};
    const auto triedBefore = std::ranges::count(host.ToolCalls(), enter);
    RunDialog(c, {" ", "Enter"});
    EXPECT_TRUE(c->WaitForText("Enabled")) << c->View().Text();
    EXPECT_TRUE(Enabled(host));
    EXPECT_EQ(std::ranges::count(host.ToolCalls(), enter), triedBefore + 1);
    EXPECT_EQ(host.SyslogMatching("Lockdown mode enabled").size(), 1u);
}

} // namespace
} // namespace e2e
