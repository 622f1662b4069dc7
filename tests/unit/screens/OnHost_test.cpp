// Screens run against a simulated host: the keyboard and login dialogs with keys from a pipe, the console's
// PAM calls for every login outcome and the password change, and the welcome facts a host state yields.
#include "support/ActiveTestHost.h"
#include "support/OffscreenTerminal.h"

#include "core/EventLoop.h"
#include "core/Session.h"
#include "hostops/HostActions.h"
#include "platform/DnsConfig.h"
#include "platform/SystemInfo.h"
#include "screens/KeyboardDialog.h"
#include "screens/LoginDialog.h"
#include "screens/Pam.h"
#include "screens/WelcomeFacts.h"
#include "ui/RunWindow.h"

#include <security/pam_appl.h>

namespace Tarn {
namespace {

// Dialogs run for real against the host, with keys from a pipe.
class OnHostTerminal : public Testing::OffscreenTerminal {
protected:
    using Json = TestHost::Json;
    ActiveTestHost host_;
};

using KeyboardDialogTest = OnHostTerminal;

// Default list: "US Default" is entry 25 of 29 and configured. Enter applies the marked layout, not the one
// under the cursor; Space moves the mark; Esc applies nothing.
TEST_F(KeyboardDialogTest, EnterAppliesTheMarkedLayoutAndEscNothing) {
    const struct {
        std::vector<const char*> keys; // capability names, or text
        int result;
        const char* layout;
    } runs[] = {
        {{"kcud1", "kcud1", "\n"}, 1, "US Default"},
        {{"kcud1", " \n"}, 1, "US Dvorak"}, // the cursor starts on the configured layout
        {{"kcuu1", " ", "kcuu1", " \n"}, 1, "Turkish"},
        {{"kcud1", " \033"}, 0, "Turkish"},
    };
    for (const auto& run : runs) {
        for (const char* key : run.keys)
            key[0] == 'k' ? Press(key) : Type(key);
        EXPECT_EQ(ChooseKeyboardLayout(nullptr), run.result == 1);
        EXPECT_EQ(host_.State()["keyboard"]["current"], run.layout);
    }
    EXPECT_TRUE(host_.Logged("Keyboard Layout changed to US Default"));
}

TEST_F(KeyboardDialogTest, NoMarkOrAFailingHostStillClosesWithEnter) {
    host_.ChangeState([](Json& s) { s["keyboard"]["current"] = "Klingon"; });
    {
        KeyboardDialog dialog(nullptr);
        EXPECT_EQ(dialog.Marked(), -1);
        Type("\n");
        EXPECT_EQ(dialog.Ask(), std::nullopt) << "nothing marked, nothing to apply";
    }
    // "Default" is marked with Space, then leaves the host's list before Enter.
    KeyboardDialog dialog(nullptr);
    Type(" \n");
    host_.ChangeState([](Json& s) { s["keyboard"]["layouts"] = Json::array({"German"}); });
    const std::optional<std::string> layout = dialog.Ask();
    ASSERT_EQ(layout, "Default");
    EXPECT_FALSE(ChangeKeyboardLayout(*layout));
    EXPECT_EQ(host_.State()["keyboard"]["current"], "Klingon");
    EXPECT_TRUE(host_.Logged("Changing keyboard layout failed: unknown keyboard layout 'Default'"));
}

class LoginDialogTest : public OnHostTerminal {
protected:
    void TearDown() override {
        SetKeyboardChoice(false);
        SetSmartCardUser("");
        SetSmartCardSessionState("", false);
        SetLoggedInUser("");
        SetEmptyPassword(false);
        OnHostTerminal::TearDown();
    }
    // A card for jdoe@EXAMPLE in slot 0, and that user with PIN 1234.
    void InsertCard() {
        host_.ChangeState([](Json& state) {
            state["smartCards"]["slots"][0]["token"] = {{"userId", "jdoe@EXAMPLE"}};
            state["users"].push_back(
                {{"name", "jdoe@EXAMPLE"}, {"password", "1234"}, {"expired", false}, {"permitted", true}});
        });
        SetSmartCardUser("jdoe@EXAMPLE");
    }
};

TEST_F(LoginDialogTest, TabOnThePasswordWrapsToTheKeyboardItem) {
    SetKeyboardChoice(true);
    const Json before = host_.State()["keyboard"]["current"];
    LoginDialog dialog(nullptr);
    Type("\t\t\n"); // login -> password -> keyboard item, which opens the layout choice
    Press("kcud1");
    Type(" \n\033"); // another layout, taken; then leave
    EXPECT_EQ(RunWindow(&dialog), 0);
    EXPECT_NE(host_.State()["keyboard"]["current"], before);
    EXPECT_TRUE(host_.Read("var/log/audit.log").empty()) << "no login was attempted";
}

TEST_F(LoginDialogTest, PinLoginOpensASmartCardSessionAndF3GoesBackToRoot) {
    InsertCard();
    {
        LoginDialog dialog(nullptr);
        Type("\n1234\n"); // the login id is the card's
        EXPECT_EQ(RunWindow(&dialog), 1);
        EXPECT_EQ(dialog.UserName(), "jdoe@EXAMPLE");
        EXPECT_EQ(LoggedInUser(), "jdoe@EXAMPLE");
        EXPECT_FALSE(EmptyPassword());
        EXPECT_TRUE(SmartCardSession());
        EXPECT_EQ(SmartCardSessionUser(), "jdoe@EXAMPLE");
        EXPECT_TRUE(host_.Logged("User jdoe@EXAMPLE logged in"));
    }
    SetSmartCardSessionState("", false);
    LoginDialog dialog(nullptr);
    Press("kf3");
    Type("\n\n"); // "root" and the empty password
    EXPECT_EQ(RunWindow(&dialog), 1);
    EXPECT_EQ(LoggedInUser(), "root");
    EXPECT_TRUE(EmptyPassword());
    EXPECT_FALSE(SmartCardSession()) << "a password login opens no smart-card session";
}

TEST(PamTest, LoginOutcomesAndPasswordChanges) {
    ActiveTestHost host;
    ASSERT_TRUE(std::filesystem::exists(host.Path("/lib/security/pam_simhost.so"))) << "PAM module not built";
    EXPECT_EQ(Authenticate("root", ""), PAM_SUCCESS);
    EXPECT_EQ(Authenticate("root", "wrong"), PAM_AUTH_ERR);
    EXPECT_EQ(Authenticate("expired", "Expired#1"), PAM_NEW_AUTHTOK_REQD);
    EXPECT_EQ(Authenticate("guest", "Guest#123"), PAM_PERM_DENIED);

    // Refused: a wrong old password, a user without permission (the module's own rules are its tests).
    EXPECT_FALSE(ChangePasswordThroughPam("root", "wrong", "Fresh#2024"));
    EXPECT_FALSE(ChangePasswordThroughPam("guest", "Guest#123", "Fresh#2024"));
    EXPECT_EQ(Authenticate("root", ""), PAM_SUCCESS);

    ASSERT_TRUE(ChangePasswordThroughPam("expired", "Expired#1", "Fresh#2024"));
    EXPECT_EQ(Authenticate("expired", "Fresh#2024"), PAM_SUCCESS) << "the expiry flag is cleared";
    EXPECT_EQ(Authenticate("expired", "Expired#1"), PAM_AUTH_ERR);
    ASSERT_TRUE(ChangePasswordThroughPam("root", "", "Root#Pass1"));
    EXPECT_EQ(Authenticate("root", ""), PAM_AUTH_ERR);
    EXPECT_EQ(Authenticate("root", "Root#Pass1"), PAM_SUCCESS);

    std::filesystem::remove(host.Path("/etc/pam.d/tarn"));
    EXPECT_NE(Authenticate("root", "Root#Pass1"), PAM_SUCCESS) << "no service file";
}

class WelcomeFactsTest : public ::testing::Test {
protected:
    using Json = TestHost::Json;
    WelcomeFacts Facts() const {
        TesCtl::Network::DnsConfigImpl dns;
        return ReadWelcomeFacts(dns);
    }
    ActiveTestHost host_;
};

TEST_F(WelcomeFactsTest, StoredSettingsDecideDhcpAndRunningOnesTheAddress) {
    host_.ChangeState([](Json& s) {
        auto& tes0 = s["tesnics"][0];
        tes0["stored"]["dhcp"] = true;
        tes0["stored"]["ipv4None"] = true;
        tes0["running"]["address"] = "192.0.2.99";
        tes0["dhcpServer"] = "192.0.2.2";
        s["system"]["bootOptions"]["auditMode"] = true;
        s["ipv6"]["enabled"] = false;
    });
    WelcomeFacts f = Facts();
    EXPECT_TRUE(f.network.dhcp && f.network.ipv4Disabled && f.network.dhcpServerKnown && f.auditMode);
    EXPECT_EQ(f.network.ipv4Address, "192.0.2.99");
    EXPECT_FALSE(f.network.ipv6Enabled);

    // Without a management interface: an unset static address, the rest of the host still read.
    host_.ChangeState([](Json& s) { s["management"] = ""; });
    f = Facts();
    EXPECT_EQ(f.network.ipv4Address, "0.0.0.0");
    EXPECT_FALSE(f.network.dhcp || f.network.ipv4Disabled);
    EXPECT_TRUE(f.network.ipv6.empty());
    EXPECT_EQ(f.network.hostname, "host01");
}

TEST_F(WelcomeFactsTest, UnreadableHostGivesDefaultsAndLogsEachFailure) {
    host_.Write("/etc/simhost/host.json", "{ not json");
    const WelcomeFacts f = Facts();
    EXPECT_EQ(f.network.ipv4Address, "0.0.0.0");
    EXPECT_TRUE(f.network.hostname.empty());
    EXPECT_FALSE(f.network.ipv6Enabled || f.auditMode);
    EXPECT_TRUE(f.hasAdapters) << "an unreadable list must not raise the no-adapter alert";
    EXPECT_EQ(f.cpuPackages + f.totalPages, 0u);
    TesCtl::System::SystemInfoImpl system;
    EXPECT_EQ(ReadWelcomeMessage(system), "");
    const std::string log = host_.Read("var/log/syslog.log");
    for (const char* action : {"Getting physical nics failed: ", "Getting hostname failed: ",
                               "Getting memory information failed: ", "Getting welcome message failed: "})
        EXPECT_NE(log.find(action), std::string::npos) << action << " not in\n" << log;
}

} // namespace
} // namespace Tarn
