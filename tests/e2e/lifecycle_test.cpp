// Ways out of the console outside a session: terminating signals, the restart request and a terminal resize
// all end it with status 0 and leave the terminal as it was found.
#include "harness/Console.h"

#include <csignal>
#include <gtest/gtest.h>

namespace e2e {
namespace {

constexpr const char* kReady = "<F2>";

// The terminal as the console found it: normal screen, cursor shown, line editing and echo back on.
void ExpectTerminalRestored(Terminal& t) {
    EXPECT_FALSE(t.View().AltScreen());
    EXPECT_TRUE(t.View().CursorVisible());
    EXPECT_EQ(t.Modes().c_lflag & (ICANON | ECHO), tcflag_t(ICANON | ECHO));
}

TEST(Lifecycle, SignalsOutsideASessionEndWithStatusZeroAndRestoreTheTerminal) {
    for (int sig : {SIGTERM, SIGINT, SIGQUIT, SIGUSR2}) {
        SCOPED_TRACE(strsignal(sig));
        Console c;
        ASSERT_TRUE(c->WaitForText(kReady));
        ASSERT_TRUE(c->View().AltScreen()) << "xterm-256color switches to the alternate screen";
        c->Signal(sig);
        auto status = c->WaitExit();
        ASSERT_TRUE(status) << "still running";
        EXPECT_TRUE(status->exited) << status->Describe();
        EXPECT_EQ(status->code, 0);
        ExpectTerminalRestored(c.Term());
        EXPECT_FALSE(c->View().Contains(kReady));
    }
}

TEST(Lifecycle, NotificationSignalDoesNotEndTheProgram) {
    Console c;
    ASSERT_TRUE(c->WaitForText(kReady));
    const std::string before = c->View().Text();
    c->Signal(SIGUSR1);
    EXPECT_FALSE(c->WaitExit(300ms));
    c->Key("F2");
    EXPECT_TRUE(c->WaitFor([&] { return c->View().Text() != before; })) << "still answers keys";
}

TEST(Lifecycle, ResizeEndsTheProgramAfterLoggingTheNewSize) {
    Console c({.rows = 25, .cols = 80});
    ASSERT_TRUE(c->WaitForText(kReady));
    c->Resize(30, 100);
    auto status = c->WaitExit();
    ASSERT_TRUE(status) << "still running after a resize";
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    EXPECT_EQ(c.Host().SyslogMatching("Resized window to 100x30").size(), 1u)
        << c.Host().ReadFile("var/log/syslog.log");
    ExpectTerminalRestored(c.Term());
}

TEST(Lifecycle, StartIsLogged) {
    Console c({.term = "linux"});
    ASSERT_TRUE(c->WaitForText(kReady));
    auto lines = c.Host().SyslogMatching("Starting TARN");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("TARN[" + std::to_string(c->Pid()) + "]"), std::string::npos) << lines[0];
}

} // namespace
} // namespace e2e
