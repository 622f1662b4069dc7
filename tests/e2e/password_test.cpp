// The password dialog, reached through an expired login: the old-password check, the refusals of a new
// password, the same-password question, and a change that saves the host configuration.
#include "harness/Console.h"

#include <gtest/gtest.h>

namespace e2e {
namespace {

constexpr const char* kOldField = "Old Password:";
constexpr const char* kError = "Configure Password: Error";

// The expired user's login leads into the password dialog with the focus on the old password.
void OpenPasswordDialog(Console& c) {
    ASSERT_TRUE(c->WaitForText("<F2>")) << c->View().Text();
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText("Authentication Required")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Type("expired");
    c->Key("Enter");
    c->Type("Expired#1");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Password has expired.")) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kOldField)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_TRUE(c->Find("Setting the password will prevent unauthorized access"));
}

// Closes an error message whose text is `text` and returns to the password dialog.
void ExpectError(Console& c, const std::string& text) {
    ASSERT_TRUE(c->WaitForText(kError)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText(text)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kError));
    ASSERT_TRUE(c->WaitQuiet(50ms));
    ASSERT_TRUE(c->Find(kOldField)) << "the dialog stays open";
}

int ConfigSaves(const SimHost& host) {
    return host.HostJson()["system"].value("configSaves", 0);
}

bool StillExpired(const SimHost& host) {
    const nlohmann::json state = host.HostJson();
    for (const auto& user : state["users"]) {
        if (user["name"] == "expired")
            return user["expired"].get<bool>();
    }
    return false;
}

TEST(Password, ChangeSavesTheConfigurationAndReportsIt) {
    Console c({.rows = 30, .cols = 100});
    OpenPasswordDialog(c);
    c->Type("Expired#1");
    c->Key("Tab"); // Tab on the old password checks it like Enter
    c->Type("Fresh#2024");
    c->Key("Tab");
    c->Type("Fresh#2024");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kOldField)) << c->View().Text();

    const SimHost& host = c.Host();
    bool saved = false;
    for (const auto& call : host.ToolCalls())
        saved = saved || (call.size() == 2 && call[0].ends_with("cfgsave.sh") && call[1] == "0");
    EXPECT_TRUE(saved);
    EXPECT_EQ(ConfigSaves(host), 1);
    const auto changed = host.SyslogMatching("Login password for user expired has changed");
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_NE(changed[0].find("user.info"), std::string::npos) << changed[0];
    EXPECT_NE(host.ReadFile("var/log/obed.log")
                  .find("@&!*@*@(obe.user.tarn.login.passwd.changed)Login password for user expired changed"),
              std::string::npos);
    EXPECT_FALSE(StillExpired(host));
}

TEST(Password, ChangeFromTheMenuClearsTheEmptyPasswordState) {
    Console c({.rows = 30, .cols = 100});
    ASSERT_TRUE(c->WaitForText("<F2>")) << c->View().Text();
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText("Authentication Required"));
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Not set")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter"); // the first entry: Configure Password
    ASSERT_TRUE(c->WaitForText(kOldField)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter"); // the empty old password is right
    c->Type("Root#Pass1");
    c->Key("Enter");
    c->Type("Root#Pass1");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kOldField)) << c->View().Text();
    EXPECT_TRUE(c->WaitForTextGone("Not set")) << c->View().Text();
    EXPECT_EQ(c.Host().SyslogMatching("Login password for user root has changed").size(), 1u);
}

TEST(Password, WrongOldPasswordIsRefusedAndEmptied) {
    Console c({.rows = 30, .cols = 100});
    OpenPasswordDialog(c);
    c->Type("Wrong#1");
    c->Key("Enter");
    ExpectError(c, "The old password you entered is incorrect");
    EXPECT_FALSE(c->Find("*******")) << "old password field emptied";
    // The focus is back on the old password: the right one now moves on to the new password.
    c->Type("Expired#1");
    c->Key("Enter");
    c->Type("Fresh#2024");
    c->Key("Enter");
    c->Type("Fresh#2024");
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextGone(kOldField)) << c->View().Text();
    EXPECT_FALSE(StillExpired(c.Host()));
}

TEST(Password, EmptyMismatchedAndTooSimplePasswordsAreRefused) {
    Console c({.rows = 30, .cols = 100});
    OpenPasswordDialog(c);
    c->Type("Expired#1");
    c->Key("Enter");
    // Empty new password.
    c->Key("Enter");
    c->Key("Enter");
    ExpectError(c, "Empty passwords are not allowed.");
    // Mismatch: the focus is still on the confirmation; Tab goes back to the new password.
    c->Key("Tab");
    c->Type("Fresh#2024");
    c->Key("Enter");
    c->Type("Fresh#2025");
    c->Key("Enter");
    ExpectError(c, "The new password and the confirmed password do not match.");
    // Too simple for the host's rule: PAM refuses it.
    c->Key("Up");
    c->Key("Backspace"); // a fresh field clears on the first Backspace
    c->Type("simple");
    c->Key("Enter");
    c->Key("Backspace");
    c->Type("simple");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText(kError)) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("The password change operation failed.")) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("complexity criteria")) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kError));

    const SimHost& host = c.Host();
    EXPECT_TRUE(StillExpired(host));
    EXPECT_EQ(ConfigSaves(host), 0);
    EXPECT_TRUE(host.SyslogMatching("has changed").empty());
}

TEST(Password, SamePasswordAsksFirst) {
    Console c({.rows = 30, .cols = 100});
    OpenPasswordDialog(c);
    c->Type("Expired#1");
    c->Key("Enter");
    c->Type("Expired#1");
    c->Key("Enter");
    c->Type("Expired#1");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("New password is same as old password. Are you sure?")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Are you sure?"));
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_TRUE(c->Find(kOldField));
    EXPECT_TRUE(StillExpired(c.Host()));

    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Are you sure?"));
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Key("Enter");
    // The question covers the password fields, so the end of the change shows in the log, not on screen.
    ASSERT_TRUE(c->WaitFor([&] {
        c->Pump(20ms);
        return !c.Host().SyslogMatching("Login password for user expired has changed").empty();
    })) << c->View().Text();
    EXPECT_FALSE(StillExpired(c.Host()));
    EXPECT_EQ(ConfigSaves(c.Host()), 1);
}

TEST(Password, EscLeavesEverythingAsItWas) {
    Console c({.rows = 30, .cols = 100});
    OpenPasswordDialog(c);
    c->Type("Expired#1");
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kOldField));
    EXPECT_TRUE(c->WaitForText("Authentication Required"));
    EXPECT_TRUE(StillExpired(c.Host()));
    EXPECT_TRUE(c.Host().ToolCalls().empty());
}

} // namespace
} // namespace e2e
