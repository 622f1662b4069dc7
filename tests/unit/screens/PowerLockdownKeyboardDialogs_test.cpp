// The lockdown, keyboard and shut-down dialogs run with keys from a pipe against a simulated host: what
// they run, log and change, and that Esc runs nothing.
#include "ScreenHostFixture.h"

#include "core/EventLoop.h"
#include "core/Session.h"
#include "screens/KeyboardDialog.h"
#include "screens/LockdownDialog.h"
#include "screens/ShutdownDialog.h"

#include <algorithm>
#include <filesystem>

namespace Tarn {
namespace {

using DialogsTest = ScreenHostFixture;

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(DialogsTest, EscRunsNothingInAnyDialog) {
    {
        LockdownDialog dialog(nullptr, false);
        Type(" ");
        Esc();
        EXPECT_EQ(RunWindow(&dialog), 0);
        EXPECT_FALSE(dialog.LockdownEnabled());
    }
    {
        KeyboardDialog dialog(nullptr);
        Press("kcud1");
        Type(" ");
        Esc();
        EXPECT_EQ(RunWindow(&dialog), 0);
    }
    {
        ShutdownDialog dialog(nullptr);
        Type(" ");
        Esc();
        EXPECT_EQ(RunWindow(&dialog), 0);
    }
    EXPECT_TRUE(Calls().empty());
    EXPECT_FALSE(State()["lockdown"]["enabled"].get<bool>());
    EXPECT_EQ(State()["keyboard"]["current"], "US Default");
    EXPECT_EQ(State()["power"]["state"], "on");
}

TEST_F(DialogsTest, LockdownEnterWithoutAChangeRunsNothing) {
    for (bool enabled : {false, true}) {
        LockdownDialog dialog(nullptr, enabled);
        Press("kcud1"); // moving within the one-item list changes nothing
        Press("kcuu1");
        Type("\n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_EQ(dialog.LockdownEnabled(), enabled);
    }
    EXPECT_TRUE(Calls().empty());
    EXPECT_TRUE(LogMessages().empty()) << LogMessages().front();
}

TEST_F(DialogsTest, LockdownToggleRunsEnterThenExitAsTheServiceAccount) {
    {
        LockdownDialog dialog(nullptr, false);
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_TRUE(dialog.LockdownEnabled());
    }
    EXPECT_TRUE(State()["lockdown"]["enabled"].get<bool>());
    {
        LockdownDialog dialog(nullptr, true);
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_FALSE(dialog.LockdownEnabled());
    }
    EXPECT_FALSE(State()["lockdown"]["enabled"].get<bool>());
    EXPECT_EQ(Calls(), (std::vector<std::string>{"kelp-cmd -U tarn kelpsvc/auth/lockdown_mode_enter",
                                                 "kelp-cmd -U tarn kelpsvc/auth/lockdown_mode_exit"}));
    EXPECT_TRUE(Logged("Lockdown mode enabled"));
    EXPECT_TRUE(Logged("Lockdown mode disabled"));
}

TEST_F(DialogsTest, LockdownFailureIsLoggedWithTheToolsTextAndKeepsTheState) {
    EditState([](Json& s) { s["lockdown"]["possible"] = false; });
    LockdownDialog dialog(nullptr, false);
    Type(" \n");
    EXPECT_EQ(RunWindow(&dialog), 1); // Enter closes the dialog whatever the outcome
    EXPECT_FALSE(dialog.LockdownEnabled());
    EXPECT_FALSE(State()["lockdown"]["enabled"].get<bool>());
    EXPECT_TRUE(
        Logged("Enabling lockdown mode failed with error: kelp-cmd: Lockdown mode cannot be enabled on "
               "this host"))
        << ::testing::PrintToString(LogMessages());
    EXPECT_FALSE(Logged("Lockdown mode enabled"));
}

TEST_F(DialogsTest, KeyboardEnterAppliesTheMarkedLayoutNotTheOneUnderTheCursor) {
    {
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), 25); // "US Default" in the default host's list
        Press("kcud1");
        Press("kcud1");
        Type("\n");
        EXPECT_EQ(RunWindow(&dialog), 1);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "US Default");
    EXPECT_TRUE(Logged("Keyboard Layout changed to US Default"));
    {
        // The cursor starts on the configured layout: one down is "US Dvorak".
        KeyboardDialog dialog(nullptr);
        Press("kcud1");
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_EQ(dialog.Marked(), 26);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "US Dvorak");
    EXPECT_TRUE(Logged("Keyboard Layout changed to US Dvorak"));
    {
        // Space on another item moves the mark; the last one marked wins.
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), 26);
        Press("kcuu1");
        Type(" ");
        Press("kcuu1");
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_EQ(dialog.Marked(), 24);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "Turkish");
}

TEST_F(DialogsTest, KeyboardWithoutAMarkOrWithAFailingHostStillCloses) {
    EditState([](Json& s) { s["keyboard"]["current"] = "Klingon"; });
    {
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), -1);
        Type("\n");
        EXPECT_EQ(RunWindow(&dialog), 1);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "Klingon");
    EXPECT_FALSE(Logged("Keyboard Layout changed to Klingon"));

    // The layout disappears from the host between opening and Enter: the failure is logged, Enter still
    // closes with 1.
    KeyboardDialog dialog(nullptr);
    Type(" \n");
    EditState([](Json& s) { s["keyboard"]["layouts"] = Json::array({"German"}); });
    EXPECT_EQ(RunWindow(&dialog), 1);
    EXPECT_EQ(State()["keyboard"]["current"], "Klingon");
    bool failureLogged = false;
    for (const std::string& m : LogMessages())
        failureLogged = failureLogged || Contains(m, "keyboard layout failed");
    EXPECT_TRUE(failureLogged) << ::testing::PrintToString(LogMessages());
}

TEST_F(DialogsTest, PowerCommandThatCannotStartReturnsToTheShutdownDialog) {
    SetLoggedInUser("root");
    std::filesystem::remove(Dir() + "/sbin/poweroff");
    std::filesystem::remove(Dir() + "/sbin/reboot");

    ShutdownDialog dialog(nullptr);
    Type(" "); // force running virtual machines off
    Press("kf2");
    Type(" "); // back to the policy's stop
    Press("kf11");
    Esc();
    EXPECT_EQ(RunWindow(&dialog), 0);

    // kelp-cmd refuses "root" on the default host (exit 255) and is run again as "tarn".
    const std::string autostopAsRoot = "kelp-cmd -U root hostsvc/autostartmanager/autostop";
    const std::string autostopAsTarn = "kelp-cmd -U tarn hostsvc/autostartmanager/autostop";
    EXPECT_EQ(Calls(), (std::vector<std::string>{autostopAsRoot, autostopAsTarn, "haltGuests --terminate",
                                                 autostopAsRoot, autostopAsTarn, "haltGuests"}));
    EXPECT_EQ(State()["power"]["state"], "on");

    const std::vector<std::string> messages = LogMessages();
    const auto shutdown = std::find(messages.begin(), messages.end(), "Shutting down host");
    const auto reboot = std::find(messages.begin(), messages.end(), "Rebooting host");
    EXPECT_NE(shutdown, messages.end());
    EXPECT_NE(reboot, messages.end());
    EXPECT_LT(shutdown, reboot);
    const std::string events = Read("var/log/obed.log");
    EXPECT_TRUE(Contains(events, "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host")) << events;
    EXPECT_TRUE(Contains(events, "@&!*@*@(obe.user.tarn.reboot.host)Rebooting host")) << events;
    SetLoggedInUser("");
}

} // namespace
} // namespace Tarn
