// Login through the welcome screen against the simulated host's PAM module: every outcome with its log
// line, audit record and event, the disabled-login dialog, smart-card PIN mode and cancelling.
#include "Flows.h"
#include "harness/Screenshot.h"

#include <csignal>
#include <filesystem>

namespace e2e {
namespace {

// Closes a failure message and waits for the login dialog to be back in front.
void CloseMessage(Console& c, const std::string& text) {
    ASSERT_TRUE(c->WaitForText(text)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(text)) << c->View().Text();
    ASSERT_TRUE(c->WaitForTextSettled(kLoginTitle, 50ms));
}

// The text cursor shows in the focused field, on terminals that can hide it (the full login run below) and
// on those that cannot.
void ExpectCursorInTheFocusedField(Console& c) {
    const Pos name = c->Find("Login Name:").value_or(Pos{});
    EXPECT_TRUE(c->View().CursorVisible());
    EXPECT_EQ(c->View().Cursor().row, name.row);
    const Pos root = c->Find("root").value_or(Pos{});
    EXPECT_EQ(c->View().Cursor().col, root.col + 4) << "after the preset name";
    c->Key("Down");
    c->WaitQuiet(100ms);
    const Pos password = c->Find("Password:").value_or(Pos{});
    EXPECT_TRUE(c->View().CursorVisible());
    EXPECT_EQ(c->View().Cursor().row, password.row);
    c->Key("Up");
    ASSERT_TRUE(c->WaitQuiet(60ms));
}

TEST(Login, TextCursorStandsInTheFocusedFieldOnATerminalThatCannotHideIt) {
    Console c({.term = "vt102", .rows = 30, .cols = 100});
    OpenLogin(c);
    ExpectCursorInTheFocusedField(c);
}

TEST(Login, EscThenWrongPasswordThenNoPermissionThenRootWithTheEmptyPassword) {
    Console c(Roomy());
    const TestHost& host = c.Host();
    OpenLogin(c);
    const nlohmann::json dns = host.State()["dns"];
    EXPECT_TRUE(c->View().Contains("Enter an authorized login name and password for"));
    EXPECT_TRUE(c->Find(dns["hostname"].get<std::string>() + "." + dns["domain"].get<std::string>() + "."));
    for (const char* shown : {"Login Name:", "root", "Password:"})
        EXPECT_TRUE(c->Find(shown)) << shown;
    EXPECT_FALSE(c->Find("<F3>")) << "no PIN switch without a card";
    EXPECT_FALSE(c->Find("Configured Keyboard (")) << "the default host offers no keyboard choice";
    SaveScreenshot(c->View(), "login");
    ExpectCursorInTheFocusedField(c);

    // Esc cancels without any check.
    c->Type("secret");
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle));
    EXPECT_TRUE(host.SyslogMatching("Authentication of user").empty());
    EXPECT_TRUE(host.ToolCalls().empty());
    OpenLogin(c);

    // A typed name replaces the preset; a wrong password keeps the name and empties the password.
    c->Type("nobody");
    c->Key("LineFeed"); // a line feed is Enter too (some serial terminals send it)
    c->Type("bad");
    c->Key("Enter");
    CloseMessage(c, "Invalid login or password.");
    EXPECT_TRUE(c->Find("nobody")) << c->View().Text();
    EXPECT_FALSE(c->Find("***")) << "the password field was emptied";
    // The focus stayed on the password field.
    c->Key("Up");
    c->Type("guest");
    c->Key("Enter");
    c->Type("Guest#123");
    c->Key("Enter");
    CloseMessage(c, "User does not have permission to login to TARN.");
    c->Key("Up");
    c->Type("root");
    c->Key("Enter");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    // The menu knows the password is empty.
    EXPECT_TRUE(c->WaitForText("Not set")) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("Change default password")) << c->View().Text();

    // The log lines' levels, the audit reasons and the events per outcome are the unit ReportLogin table;
    // here each attempt reached the host as the outcome it was.
    EXPECT_EQ(host.SyslogMatching("Authentication of user nobody failed").size(), 1u);
    EXPECT_EQ(host.SyslogMatching("Access denied for user guest").size(), 1u);
    EXPECT_EQ(host.SyslogMatching("User root logged in").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 3u);
    const std::vector<std::pair<std::string, int>> expected = {{"nobody", 0}, {"guest", 0}, {"root", 1}};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(audit[i]["user"], expected[i].first);
        EXPECT_EQ(audit[i]["success"], expected[i].second);
    }
}

TEST(Login, WithoutTheMarkerFileNoLoginIsAttempted) {
    TestHost host;
    std::filesystem::remove(host.Path("var/run/orvane/show-tarn-login"));
    Console c(host, Roomy());
    for (const char* key : {"F2", "F12"}) {
        SCOPED_TRACE(key);
        ASSERT_TRUE(c->WaitForTextSettled(std::string("<") + key + ">"));
        c->Key(key);
        ASSERT_TRUE(c->WaitForText("Direct console access has been disabled")) << c->View().Text();
        EXPECT_TRUE(c->Find("Authentication Denied"));
        EXPECT_FALSE(c->Find(kLoginTitle));
        c->Key(std::string(key) == "F2" ? "Enter" : "Esc");
        ASSERT_TRUE(c->WaitForTextGone("Authentication Denied"));
    }
    EXPECT_TRUE(host.SyslogMatching("Authentication of user").empty());
    EXPECT_TRUE(host.Read("var/log/audit.log").empty());
}

TEST(Login, SmartCardFoundOnTheNotificationSignalOpensPinMode) {
    Console c(Roomy("smartcard"));
    ASSERT_TRUE(c->WaitForText("<F2>"));
    // The card is looked up on the notification signal, which does not end the program.
    c->Signal(SIGUSR1);
    ASSERT_TRUE(WaitForSyslog(c, "Found smart card with user id 'jdoe@EXAMPLE'"));
    EXPECT_TRUE(c->Running());
    OpenLogin(c);
    EXPECT_TRUE(c->View().Contains("Enter the smart card login PIN for"));
    for (const char* shown : {"Login Id:", "jdoe@EXAMPLE", "PIN:", "<F3>"})
        EXPECT_TRUE(c->Find(shown)) << shown;

    // F3 to the password login and back is the login dialog's unit test.
    c->Key("Enter");
    c->Type("1234");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    EXPECT_EQ(c.Host().SyslogMatching("User jdoe@EXAMPLE logged in").size(), 1u);
}

} // namespace
} // namespace e2e
