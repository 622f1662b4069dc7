// Start and end of the console: colours per TERM, the TERM rules, the VT argument, the pid-file rule;
// terminating signals and a resize end it with status 0 (a session cut short logged out), crashes by their
// signal, and all leave the terminal as it was found.
#include "Flows.h"
#include "harness/Screenshot.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

namespace e2e {
namespace {

// The root screen's key hint: present as soon as the first paint is complete.
constexpr const char* kReady = "<F2>";

// One welcome screen, started with a refused VT argument (which arguments are refused is the fuzz target
// fuzz_vt_argument's) and a stale pid file: the palette, the colours the cells use, the start-up log lines,
// the pid file and the libraries the welcome screen keeps out of its memory.
TEST(Startup, WelcomeScreenColoursLogLinesAndLibraries) {
    TestHost host;
    host.Write("var/run/tarn.pid", "junk"); // stale content is replaced
    Console c(host, {.term = "xterm-256color", .args = {"tty2"}});
    ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    EXPECT_EQ(host.Read("var/run/tarn.pid"), std::to_string(c->Pid()));
    const Screen& s = c->View();
    // The five colours redefined where the terminal allows it; colour 0 stays black.
    EXPECT_EQ(s.PaletteChanges(), (std::map<int, Rgb>{{1, {255, 0, 0}},
                                                      {2, {170, 170, 170}},
                                                      {3, {255, 204, 0}},
                                                      {6, {85, 85, 85}},
                                                      {7, {255, 255, 255}}}));
    // Cells are painted with palette indices from the console's own set, never the terminal's defaults.
    const Pos hint = c->Find(kReady).value_or(Pos{});
    const Cell cell = c->CellAt(hint.col + 1, hint.row);
    const std::set<int> own = {0, 1, 2, 3, 6, 7};
    EXPECT_TRUE(own.contains(cell.fg.Index()) && own.contains(cell.bg.Index()))
        << cell.fg.Index() << cell.bg.Index();
    EXPECT_NE(cell.fg.Index(), cell.bg.Index());
    SaveScreenshot(s, "startup-xterm-256color");
    auto lines = c.Host().SyslogMatching("Starting TARN");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("TARN[" + std::to_string(c->Pid()) + "]"), std::string::npos) << lines[0];
    EXPECT_EQ(c.Host().SyslogMatching("Invalid VT specified for TARN: tty2").size(), 1u);
    EXPECT_TRUE(c->Running());

    // Libraries of later screens or of the real host stay out of the welcome screen's memory.
    std::ifstream in("/proc/" + std::to_string(c->Pid()) + "/maps");
    const std::string maps{std::istreambuf_iterator<char>(in), {}};
    ASSERT_NE(maps.find("libc.so"), std::string::npos);
    std::vector<std::string> absent = {"libpam.so", "libnl-3.so", "libnl-route-3.so"};
#ifdef TARN_TEST_RUNTIME_INSIDE
    // Each shared library costs hundreds of KiB resident at start: one new call into libm maps it again.
    absent.insert(absent.end(), {"libstdc++.so", "libm.so", "libgcc_s.so"});
#endif
    for (const std::string& library : absent)
        EXPECT_EQ(maps.find(library), std::string::npos) << library;
}

// The program's own setenv() does not show in /proc/PID/environ (that is the exec-time block), so the chosen
// TERM is observed through what the program writes: its first paint must be byte for byte the one it
// writes when started with that TERM.
std::string FirstPaint(std::optional<std::string> term) {
    Console c({.term = std::move(term)});
    EXPECT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_TRUE(c->View().PaletteChanges().empty()) << "vt102 cannot redefine colours";
    return c->Output();
}

TEST(Startup, LinuxOrNoTermOnANonConsoleTerminalBecomesVt102) {
    const std::string vt102 = FirstPaint("vt102");
    ASSERT_FALSE(vt102.empty());
    EXPECT_EQ(FirstPaint("linux"), vt102);
    EXPECT_EQ(FirstPaint(std::nullopt), vt102);
    EXPECT_EQ(vt102.find("\x1b]P"), std::string::npos) << "no Linux palette sequences";
}

TEST(PidFile, ALiveForeignPidIsKeptAndTheSecondInstanceLogged) {
    // The start-up rule's cases are unit tests (StartupRules); stale content is the welcome run's above.
    const std::string live = std::to_string(getpid()); // alive for as long as this test runs
    TestHost host;
    host.Write("var/run/tarn.pid", live);
    Console c(host, {});
    ASSERT_TRUE(c->WaitForText(kReady));
    EXPECT_TRUE(c->Running()) << "a second instance still runs";
    EXPECT_EQ(host.Read("var/run/tarn.pid"), live);
    EXPECT_EQ(host.SyslogMatching("Attempt to run multiple TARN instances, not updating " +
                                  host.Path("var/run/tarn.pid"))
                  .size(),
              1u);
}

// Which signals end the program with status 0 is a unit test of the event loop (WaitForInputDeathTest);
// here the terminal is seen restored, and a session the program's end cut short is recorded as a log-out. A
// crash cannot run the at-exit list; the terminal is still given back before the signal ends the process.
TEST(Lifecycle, SignalsAndAResizeEndTheProgramRestoreTheTerminalAndLogTheSessionOut) {
    const struct {
        int sig; // 0: a resize
        bool session, fatal;
    } cases[] = {{SIGTERM, false, false},
                 {SIGHUP, true, false},
                 {0, true, false},
                 {SIGABRT, false, true},
                 {SIGSEGV, false, true}};
    for (const auto& t : cases) {
        SCOPED_TRACE(std::string(t.sig ? strsignal(t.sig) : "resize") + (t.session ? " in a session" : ""));
        Console c(Roomy());
        if (t.session)
            LogInAsRoot(c);
        else
            ASSERT_TRUE(c->WaitForText(kReady));
        ASSERT_TRUE(c->View().AltScreen()) << "xterm-256color switches to the alternate screen";
        if (t.sig)
            c->Signal(t.sig);
        else
            c->Resize(25, 80);
        auto status = c->WaitExit();
        ASSERT_TRUE(status) << "still running";
        if (t.fatal) {
            EXPECT_TRUE(status->signaled && status->signal == t.sig) << status->Describe();
        } else {
            EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
        }
        // The terminal as the console found it: normal screen, cursor shown, line editing and echo back on.
        EXPECT_FALSE(c->View().AltScreen());
        EXPECT_TRUE(c->View().CursorVisible());
        EXPECT_EQ(c->Modes().c_lflag & (ICANON | ECHO), tcflag_t(ICANON | ECHO));
        EXPECT_FALSE(c->View().Contains(kReady));
        const TestHost& host = c.Host();
        EXPECT_EQ(host.SyslogMatching("Resized window to 80x25").size(), t.sig ? 0u : 1u);
        EXPECT_EQ(host.SyslogMatching("User root logged out").size(), t.session ? 1u : 0u);
        if (t.session) {
            const auto audit = AuditRecords(host);
            ASSERT_FALSE(audit.empty());
            EXPECT_EQ(audit.back()["event"], "login.disconnect");
            EXPECT_EQ(audit.back()["user"], "root");
        }
    }
}

// The smallest terminals may show nothing useful, but the console lives on through a login and the menu.
TEST(Lifecycle, NoTerminalSizeCrashesTheConsole) {
    for (auto [rows, cols] : std::vector<std::pair<int, int>>{{1, 1}, {2, 2}, {3, 12}, {6, 30}, {12, 50}}) {
        SCOPED_TRACE(std::to_string(cols) + "x" + std::to_string(rows));
        Console c({.rows = rows, .cols = cols});
        for (const char* key :
             {"F2", "Enter", "Enter", "Down", "Down", "Enter", "Esc", "Esc", "F12", "Esc"}) {
            c->WaitQuiet(150ms);
            c->Key(key);
        }
        c->WaitQuiet(150ms);
        ASSERT_TRUE(c->Running()) << (c->Exit() ? c->Exit()->Describe() : "");
        c->Signal(SIGTERM);
        auto status = c->WaitExit();
        ASSERT_TRUE(status);
        EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    }
}

// Questions and unusable settings are answered on the terminal; none of them starts the console.
TEST(CommandLine, HelpVersionAndUnusableSettingsAnswerOnTheTerminal) {
    const struct {
        std::vector<std::string> args;
        std::optional<std::string> term;
        std::optional<std::string> tarnHost; // nullopt: the test's own host
        bool success;
        const char* says;
    } cases[] = {
        {{"--help"}, "xterm-256color", std::nullopt, true, "usage: tarn [VT]"},
        {{"--version"}, "xterm-256color", std::nullopt, true, "tarn 0."},
        {{}, "no-such-terminal", std::nullopt, false, "cannot use terminal type \"no-such-terminal\""},
        {{}, "xterm-256color", "sim:/nonexistent", false, "no usable simulated host in /nonexistent"},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(t.says);
        ConsoleOptions options{.term = t.term, .args = t.args};
        if (t.tarnHost)
            options.env["TARN_HOST"] = *t.tarnHost;
        Console c(options);
        auto status = c->WaitExit();
        ASSERT_TRUE(status) << "still running: " << c->View().Text();
        c->Pump(50ms);
        EXPECT_EQ(status->exited && status->code == 0, t.success) << status->Describe();
        EXPECT_TRUE(status->exited) << status->Describe();
        EXPECT_NE(c->Output().find(t.says), std::string::npos) << c->Output();
        EXPECT_FALSE(c->View().Contains(kReady));
        if (!t.args.empty()) {
            EXPECT_TRUE(c.Host().SyslogMatching("Starting TARN").empty()) << "the console did not start";
        }
    }
}

} // namespace
} // namespace e2e
