// The keyboard dialog with keys from a pipe against a simulated host (default list: "US Default" is entry
// 25 of 29 and configured): Enter applies the marked layout, not the one under the cursor.
#include "ScreenHostFixture.h"

#include "core/EventLoop.h"
#include "screens/KeyboardDialog.h"

namespace Tarn {
namespace {

using KeyboardDialogTest = ScreenHostFixture;

TEST_F(KeyboardDialogTest, EnterAppliesTheMarkedLayoutAndEscNothing) {
    {
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), 25);
        Press("kcud1");
        Press("kcud1");
        Type("\n");
        EXPECT_EQ(RunWindow(&dialog), 1);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "US Default");
    EXPECT_TRUE(Logged("Keyboard Layout changed to US Default"));
    {
        KeyboardDialog dialog(nullptr); // the cursor starts on the configured layout
        Press("kcud1");
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "US Dvorak");
    {
        // Space elsewhere moves the mark; the last one marked wins.
        KeyboardDialog dialog(nullptr);
        Press("kcuu1");
        Type(" ");
        Press("kcuu1");
        Type(" \n");
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_EQ(dialog.Marked(), 24);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "Turkish");
    {
        KeyboardDialog dialog(nullptr);
        Press("kcud1");
        Type(" \033");
        EXPECT_EQ(RunWindow(&dialog), 0);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "Turkish");
}

TEST_F(KeyboardDialogTest, NoMarkOrAFailingHostStillClosesWithEnter) {
    EditState([](Json& s) { s["keyboard"]["current"] = "Klingon"; });
    {
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), -1);
        Type("\n");
        EXPECT_EQ(RunWindow(&dialog), 1);
    }
    EXPECT_EQ(State()["keyboard"]["current"], "Klingon");

    // "Default" is marked with Space, then leaves the host's list before Enter.
    KeyboardDialog dialog(nullptr);
    Type(" \n");
    EditState([](Json& s) { s["keyboard"]["layouts"] = Json::array({"German"}); });
    EXPECT_EQ(RunWindow(&dialog), 1);
    EXPECT_EQ(State()["keyboard"]["current"], "Klingon");
    EXPECT_TRUE(Logged("Changing keyboard layout failed: unknown keyboard layout 'Default'"))
        << Read("var/log/syslog.log");
}

} // namespace
} // namespace Tarn
