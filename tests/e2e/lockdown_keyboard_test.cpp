// Lockdown mode from the System Customization menu (login as root with the empty password): Enter without
// a change and Esc run no lockdown command, Space and Enter enters lockdown mode and the menu shows it, a
// refusal is logged. The keyboard dialog, offered only by hosts that ask for it, is in keyboard_test.cpp.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace e2e {
namespace {

constexpr const char* kLockdownPane = "When enabled, lockdown mode prevents users";
constexpr const char* kCheckItem = "Enable lockdown mode";

void OpenLockdown(Console& c) {
    ASSERT_TRUE(c->WaitForText("<F2>"));
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText("Login Name:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter"); // login name "root" as preset
    c->Key("Enter"); // empty password
    ASSERT_TRUE(c->WaitForText("Configure Password")) << c->View().Text();
    for (int i = 0; i < 10 && !c->View().Contains(kLockdownPane); ++i) {
        c->Key("Down");
        c->WaitQuiet(60ms);
    }
    ASSERT_TRUE(c->View().Contains(kLockdownPane)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kCheckItem)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));
}

TEST(Lockdown, EnterWithoutAChangeAndEscAfterSpaceRunNoCommand) {
    Console c({.rows = 30, .cols = 100});
    OpenLockdown(c);
    EXPECT_TRUE(c->View().Contains("[ ] " + std::string(kCheckItem)));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(100ms));

    c->Key("Enter"); // the menu still has the lockdown entry selected
    ASSERT_TRUE(c->WaitForText(kCheckItem)) << c->View().Text();
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem)));
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    // Only the menu's queries of the state reached the host.
    for (const auto& call : c.Host().ToolCalls())
        EXPECT_EQ(call.back().rfind("kelpsvc/auth/lockdown_is_", 0), 0u) << call.back();
    EXPECT_FALSE(c.Host().HostJson()["lockdown"]["enabled"].get<bool>());
}

TEST(Lockdown, SpaceAndEnterEntersLockdownModeAndTheMenuShowsIt) {
    Console c({.rows = 30, .cols = 100});
    OpenLockdown(c);
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem))) << c->View().Text();
    SaveScreenshot(c->View(), "lockdown-dialog");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("Enabled")) << c->View().Text();
    EXPECT_TRUE(c.Host().HostJson()["lockdown"]["enabled"].get<bool>());
    const std::vector<std::string> enter = {"kelp-cmd", "-U", "tarn", "kelpsvc/auth/lockdown_mode_enter"};
    const auto calls = c.Host().ToolCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), enter), 1);
    EXPECT_EQ(c.Host().SyslogMatching("Lockdown mode enabled").size(), 1u);
}

TEST(Lockdown, RefusedCommandIsLoggedWithTheToolsText) {
    Console c({.rows = 30, .cols = 100});
    auto host = c.Host().HostJson();
    host["simulation"]["failing"] = {"kelp-cmd kelpsvc/auth/lockdown_mode_enter"};
    c.Host().WriteFile("etc/simhost/host.json", host.dump());
    OpenLockdown(c);
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem)));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    const std::string failure = "Enabling lockdown mode failed with error: kelp-cmd: simulated failure";
    EXPECT_EQ(c.Host().SyslogMatching(failure).size(), 1u) << c.Host().ReadFile("var/log/syslog.log");
    EXPECT_FALSE(c.Host().HostJson()["lockdown"]["enabled"].get<bool>());
}

} // namespace
} // namespace e2e
