// The password dialog, reached through an expired login: Esc, the old-password check, the refusals of a new
// password, the same-password question, a change that saves the host configuration and the new login it
// requires.
#include "Flows.h"

namespace e2e {
namespace {

constexpr const char* kOldField = "Old Password:";
constexpr const char* kError = "Configure Password: Error";

void TypeFields(Console& c, std::initializer_list<const char*> values, const char* before = "") {
    for (const char* value : values) {
        if (*before)
            c->Key(before);
        c->Type(value);
        c->Key("Enter");
    }
}

// The expired user's login (from the login dialog's name field) leads into the password dialog with the
// focus on the old password.
void OpenPasswordDialog(Console& c) {
    TypeFields(c, {"expired", "Expired#1"});
    ASSERT_TRUE(c->WaitForText("Password has expired.")) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("You will be prompted to set a new password and then login again."));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(kOldField, 50ms)) << c->View().Text();
    EXPECT_TRUE(c->Find("Setting the password will prevent unauthorized access"));
}

// Waits for an error message with `texts`, closes it and checks that the dialog stayed open.
void ExpectError(Console& c, std::initializer_list<const char*> texts) {
    ASSERT_TRUE(c->WaitForText(kError)) << c->View().Text();
    for (const char* text : texts)
        EXPECT_TRUE(c->WaitForText(text)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kError));
    ASSERT_TRUE(c->WaitQuiet(50ms));
    ASSERT_TRUE(c->Find(kOldField)) << "the dialog stays open";
}

int ConfigSaves(const TestHost& host) {
    return host.State()["system"].value("configSaves", 0);
}

TEST(Password, EscThenRefusalsThenTheSamePasswordAfterAskingThenANewLoginWithIt) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    OpenLogin(c);
    OpenPasswordDialog(c);
    // Esc leaves everything as it was and goes back to the login dialog, the name kept.
    c->Type("Expired#1");
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kOldField));
    ASSERT_TRUE(c->WaitForTextSettled(kLoginTitle, 50ms));
    EXPECT_TRUE(c->Find("expired"));
    EXPECT_TRUE(UserExpired(host, "expired"));
    EXPECT_TRUE(host.ToolCalls().empty());
    c->Key("Up");
    OpenPasswordDialog(c);

    TypeFields(c, {"Wrong#1"});
    ExpectError(c, {"The old password you entered is incorrect"});
    EXPECT_FALSE(c->Find("*******")) << "old password field emptied";
    // The focus is back on the old password; Tab checks it like Enter.
    c->Type("Expired#1");
    c->Key("Tab");
    TypeFields(c, {"", ""});
    ExpectError(c, {"Empty passwords are not allowed."});
    // The focus is still on the confirmation; Tab goes back to the new password.
    c->Key("Tab");
    TypeFields(c, {"Fresh#2024", "Fresh#2025"});
    ExpectError(c, {"The new password and the confirmed password do not match."});
    // Too simple for the host's rule: PAM refuses it. A fresh field clears on the first Backspace.
    c->Key("Up");
    TypeFields(c, {"simple", "simple"}, "Backspace");
    ExpectError(c, {"The password change operation failed.", "complexity criteria"});
    EXPECT_TRUE(UserExpired(host, "expired"));
    EXPECT_EQ(ConfigSaves(host), 0);
    EXPECT_TRUE(host.SyslogMatching("has changed").empty());

    // The old password again: asked first; Esc goes back to the fields, Enter on the question changes it.
    c->Key("Up");
    TypeFields(c, {"Expired#1", "Expired#1"}, "Backspace");
    ASSERT_TRUE(c->WaitForText("New password is same as old password. Are you sure?")) << c->View().Text();
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone("Are you sure?"));
    ASSERT_TRUE(c->WaitForTextSettled(kOldField));
    EXPECT_TRUE(UserExpired(host, "expired"));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled("Are you sure?"));
    c->Key("Enter");
    // The question covers the password fields: the end of the change shows in the log first.
    ASSERT_TRUE(WaitForSyslog(c, "Login password for user expired has changed")) << c->View().Text();

    bool saved = false;
    for (const auto& call : host.ToolCalls())
        saved = saved || (call.size() == 2 && call[0].ends_with("cfgsave.sh") && call[1] == "0");
    EXPECT_TRUE(saved);
    EXPECT_EQ(ConfigSaves(host), 1);
    EXPECT_FALSE(UserExpired(host, "expired"));
    EXPECT_EQ(host.SyslogMatching("Password has expired for user expired").size(), 2u);
    const auto changed = host.SyslogMatching("Login password for user expired has changed");
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_NE(changed[0].find("user.info"), std::string::npos) << changed[0];
    EXPECT_EQ(Events(host).back(),
              "@&!*@*@(obe.user.tarn.login.passwd.changed)Login password for user expired changed");
    EXPECT_TRUE(host.SyslogMatching("User expired logged in").empty()) << "the change is not a login";

    // Back in the login dialog with the name kept and the focus on the password: a new login is required.
    ASSERT_TRUE(c->WaitForTextSettled(kLoginTitle, 50ms));
    TypeFields(c, {"Expired#1"});
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    EXPECT_EQ(host.SyslogMatching("User expired logged in").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 3u);
    EXPECT_EQ(audit[0]["pairs"]["reason"], "Password expired");
    EXPECT_EQ(audit[1]["pairs"]["reason"], "Password expired");
    EXPECT_EQ(audit[2]["success"], 1);
}

} // namespace
} // namespace e2e
