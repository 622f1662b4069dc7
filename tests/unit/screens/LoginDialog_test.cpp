// The login dialog run with keys from a pipe against a simulated host: the keyboard item reached by the Tab
// wrap, PIN-mode and password-mode logins and the session values they leave behind.
#include "ScreenHostFixture.h"

#include "core/EventLoop.h"
#include "core/Session.h"
#include "screens/LoginDialog.h"

namespace Tarn {
namespace {

class LoginDialogTest : public ScreenHostFixture {
protected:
    void TearDown() override {
        SetKeyboardChoice(false);
        SetSmartCardUser("");
        SetSmartCardSessionState("", false);
        SetLoggedInUser("");
        SetEmptyPassword(false);
        ScreenHostFixture::TearDown();
    }

    // A card for jdoe@EXAMPLE in slot 0, and that user with PIN 1234.
    void InsertCard() {
        EditState([](Json& state) {
            state["smartCards"]["slots"][0]["token"] = {{"userId", "jdoe@EXAMPLE"}};
            state["users"].push_back(
                {{"name", "jdoe@EXAMPLE"}, {"password", "1234"}, {"expired", false}, {"permitted", true}});
        });
        SetSmartCardUser("jdoe@EXAMPLE");
    }
};

TEST_F(LoginDialogTest, TabOnThePasswordWrapsToTheKeyboardItem) {
    SetKeyboardChoice(true);
    const Json before = State()["keyboard"]["current"];
    LoginDialog dialog(nullptr);
    Type("\t\t\n"); // login -> password -> keyboard item, which opens the layout choice
    Press("kcud1");
    Type(" \n"); // another layout, taken
    Esc();
    EXPECT_EQ(RunWindow(&dialog), 0);
    EXPECT_NE(State()["keyboard"]["current"], before);
    EXPECT_TRUE(Read("var/log/audit.log").empty()) << "no login was attempted";
}

TEST_F(LoginDialogTest, PinLoginOpensASmartCardSession) {
    InsertCard();
    LoginDialog dialog(nullptr);
    Type("\n1234\n"); // the login id is the card's
    EXPECT_EQ(RunWindow(&dialog), 1);
    EXPECT_EQ(dialog.UserName(), "jdoe@EXAMPLE");
    EXPECT_EQ(LoggedInUser(), "jdoe@EXAMPLE");
    EXPECT_FALSE(EmptyPassword());
    EXPECT_TRUE(SmartCardSession());
    EXPECT_EQ(SmartCardSessionUser(), "jdoe@EXAMPLE");
    EXPECT_TRUE(Logged("User jdoe@EXAMPLE logged in"));
}

TEST_F(LoginDialogTest, F3SwitchesToPasswordLoginWithRoot) {
    InsertCard();
    LoginDialog dialog(nullptr);
    Press("kf3");
    Type("\n\n"); // "root" and the empty password
    EXPECT_EQ(RunWindow(&dialog), 1);
    EXPECT_EQ(LoggedInUser(), "root");
    EXPECT_TRUE(EmptyPassword());
    EXPECT_FALSE(SmartCardSession()) << "a password login opens no smart-card session";
}

TEST_F(LoginDialogTest, DisabledDialogClosesOnEnterOrEsc) {
    std::filesystem::remove(Dir() + "/var/run/orvane/show-tarn-login");
    EXPECT_FALSE(LoginAllowed());
    for (const char* key : {"\n", "\033"}) {
        LoginDisabledDialog dialog(nullptr);
        Type("x");
        Type(key);
        EXPECT_EQ(RunWindow(&dialog), 0);
    }
    EXPECT_TRUE(LogMessages().empty());
}

} // namespace
} // namespace Tarn
