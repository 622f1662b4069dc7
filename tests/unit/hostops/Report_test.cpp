// Observation events and login audit records, read back from the simulated host's log files.
#include "support/ActiveTestHost.h"

#include "core/Report.h"
#include "platform/ObeUser.h"

#include <gtest/gtest.h>

namespace {

TEST(ReportEvent, AppendsEventsAndSurvivesAnUnavailableLibrary) {
    ActiveTestHost host{TestHost::Layout::Folders};
    host.Write("/var/run/obed.disabled", "");
    Tarn::ReportEvent(Tarn::kEventPasswordChanged, "root");
    EXPECT_TRUE(host.Read("/var/log/obed.log").empty());
    auto messages = host.LogMessages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], "Initializing obeuser library");
    EXPECT_EQ(messages[1].rfind("Unable to initialize obeuser library from TARN. Error code: ", 0), 0u);
    EXPECT_NE(messages[1], "Unable to initialize obeuser library from TARN. Error code: 0");

    // The next attempts try again and succeed once the service is back.
    std::filesystem::remove(host.Path("/var/run/obed.disabled"));
    Tarn::ReportEvent(Tarn::kEventNetworkRestart, "tes0");
    Tarn::ReportEvent(Tarn::kEventRebootHost);
    EXPECT_EQ(host.Lines("/var/log/obed.log"),
              (std::vector<std::string>{"@&!*@*@(obe.user.tarn.network.restart)Restarting tes0",
                                        "@&!*@*@(obe.user.tarn.reboot.host)Rebooting host"}));
    EXPECT_EQ(host.LogMessages().size(), 4u);
    EXPECT_EQ(host.LogMessages().back(), "Initializing obeuser library");
}

TEST(ReportLogin, EachOutcomeLogsAuditsAndPostsEvent) {
    struct Case {
        Tarn::LoginOutcome outcome;
        std::vector<std::string> syslog; // facility.level and message
        int success;
        TestHost::Json pairs;
        std::vector<std::string> events;
    } cases[] = {
        {Tarn::LoginOutcome::Success,
         {"auth.emerg Authentication of user ann succeeded", "user.info User ann logged in"},
         1,
         TestHost::Json::object(),
         {}},
        {Tarn::LoginOutcome::PasswordExpired,
         {"auth.err Password has expired for user ann", "user.info Initializing obeuser library"},
         0,
         {{"reason", "Password expired"}},
         {"@&!*@*@(obe.user.tarn.login.failed)Access denied for user ann"}},
        {Tarn::LoginOutcome::InvalidLogin,
         {"auth.err Authentication of user ann failed", "user.info Initializing obeuser library"},
         0,
         {{"reason", "Invalid Login"}},
         {"@&!*@*@(obe.user.tarn.login.failed)Authentication of user ann failed"}},
        {Tarn::LoginOutcome::NoPermission,
         {"auth.err Access denied for user ann", "user.info Initializing obeuser library"},
         0,
         {{"reason", "No permission"}},
         {"@&!*@*@(obe.user.tarn.login.failed)Access denied for user ann"}},
    };
    for (const Case& c : cases) {
        ActiveTestHost host{TestHost::Layout::Folders};
        Tarn::ReportLogin(c.outcome, "ann");
        // "<time> <facility>.<level> TARN[pid]: <message>" reduced to facility.level and message.
        std::vector<std::string> syslog;
        for (const std::string& line : host.Lines("/var/log/syslog.log")) {
            size_t level = line.find(' ') + 1;
            syslog.push_back(line.substr(level, line.find(' ', level) - level) + ' ' +
                             line.substr(line.find("]: ") + 3));
        }
        EXPECT_EQ(syslog, c.syslog);
        auto audit = host.Lines("/var/log/audit.log");
        ASSERT_EQ(audit.size(), 1u);
        EXPECT_EQ(TestHost::Json::parse(audit[0]), TestHost::Json({{"event", "login.connect"},
                                                                   {"user", "ann"},
                                                                   {"source", ""},
                                                                   {"success", c.success},
                                                                   {"pairs", c.pairs}}));
        EXPECT_EQ(host.Lines("/var/log/obed.log"), c.events);
    }
}

TEST(ReportLogout, WritesDisconnectRecord) {
    ActiveTestHost host{TestHost::Layout::Folders};
    Tarn::ReportLogout("ann \"quoted\"");
    auto audit = host.Lines("/var/log/audit.log");
    ASSERT_EQ(audit.size(), 1u);
    auto record = TestHost::Json::parse(audit[0]);
    EXPECT_EQ(record["event"], "login.disconnect");
    EXPECT_EQ(record["user"], "ann \"quoted\"");
}

} // namespace
