// Lockdown mode from the System Customization menu (login as root with the empty password): Enter without
// a change runs no lockdown command, Space and Enter enters lockdown mode and the menu shows it, Esc runs
// nothing.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>

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

// Calls of the lockdown commands (queries of the state are not counted).
size_t LockdownChanges(Console& c) {
    size_t n = 0;
    for (const auto& call : c.Host().ToolCalls())
        for (const auto& word : call)
            n += word == "kelpsvc/auth/lockdown_mode_enter" || word == "kelpsvc/auth/lockdown_mode_exit";
    return n;
}

TEST(Lockdown, EnterWithoutAChangeRunsNoCommand) {
    Console c({.rows = 30, .cols = 100});
    OpenLockdown(c);
    EXPECT_TRUE(c->View().Contains("[ ] " + std::string(kCheckItem)));
    EXPECT_TRUE(c->View().Contains("<Space> Toggle Selected"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_EQ(LockdownChanges(c), 0u);
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
    EXPECT_EQ(LockdownChanges(c), 1u);
    const auto calls = c.Host().ToolCalls();
    bool asServiceAccount = false;
    for (const auto& call : calls)
        asServiceAccount =
            asServiceAccount ||
            call == std::vector<std::string>{"kelp-cmd", "-U", "tarn", "kelpsvc/auth/lockdown_mode_enter"};
    EXPECT_TRUE(asServiceAccount);
    EXPECT_EQ(c.Host().SyslogMatching("Lockdown mode enabled").size(), 1u);
}

TEST(Lockdown, EscAfterSpaceRunsNothing) {
    Console c({.rows = 30, .cols = 100});
    OpenLockdown(c);
    const size_t before = c.Host().ToolCalls().size();
    c->Type(" ");
    ASSERT_TRUE(c->WaitForText("[X] " + std::string(kCheckItem)));
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kCheckItem)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    // The menu asks the host for the lockdown state again; the dialog itself ran nothing.
    const auto calls = c.Host().ToolCalls();
    for (size_t i = before; i < calls.size(); ++i)
        EXPECT_EQ(calls[i].back().rfind("kelpsvc/auth/lockdown_is_", 0), 0u) << calls[i].back();
    EXPECT_EQ(LockdownChanges(c), 0u);
    EXPECT_FALSE(c.Host().HostJson()["lockdown"]["enabled"].get<bool>());
}

} // namespace
} // namespace e2e
