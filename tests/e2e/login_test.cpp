// Login through the welcome screen against the simulated host's PAM module: every outcome with its log
// line, audit record and event, the disabled-login dialog, smart-card PIN mode and cancelling.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace e2e {
namespace {

constexpr const char* kReady = "<F2>";
constexpr const char* kLoginTitle = "Authentication Required";

std::vector<nlohmann::json> AuditRecords(const SimHost& host) {
    std::vector<nlohmann::json> records;
    std::istringstream in(host.ReadFile("var/log/audit.log"));
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            records.push_back(nlohmann::json::parse(line));
    return records;
}

std::vector<std::string> Events(const SimHost& host) {
    std::vector<std::string> events;
    std::istringstream in(host.ReadFile("var/log/obed.log"));
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            events.push_back(line);
    return events;
}

void OpenLogin(Console& c) {
    ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText(kLoginTitle)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
}

// With the focus on the login field (preset "root"): a name typed replaces the preset.
void SubmitLogin(Console& c, const std::string& user, const std::string& password) {
    if (user != "root")
        c->Type(user);
    c->Key("Enter");
    c->Type(password);
    c->Key("Enter");
}

// Closes a failure message and waits for the login dialog to be back in front.
void CloseMessage(Console& c, const std::string& text) {
    ASSERT_TRUE(c->WaitForText(text)) << c->View().Text();
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(text)) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
}

TEST(Login, FreshHostLogsInAsRootWithTheEmptyPassword) {
    Console c({.rows = 30, .cols = 100});
    OpenLogin(c);
    const nlohmann::json dns = c.Host().HostJson()["dns"];
    const std::string fqdn =
        dns["hostname"].get<std::string>() + "." + dns["domain"].get<std::string>() + ".";
    EXPECT_TRUE(c->View().Text().find("Enter an authorized login name and password for") !=
                std::string::npos);
    EXPECT_TRUE(c->Find(fqdn)) << c->View().Text();
    EXPECT_TRUE(c->Find("Login Name:"));
    EXPECT_TRUE(c->Find("root"));
    EXPECT_TRUE(c->Find("Password:"));
    EXPECT_FALSE(c->Find("<F3>")) << "no PIN switch without a card";
    SaveScreenshot(c->View(), "login");

    SubmitLogin(c, "root", "");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    // The menu knows the password is empty.
    EXPECT_TRUE(c->WaitForText("Not set")) << c->View().Text();
    EXPECT_TRUE(c->Find("Change default password")) << c->View().Text();
    const SimHost& host = c.Host();
    ASSERT_EQ(host.SyslogMatching("Authentication of user root succeeded").size(), 1u);
    EXPECT_NE(host.SyslogMatching("Authentication of user root succeeded")[0].find("auth.emerg"),
              std::string::npos);
    EXPECT_EQ(host.SyslogMatching("User root logged in").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 1u);
    EXPECT_EQ(audit[0]["event"], "login.connect");
    EXPECT_EQ(audit[0]["user"], "root");
    EXPECT_EQ(audit[0]["success"], 1);
    EXPECT_TRUE(Events(host).empty());
}

TEST(Login, WrongPasswordKeepsTheNameAndEmptiesThePassword) {
    Console c({.rows = 30, .cols = 100});
    OpenLogin(c);
    SubmitLogin(c, "nobody", "bad");
    CloseMessage(c, "Invalid login or password.");
    ASSERT_TRUE(c->WaitForText(kLoginTitle));
    EXPECT_TRUE(c->Find("nobody")) << c->View().Text();
    EXPECT_FALSE(c->Find("***")) << "the password field was emptied";

    const SimHost& host = c.Host();
    const auto failed = host.SyslogMatching("Authentication of user nobody failed");
    ASSERT_EQ(failed.size(), 1u);
    EXPECT_NE(failed[0].find("auth.err"), std::string::npos) << failed[0];
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 1u);
    EXPECT_EQ(audit[0]["success"], 0);
    EXPECT_EQ(audit[0]["pairs"]["reason"], "Invalid Login");
    EXPECT_EQ(Events(host), std::vector<std::string>{
                                "@&!*@*@(obe.user.tarn.login.failed)Authentication of user nobody failed"});

    // The focus stayed on the password field: the right password now logs in under the kept name.
    c->Key("Up");
    c->Type("root");
    c->Key("Enter");
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    EXPECT_EQ(host.SyslogMatching("User root logged in").size(), 1u);
}

TEST(Login, UserWithoutPermissionIsRefused) {
    Console c({.rows = 30, .cols = 100});
    OpenLogin(c);
    SubmitLogin(c, "guest", "Guest#123");
    CloseMessage(c, "User does not have permission to login to TARN.");
    EXPECT_TRUE(c->WaitForText(kLoginTitle));
    const SimHost& host = c.Host();
    EXPECT_EQ(host.SyslogMatching("Access denied for user guest").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 1u);
    EXPECT_EQ(audit[0]["event"], "login.connect");
    EXPECT_EQ(audit[0]["user"], "guest");
    EXPECT_EQ(audit[0]["success"], 0);
    EXPECT_EQ(audit[0]["pairs"]["reason"], "No permission");
    EXPECT_EQ(Events(host),
              std::vector<std::string>{"@&!*@*@(obe.user.tarn.login.failed)Access denied for user guest"});
}

TEST(Login, ExpiredPasswordIsChangedThenTheUserLogsInAgain) {
    Console c({.rows = 30, .cols = 100});
    OpenLogin(c);
    SubmitLogin(c, "expired", "Expired#1");
    ASSERT_TRUE(c->WaitForText("Password has expired.")) << c->View().Text();
    EXPECT_TRUE(c->WaitForText("You will be prompted to set a new password and then login again."));
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForText("Configure Password")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    c->Type("Expired#1");
    c->Key("Enter");
    c->Type("Fresh#2024");
    c->Key("Enter");
    c->Type("Fresh#2024");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone("Old Password:")) << c->View().Text();
    ASSERT_TRUE(c->WaitForText(kLoginTitle));
    ASSERT_TRUE(c->WaitQuiet(50ms));

    const SimHost& host = c.Host();
    EXPECT_EQ(host.SyslogMatching("Password has expired for user expired").size(), 1u);
    EXPECT_EQ(host.SyslogMatching("Login password for user expired has changed").size(), 1u);
    const nlohmann::json state = host.HostJson();
    for (const auto& user : state["users"]) {
        if (user["name"] == "expired") {
            EXPECT_EQ(user["expired"], false);
        }
    }
    EXPECT_TRUE(host.SyslogMatching("User expired logged in").empty()) << "the change is not a login";

    // Still in the login dialog with the name kept and the focus on the password.
    c->Type("Fresh#2024");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    EXPECT_EQ(host.SyslogMatching("User expired logged in").size(), 1u);
    const auto audit = AuditRecords(host);
    ASSERT_EQ(audit.size(), 2u);
    EXPECT_EQ(audit[0]["pairs"]["reason"], "Password expired");
    EXPECT_EQ(audit[1]["success"], 1);
}

TEST(Login, WithoutTheMarkerFileNoLoginIsAttempted) {
    SimHost host;
    std::filesystem::remove(host.Path("var/run/orvane/show-tarn-login"));
    Console c(host, {.rows = 30, .cols = 100});
    ASSERT_TRUE(c->WaitForText(kReady));
    for (const char* key : {"F2", "F12"}) {
        SCOPED_TRACE(key);
        c->Key(key);
        ASSERT_TRUE(c->WaitForText("Authentication Denied")) << c->View().Text();
        EXPECT_TRUE(c->View().Text().find("Direct console access has been disabled") != std::string::npos);
        EXPECT_FALSE(c->Find(kLoginTitle));
        c->Key(std::string(key) == "F2" ? "Enter" : "Esc");
        ASSERT_TRUE(c->WaitForTextGone("Authentication Denied"));
        ASSERT_TRUE(c->WaitQuiet(50ms));
    }
    EXPECT_TRUE(host.SyslogMatching("Authentication of user").empty());
    EXPECT_TRUE(host.ReadFile("var/log/audit.log").empty());
}

TEST(Login, SmartCardOpensPinModeAndF3SwitchesToPassword) {
    Console c({.scenario = "smartcard", .rows = 30, .cols = 100});
    ASSERT_TRUE(c->WaitForText(kReady));
    // The card is looked up on the notification signal.
    c->Signal(SIGUSR1);
    ASSERT_TRUE(c->WaitFor([&] {
        c->Pump(20ms);
        return !c.Host().SyslogMatching("Found smart card with user id 'jdoe@EXAMPLE'").empty();
    }));
    OpenLogin(c);
    EXPECT_TRUE(c->View().Text().find("Enter the smart card login PIN for") != std::string::npos);
    EXPECT_TRUE(c->Find("Login Id:"));
    EXPECT_TRUE(c->Find("jdoe@EXAMPLE"));
    EXPECT_TRUE(c->Find("PIN:"));
    EXPECT_TRUE(c->Find("<F3>"));

    c->Key("F3");
    ASSERT_TRUE(c->WaitForText("Login Name:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_TRUE(c->Find("root"));
    EXPECT_FALSE(c->Find("jdoe@EXAMPLE"));
    c->Key("F3");
    ASSERT_TRUE(c->WaitForText("Login Id:")) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    EXPECT_TRUE(c->Find("jdoe@EXAMPLE"));

    c->Key("Enter");
    c->Type("1234");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle)) << c->View().Text();
    EXPECT_EQ(c.Host().SyslogMatching("User jdoe@EXAMPLE logged in").size(), 1u);
}

TEST(Login, EscCancelsWithoutAnyCheck) {
    Console c({.rows = 30, .cols = 100});
    OpenLogin(c);
    c->Type("secret");
    c->Key("Esc");
    ASSERT_TRUE(c->WaitForTextGone(kLoginTitle));
    EXPECT_TRUE(c->Running());
    EXPECT_TRUE(c.Host().SyslogMatching("Authentication of user").empty());
    EXPECT_TRUE(c.Host().ReadFile("var/log/audit.log").empty());
    EXPECT_TRUE(c.Host().ToolCalls().empty());
}

} // namespace
} // namespace e2e
